#include "runtime/constituents/TextBox.h"

#include "runtime/com/Errors.h"
#include "runtime/constituents/KeyState.h"
#include "runtime/drawing/BoxBorder.h"
#include "runtime/drawing/Color.h"
#include "runtime/drawing/FittedLine.h"
#include "runtime/drawing/GlyphReach.h"
#include "runtime/drawing/Graphics.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace kiv
{

namespace
{

// The sunken border on both sides, and a pixel of air above and below the line.
constexpr int VerticalFrame = 2 * (2 + 1);

constexpr int Margin = 1;

DWORD StyleOf(TextBoxLook look)
{
    return WS_TABSTOP | ES_AUTOHSCROLL | (look.IsVisible ? DWORD{WS_VISIBLE} : 0) |
           (look.AlignsRight ? DWORD{ES_RIGHT} : 0);
}

// The message that one of the older keys for the clipboard stands for; 0 for other keys.
UINT ClipboardMessageOf(WPARAM key)
{
    if (key != VK_INSERT && key != VK_DELETE)
        return 0;
    const short shift = ShiftState();
    if (shift == ShiftHeld)
        return key == VK_INSERT ? WM_PASTE : WM_CUT;
    return key == VK_INSERT && shift == ControlHeld ? WM_COPY : 0;
}

void Call(const std::function<void()>& handler)
{
    if (handler)
        handler();
}

} // namespace

TextBox::TextBox(ConstituentOwner& owner, HWND parent, TextBoxLook look) :
    Constituent(owner, parent, "EDIT", StyleOf(look), look.HasBorder ? WS_EX_CLIENTEDGE : 0),
    look_(look),
    backColor_(SystemColor(COLOR_WINDOW)),
    foreColor_(SystemColor(COLOR_WINDOWTEXT))
{
}

std::wstring TextBox::Text() const
{
    std::string ansi(static_cast<std::size_t>(Length()) + 1, '\0');
    const LRESULT length = Ask(WM_GETTEXT, ansi.size(), reinterpret_cast<LPARAM>(ansi.data()));
    return Wide(std::string_view(ansi).substr(0, static_cast<std::size_t>(length)));
}

void TextBox::Text(std::wstring_view text)
{
    if (text.size() > MostCharacters)
        throw ComError(InvalidPropertyValue);
    if (text == Text())
        return;
    Ask(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Ansi(text).c_str()));
    former_.reset();
}

void TextBox::Replace(std::wstring_view text)
{
    const std::wstring former = Text();
    Text(text);
    // The host may have answered the change by another text, which then stands.
    if (former != text && Text() == text)
        former_ = former;
}

void TextBox::Undo()
{
    if (!former_)
        return;
    const std::wstring former = *former_;
    const std::wstring current = Text();
    Amend(former);
    if (Text() != former)
        return;
    former_ = current;
    if (former.size() != current.size())
        Select(Length(), 0);
}

void TextBox::Amend(std::wstring_view text)
{
    const std::wstring current = Text();
    if (text == current)
        return;
    const std::string ansi = Ansi(text);
    const bool fits = maxLength_ == 0 || text.size() <= static_cast<std::size_t>(maxLength_);
    if (fits && text.size() == current.size() && ansi.size() == text.size())
        ReplaceDifference(current, text, ansi);
    else
        Replace(text);
}

void TextBox::ReplaceDifference(std::wstring_view current, std::wstring_view text, std::string ansi)
{
    const auto differs = std::mismatch(current.begin(), current.end(), text.begin()).first;
    const auto lastDiffers = std::mismatch(current.rbegin(), current.rend(), text.rbegin()).first;
    const auto start = static_cast<std::size_t>(differs - current.begin());
    const auto end = static_cast<std::size_t>(lastDiffers.base() - current.begin());
    ansi.resize(end);
    SelectAnew({static_cast<int>(start), static_cast<int>(end - start)});
    Ask(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(ansi.c_str() + start));
}

TextBox::Selection TextBox::Selected() const
{
    DWORD start = 0;
    DWORD end = 0;
    Ask(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end - start)};
}

void TextBox::Select(int start, int length)
{
    Ask(EM_SETSEL, static_cast<WPARAM>(start), start + length);
}

void TextBox::SelectAnew(Selection wanted)
{
    if (Selected() != wanted)
        Select(wanted.Start, wanted.Length);
}

void TextBox::Home()
{
    Select(0, 0);
    Ask(EM_SCROLLCARET);
}

std::wstring TextBox::SelText() const
{
    const Selection selected = Selected();
    return Text().substr(static_cast<std::size_t>(selected.Start), static_cast<std::size_t>(selected.Length));
}

void TextBox::SelText(std::wstring_view text)
{
    Ask(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(Ansi(text).c_str()));
}

