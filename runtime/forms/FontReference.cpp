#include "runtime/forms/FontReference.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/forms/Screen.h"

#include <ocidl.h>

#include <string>

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

class ChangeSink final : public ComObject<IPropertyNotifySink>
{
public:
    explicit ChangeSink(FontReference::Listener listener) : listener_(std::move(listener)) {}

    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) noexcept override
    {
        // The listener may drop the font, and with it this.
        const ComPtr<ChangeSink> held(this);
        return Boundary([&] { listener_(); });
    }

    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) noexcept override { return S_OK; }

private:
    FontReference::Listener listener_;
};

constexpr int PointsPerInch = 72;
constexpr CY FallbackSize = {{82500, 0}}; // 8.25 points, in ten-thousandths

} // namespace

FontObject CreateDefaultFont()
{
    LOGFONTW dialogFont = {};
    const bool known = GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof dialogFont, &dialogFont) != 0;

    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    wchar_t fallbackName[] = L"MS Sans Serif";
    description.lpstrName = known ? dialogFont.lfFaceName : fallbackName;
    description.cySize = FallbackSize;
    if (known && dialogFont.lfHeight < 0)
        description.cySize.int64 = -10000LL * dialogFont.lfHeight * PointsPerInch / Screen::PixelsPerInchY();
    description.sWeight = known ? static_cast<SHORT>(dialogFont.lfWeight) : SHORT{FW_NORMAL};
    description.sCharset = known ? dialogFont.lfCharSet : SHORT{DEFAULT_CHARSET};

    FontObject font;
    Check(OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

FontObject CreateFontObject(std::wstring_view name, double points, short weight)
{
    std::wstring nameCopy(name);
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = nameCopy.data();
    description.cySize.int64 = static_cast<LONGLONG>(points * 10000);
    description.sWeight = weight;
    description.sCharset = DEFAULT_CHARSET;
    FontObject font;
    Check(OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

FontObject CloneFont(const FontObject& font)
{
    ComPtr<IFont> source;
    ComPtr<IFont> copy;
    FontObject clone;
    if (SUCCEEDED(font.As(&source)) && SUCCEEDED(source->Clone(&copy)) && SUCCEEDED(copy.As(&clone)))
        return clone;
    return font;
}

FontReference::~FontReference()
{
    Unsubscribe();
}

void FontReference::Set(FontObject font, Listener listener)
{
    Unsubscribe();
    font_ = std::move(font);
    ComPtr<IConnectionPointContainer> container;
    if (FAILED(font_.As(&container)) ||
        FAILED(container->FindConnectionPoint(IID_IPropertyNotifySink, &changes_)))
        return;
    sink_ = MakeCom<ChangeSink>(std::move(listener));
    if (FAILED(changes_->Advise(sink_.Get(), &cookie_)))
        changes_.Reset();
}

HFONT FontReference::Handle() const
{
    ComPtr<IFont> font;
    HFONT handle = nullptr;
    if (font_ && SUCCEEDED(font_.As(&font)) && SUCCEEDED(font->get_hFont(&handle)))
        return handle;
    return nullptr;
}

void FontReference::Unsubscribe()
{
    if (changes_)
        changes_->Unadvise(cookie_);
    changes_.Reset();
    sink_.Reset();
}

} // namespace kiv
