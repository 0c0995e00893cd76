#include "host/container/Label.h"

#include "host/container/ItemOwner.h"
#include "host/container/Mnemonic.h"
#include "runtime/core/Mnemonic.h"

namespace kiv::host
{

Label::Label(ItemOwner& owner, const LabelOptions& options) :
    FormItem(owner, options.container, options.name, options.bounds, options.tabIndex), options_(options)
{
    enabled_ = options.enabled;
}

bool Label::HasMnemonic(const MSG& message) const
{
    return CanBeUsed() && HasMnemonicOf(options_.caption, message);
}

void Label::OnMnemonic(MSG&)
{
    Owner().FocusAfter(*this);
}

AccessibleInfo Label::Accessible() const
{
    AccessibleInfo info = FormItem::Accessible();
    info.Role = ROLE_SYSTEM_STATICTEXT;
    info.Name = LabelText();
    return info;
}

std::wstring Label::LabelText() const
{
    return WithoutMnemonic(options_.caption);
}

void Label::Paint(HDC context)
{
    // As on paper: the grid of a form being designed does not run through its texts.
    if (Owner().DesignMode())
        FillRect(context, &bounds_, GetSysColorBrush(COLOR_BTNFACE));
    LOGFONTW bold = {};
    HFONT boldFont = nullptr;
    if (options_.bold)
    {
        GetObjectW(Owner().Font(), sizeof(bold), &bold);
        bold.lfWeight = FW_BOLD;
        boldFont = CreateFontIndirectW(&bold);
    }
    const HGDIOBJ before = boldFont ? SelectObject(context, boldFont) : nullptr;
    const COLORREF colour = SetTextColor(context, GetSysColor(CanBeUsed() ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    RECT bounds = bounds_;
    DrawTextW(context, options_.caption.c_str(), -1, &bounds,
              (options_.alignRight ? DT_RIGHT : DT_LEFT) | DT_VCENTER | DT_SINGLELINE | DT_NOCLIP);
    SetTextColor(context, colour);
    if (boldFont)
    {
        SelectObject(context, before);
        DeleteObject(boldFont);
    }
}

} // namespace kiv::host
