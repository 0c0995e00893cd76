#include "host/container/Form.h"

#include "host/container/Automation.h"
#include "host/container/DesignSurface.h"
#include "host/container/FormFrame.h"
#include "runtime/com/MakeCom.h"

#include <olectl.h>

#include <algorithm>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

// The font that the system draws dialogs with, as a font object for controls.
ComPtr<IFontDisp> SystemDialogFont()
{
    LOGFONTW look = {};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(look), &look);
    const HDC screen = GetDC(nullptr);
    const int inch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);

    FONTDESC description = {};
    description.cbSizeofstruct = sizeof(description);
    description.lpstrName = look.lfFaceName;
    description.cySize.int64 = std::abs(look.lfHeight) * 72LL * 10000 / inch;
    description.sWeight = static_cast<SHORT>(look.lfWeight);
    description.sCharset = look.lfCharSet;
    ComPtr<IFontDisp> font;
    Check(OleCreateFontIndirect(&description, IID_PPV_ARGS(&font)));
    return font;
}

} // namespace

Form::Form(std::wstring_view title, SIZE size, bool rightToLeft) :
    fontObject_(SystemDialogFont()), frame_(MakeCom<FormFrame>(static_cast<const ItemOwner&>(*this)))
{
    CreateFormWindow(title, size, rightToLeft);
}

Form::~Form()
{
    Destroy();
}

ControlSite& Form::Add(REFCLSID classId, SiteOptions options)
{
    ComPtr<IUnknown> control;
    Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&control)));
    return Host(control.Get(), std::move(options));
}

ControlSite& Form::Add(const wchar_t* progId, SiteOptions options)
{
    CLSID classId = {};
    Check(CLSIDFromProgID(progId, &classId));
    return Add(classId, std::move(options));
}

ControlSite& Form::Add(IUnknown* control, SiteOptions options)
{
    if (!control)
        throw ComError(E_POINTER);
    return Host(control, std::move(options));
}

ControlSite& Form::Host(IUnknown* control, SiteOptions options)
{
    auto made = ControlSite::Make(*this, control, std::move(options));
    ControlSite& site = *made;
    items_.push_back(std::move(made));
    if (site.Options().activate && site.CanBeSeen() && (site.MiscStatus() & OLEMISC_ACTIVATEWHENVISIBLE))
        Check(site.Activate());
    if (design_)
        design_->KeepOnTop();
    return site;
}

void Form::Remove(ControlSite& site)
{
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const auto& item) { return item.get() == &site; });
    if (found == items_.end())
        return;
    // Off the list first: what the control does while it closes must not find it there.
    const std::unique_ptr<FormItem> removed = std::move(*found);
    items_.erase(found);
    if (Selected() == &site)
        Select(nullptr);
}

template<class Item, class Options>
Item& Form::AddItem(const Options& options)
{
    // To what stands on it, a form is only its owner.
    auto item = std::make_unique<Item>(static_cast<ItemOwner&>(*this), options);
    Item& added = *item;
    items_.push_back(std::move(item));
    return added;
}

Label& Form::AddLabel(const LabelOptions& options)
{
    return AddItem<Label>(options);
}

Frame& Form::AddFrame(const FrameOptions& options)
{
    return AddItem<Frame>(options);
}

Button& Form::AddButton(const ButtonOptions& options)
{
    Button& added = AddItem<Button>(options);
    if (design_)
        design_->KeepOnTop();
    return added;
}

FormItem* Form::Find(std::wstring_view name) const
{
    for (const auto& item : items_)
        if (SameName(item->Name(), name))
            return item.get();
    return nullptr;
}

ControlSite* Form::FindSite(std::wstring_view name) const
{
    return dynamic_cast<ControlSite*>(Find(name));
}

HFONT Form::Font() const
{
    ComPtr<IFont> font;
    HFONT handle = nullptr;
    if (SUCCEEDED(fontObject_.As(&font)))
        font->get_hFont(&handle);
    return handle;
}

double Form::UsualFontSize()
{
    ComPtr<IFont> font;
    CY size = {};
    Check(SystemDialogFont().As(&font));
    Check(font->get_Size(&size));
    return static_cast<double>(size.int64) / 10000;
}

void Form::FontSize(double points)
{
    ComPtr<IFont> font;
    CY size = {};
    size.int64 = static_cast<LONGLONG>(points * 10000);
    Check(fontObject_.As(&font));
    Check(font->put_Size(size));
}

void Form::SetDesignMode(SIZE gridPixels)
{
    design_ = std::make_unique<DesignSurface>(*this, gridPixels);
}

void Form::Select(FormItem* item)
{
    if (design_)
        design_->Select(item);
}

FormItem* Form::Selected() const
{
    return design_ ? design_->Selected() : nullptr;
}

void Form::Destroy()
{
    if (!window_)
        return;
    while (!items_.empty())
    {
        const std::unique_ptr<FormItem> removed = std::move(items_.back());
        items_.pop_back();
    }
    design_.reset();
    sheet_.reset();
    frame_->Detach();
    const HWND window = std::exchange(window_, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    DestroyWindow(window);
}

void Form::MakeActive(ControlSite* site)
{
    if (active_ == site)
        return;
    ControlSite* const before = std::exchange(active_, site);
    // The new control announces itself to the frame after this.
    frame_->ForgetActiveObject();
    if (before)
        before->UIDeactivate();
    UpdateDefaultButton();
}

void Form::SiteActivated(ControlSite& site)
{
    MakeActive(&site);
    if (active_ == &site && sheet_)
        sheet_->Reveal(site.Bounds());
}

void Form::SiteDeactivated(ControlSite& site)
{
    if (active_ != &site)
        return;
    active_ = nullptr;
    frame_->ForgetActiveObject();
}

IOleInPlaceFrame* Form::InPlaceFrame() const
{
    return frame_.Get();
}

} // namespace kiv::host
