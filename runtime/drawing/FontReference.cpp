#include "runtime/drawing/FontReference.h"

#include "runtime/com/Boundary.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "runtime/com/PerThread.h"
#include "runtime/drawing/WindowResolution.h"

#include <ocidl.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

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
        return Boundary([&] {
            // A copy: the listener may drop the font, and with it this and what it is itself.
            if (const FontReference::Listener listener = listener_)
                listener();
        });
    }

    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) noexcept override { return S_OK; }

    // A font that is telling all its sinks of a change still calls those that have gone meanwhile.
    void Disarm() noexcept { listener_ = nullptr; }

private:
    FontReference::Listener listener_;
};

// Owned by the object; null when there is none.
HFONT HandleOf(const FontObject& object)
{
    ComPtr<IFont> font;
    HFONT handle = nullptr;
    if (object && SUCCEEDED(object.As(&font)) && SUCCEEDED(font->get_hFont(&handle)))
        return handle;
    return nullptr;
}

constexpr int PointsPerInch = 72;

// What a font object's size comes to at a resolution, as a LOGFONT has it. Nothing where there is none to ask
// for.
std::optional<LONG> HeightAt(const FontObject& object, const Resolution& resolution)
{
    ComPtr<IFont> font;
    CY size = {};
    if (FAILED(object.As(&font)) || FAILED(font->get_Size(&size)))
        return std::nullopt;
    const double pixels = static_cast<double>(size.int64) / 10000 * resolution.Y / PointsPerInch;
    // Any number may come from a host's own object.
    constexpr double most = 0x7FFF;
    return -std::lround(std::clamp(pixels, 0.0, most));
}

constexpr CY FallbackSize = {{82500, 0}}; // 8.25 points, in ten-thousandths

FontObject CreateDialogFont()
{
    LOGFONTW dialogFont = {};
    const bool known = GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof dialogFont, &dialogFont) != 0;

    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    wchar_t fallbackName[] = L"MS Sans Serif";
    description.lpstrName = known ? dialogFont.lfFaceName : fallbackName;
    description.cySize = FallbackSize;
    if (known && dialogFont.lfHeight < 0)
        description.cySize.int64 = -10000LL * dialogFont.lfHeight * PointsPerInch / ScreenResolution().Y;
    description.sWeight = known ? static_cast<SHORT>(dialogFont.lfWeight) : SHORT{FW_NORMAL};
    description.sCharset = known ? dialogFont.lfCharSet : SHORT{DEFAULT_CHARSET};

    FontObject font;
    Check(OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

// What the default fonts are copies of. Its handle is made once, and theirs is the same as long as nobody
// changes them.
struct DialogFont
{
    FontObject Object = CreateDialogFont();
    HFONT Handle = HandleOf(Object);
};

} // namespace

FontObject CreateDefaultFont()
{
    return CloneFont(PerThread<DialogFont>().Object);
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

class FontReference::Subscription
{
public:
    Subscription(IUnknown* font, Listener listener) : sink_(MakeCom<ChangeSink>(std::move(listener)))
    {
        ComPtr<IConnectionPointContainer> container;
        if (!font || FAILED(font->QueryInterface(IID_PPV_ARGS(&container))) ||
            FAILED(container->FindConnectionPoint(IID_IPropertyNotifySink, &changes_)) ||
            FAILED(changes_->Advise(sink_.Get(), &cookie_)))
            changes_.Reset();
    }
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;
    ~Subscription()
    {
        sink_->Disarm();
        if (changes_)
            changes_->Unadvise(cookie_);
    }

private:
    ComPtr<ChangeSink> sink_;
    ComPtr<IConnectionPoint> changes_;
    DWORD cookie_ = 0;
};

FontReference::FontReference() = default;

FontReference::~FontReference() = default;

// A font object may be the host's own, and every call to it may lead back here: what it is told and asked is
// over before anything changes, and what it loses goes last.
void FontReference::Set(FontObject font, Listener listener)
{
    auto subscription = std::make_unique<Subscription>(font.Get(), std::move(listener));
    font_.Swap(font);
    subscription_.swap(subscription);
}

HFONT FontReference::Handle(const Resolution& resolution) const
{
    const HFONT own = HandleOf(font_);
    return !own || resolution.Y == ScreenResolution().Y ? own : Sized(own, resolution);
}

HFONT FontReference::Sized(HFONT own, const Resolution& resolution) const
{
    const FontKey like(own);
    if (sized_ && resolution.Y == sizedFor_ && like == sizedLike_)
        return sized_->Get();
    const std::optional<LONG> height = HeightAt(font_, resolution);
    SizedFont sized = height ? FontOfHeight(own, *height) : nullptr;
    if (!sized)
        return own;
    formerlySized_ = std::exchange(sized_, std::move(sized));
    sizedLike_ = like;
    sizedFor_ = resolution.Y;
    return sized_->Get();
}

} // namespace kiv