int TextBox::Length() const
{
    return static_cast<int>(Ask(WM_GETTEXTLENGTH));
}

void TextBox::MaxLength(short characters)
{
    maxLength_ = std::max<short>(characters, 0);
    // To the box itself 0 means a large limit of its own.
    Ask(EM_SETLIMITTEXT, static_cast<WPARAM>(maxLength_));
}

void TextBox::BackColor(OLE_COLOR color)
{
    backColor_ = color;
    Invalidate();
}

void TextBox::ForeColor(OLE_COLOR color)
{
    foreColor_ = color;
    Invalidate();
}

void TextBox::Move(int left, int top, int width, int height)
{
    Place({left, top, left + width, top + std::max(height, LeastHeight())});
}

int TextBox::LeastHeight() const
{
    if (lineHeight_ == 0)
        lineHeight_ = LineHeightInPixels(reinterpret_cast<HFONT>(Ask(WM_GETFONT)));
    return look_.HasBorder ? lineHeight_ + VerticalFrame : lineHeight_;
}

void TextBox::Font(HFONT font)
{
    if (reinterpret_cast<HFONT>(Ask(WM_GETFONT)) == font)
        return;
    Constituent::Font(font);
    // A font brings margins of its own.
    if (look_.HasBorder)
        return;
    // An amount stands where its label has it.
    const int reach = look_.AlignsRight ? ReachOfAmounts(font).Right : 0;
    Ask(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELONG(Margin, Margin + reach));
}

void TextBox::Notified(WORD code)
{
    if (code != EN_CHANGE)
        return;
    // Wine's box sends this after a character that it has refused, too.
    std::wstring text = Text();
    if (text == toldText_)
        return;
    former_ = std::exchange(toldText_, std::move(text));
    if (std::exchange(setFromOutside_, false))
        former_.reset();
    AnnounceForSystem(EVENT_OBJECT_VALUECHANGE, hWnd());
    Call(OnChange);
}

void TextBox::Draw(HDC dc, const RECT& place) const
{
    RECT inside = place;
    if (look_.HasBorder)
        DrawBoxBorder(GetParent(hWnd()), dc, inside, Enabled() ? BoxState::Usual : BoxState::Disabled,
                      IsThemed(hWnd()));
    FillSolid(dc, inside, ResolvedColor(backColor_));

    const auto font = reinterpret_cast<HFONT>(Ask(WM_GETFONT));
    const Graphics graphics(nullptr, dc, font,
                            ResolvedColor(Enabled() ? foreColor_ : SystemColor(COLOR_GRAYTEXT)),
                            ResolvedColor(backColor_));
    const RECT room = inside;
    InflateRect(&inside, -Margin, look_.HasBorder ? -1 : 0);
    if (!look_.AlignsRight)
        return TextLine(font, Text()).Draw(dc, inside.left, inside.top, &room);
    // Nobody can move what is drawn to see the rest of it.
    const FittedLine amount = FitAmount(font, Text(), inside.right - inside.left);
    amount.Line.Draw(dc, inside.right - amount.RightMargin - amount.Line.Width(), inside.top, &room);
}

HBRUSH TextBox::Colors(HDC dc)
{
    SetTextColor(dc, ResolvedColor(foreColor_));
    SetBkColor(dc, ResolvedColor(backColor_));
    // Made anew each time: what a system colour stands for may have changed.
    background_ = GdiObject<HBRUSH>(CreateSolidBrush(ResolvedColor(backColor_)));
    return background_.Get();
}

// Any program can send one, and the box would measure it character by character each time it is painted.
bool TextBox::IsTooLong(const char* text, std::size_t beside) const
{
    const std::size_t room = MostCharacters - std::min(beside, MostCharacters);
    return text && !std::memchr(text, '\0', room + 1);
}

bool TextBox::Received(UINT message, WPARAM wParam, LPARAM lParam)
{
    // What is not the user's is not for the user to take back.
    setFromOutside_ = message == WM_SETTEXT;
    const auto* const text = reinterpret_cast<const char*>(lParam);
    if (message == WM_SETFONT)
        lineHeight_ = 0;
    if (message == WM_SETTEXT)
        return IsTooLong(text, 0);
    if (message == EM_REPLACESEL)
        return IsTooLong(text, static_cast<std::size_t>(Length() - Selected().Length));
    if (message == WM_KEYDOWN)
    {
        // Wine's box pastes and cuts for these keys without the messages that a control hears of it by.
        const UINT meant = ClipboardMessageOf(wParam);
        if (meant != 0)
            SendMessageA(hWnd(), meant, 0, 0);
        return meant != 0;
    }
    if (message == WM_LBUTTONUP)
        Call(OnClick);
    return false;
}

} // namespace kiv
