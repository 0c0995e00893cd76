#pragma once

#include "runtime/constituents/Constituent.h"
#include "runtime/drawing/Gdi.h"

#include <olectl.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// How a text box looks. Without a border it has a pixel of air at either side.
struct TextBoxLook
{
    bool HasBorder = true;    // a sunken one
    bool IsVisible = true;    // from the beginning
    bool AlignsRight = false; // for amounts: the font's furthest reach stays free at the right
};

// A constituent single-line text box: a real EDIT.
class TextBox final : public Constituent
{
public:
    TextBox(ConstituentOwner& owner, HWND parent, TextBoxLook look = {});

    // Events.
    std::function<void()> OnChange;
    std::function<void()> OnClick;

    std::wstring Text() const;
    // Sets the whole text: the caret is at its start then, and the start in view. A text that the box already
    // holds changes nothing; any other raises OnChange.
    void Text(std::wstring_view text);
    // The same for what a key makes of the text: only the places that differ are drawn again, and the caret
    // is behind them.
    void Amend(std::wstring_view text);

    // As Text, for a change that the user has made: it can be taken back.
    void Replace(std::wstring_view text);
    // What a change that the user has made by other ways took the place of.
    void CanBecome(std::wstring former) { former_ = std::move(former); }
    // Takes the user's last change back, which can then be taken back itself; nothing where somebody else has
    // set the text since. Raises OnChange.
    void Undo();

    // In characters from 0.
    struct Selection
    {
        int Start = 0;
        int Length = 0;

        bool operator==(const Selection&) const = default;
    };
    Selection Selected() const;
    void Select(int start, int length);
    // The same where something else is selected: to select takes the box much longer than to tell what is.
    void SelectAnew(Selection wanted);
    void SelectAll() { Select(0, Length()); }
    // Puts the caret at the start, and that in view.
    void Home();
    std::wstring SelText() const;
    // Puts a text in the place of the selection, the caret behind it. Raises OnChange.
    void SelText(std::wstring_view text);
    int Length() const;
    // As many as the system's own box lets be typed. A longer text is refused with error 380, one that is
    // sent with a message without effect.
    static constexpr std::size_t MostCharacters = 32767;

    // The most characters that can be typed; 0 for no limit.
    short MaxLength() const { return maxLength_; }
    void MaxLength(short characters);

    OLE_COLOR BackColor() const { return backColor_; }
    void BackColor(OLE_COLOR color);
    OLE_COLOR ForeColor() const { return foreColor_; }
    void ForeColor(OLE_COLOR color);

    // Pixels of the surface. The box is never lower than one line of its font needs.
    void Move(int left, int top, int width, int height);
    int LeastHeight() const;

    void Font(HFONT font) override;
    void Notified(WORD code) override;
    void Draw(HDC dc, const RECT& place) const override;
    HBRUSH Colors(HDC dc) override;

protected:
    bool Received(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool IsTooLong(const char* text, std::size_t beside) const;
    void ReplaceDifference(std::wstring_view current, std::wstring_view text, std::string ansi);

    const TextBoxLook look_;
    short maxLength_ = 0;
    mutable int lineHeight_ = 0;         // 0 until it is asked for
    std::wstring toldText_;              // as OnChange last told it
    bool setFromOutside_ = false;        // by a message that is being handled
    std::optional<std::wstring> former_; // the text before the user's last change
    OLE_COLOR backColor_;
    OLE_COLOR foreColor_;
    GdiObject<HBRUSH> background_;
};

} // namespace kiv
