#include "controls/masked/OvertypeEditor.h"

#include "runtime/core/Digits.h"

#include <algorithm>

namespace kiv
{

namespace
{

// One key at work on a box.
class Overtyping
{
public:
    Overtyping(const OvertypeTemplate& places, const BoxState& box) :
        places_(places),
        shown_(box.Text),
        text_(box.Text),
        caret_(std::min(Place(box.SelStart), box.Text.size())),
        selected_(std::min(Place(box.SelLength), box.Text.size() - caret_))
    {
        text_ += places_.Blank.substr(std::min(text_.size(), places_.Blank.size()));
    }

    void Type(wchar_t character)
    {
        RestoreSelection();
        if (IsSeparator(caret_))
            ++caret_;
        if (IsOpen(caret_))
            Put(caret_++, character);
    }

    void MovePastSeparator()
    {
        const std::size_t separator = places_.Blank.find(places_.Separator, caret_);
        caret_ = separator == places_.Blank.npos ? places_.Blank.size() : separator + 1;
    }

    void EraseBefore()
    {
        if (RestoreSelection() || caret_ == 0)
            return;
        --caret_;
        Restore(caret_, 1);
    }

    void EraseAfter()
    {
        RestoreSelection();
        // In front of a separator, which never comes first, the digit before it goes, not the one after it:
        // deliberate, so that Delete does something at every place of an entry.
        if (IsSeparator(caret_))
            --caret_;
        if (IsOpen(caret_))
            Put(caret_, BlankPlace);
    }

    KeyOutcome Outcome() const
    {
        return {{shown_, static_cast<int>(std::min(caret_, shown_.size())), 0}, edits_, false};
    }

private:
    static std::size_t Place(int place) { return static_cast<std::size_t>(std::max(place, 0)); }

    // What the template has at a place; past its end it has neither.
    bool IsSeparator(std::size_t place) const { return Is(place, places_.Separator); }
    bool IsOpen(std::size_t place) const { return Is(place, BlankPlace); }
    bool Is(std::size_t place, wchar_t character) const
    {
        return places_.Blank.substr(std::min(place, places_.Blank.size())).starts_with(character);
    }

    // The selected characters turn back into the template's, and the caret stands before them. False if
    // nothing was selected.
    bool RestoreSelection()
    {
        if (selected_ == 0)
            return false;
        Restore(caret_, selected_);
        return true;
    }

    void Restore(std::size_t place, std::size_t length)
    {
        text_.replace(place, length, places_.Blank.substr(std::min(place, places_.Blank.size()), length));
        Show();
    }

    void Put(std::size_t place, wchar_t character)
    {
        text_[place] = character;
        Show();
    }

    void Show()
    {
        if (text_ == shown_)
            return;
        shown_ = text_;
        edits_.push_back(text_);
    }

    const OvertypeTemplate& places_;
    std::wstring shown_;
    // What the box will show: what it shows, completed from the template.
    std::wstring text_;
    std::size_t caret_;
    const std::size_t selected_;
    std::vector<std::wstring> edits_;
};

} // namespace

KeyOutcome OvertypeCharacter(const OvertypeTemplate& places, const BoxState& box, short keyAscii)
{
    if (IsClipboardKey(keyAscii))
        return PassOn(box);
    // Neither a key that was cancelled nor one that no character of a template can equal.
    if (keyAscii <= 0)
        return Swallow(box);

    const auto character = static_cast<wchar_t>(keyAscii);
    Overtyping overtyping(places, box);
    if (IsDigit(character))
        overtyping.Type(character);
    else if (character == places.ClearingKey)
        overtyping.Type(BlankPlace);
    else if (character == places.JumpKey)
        overtyping.MovePastSeparator();
    else if (keyAscii == Backspace)
        overtyping.EraseBefore();
    else
        return Swallow(box);
    return overtyping.Outcome();
}

KeyOutcome OvertypeDelete(const OvertypeTemplate& places, const BoxState& box)
{
    Overtyping overtyping(places, box);
    overtyping.EraseAfter();
    return overtyping.Outcome();
}

} // namespace kiv
