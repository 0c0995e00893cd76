#pragma once

#include "controls/masked/OvertypeEditor.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

// The styles as NumberBox publishes them. A host may store any other number.
enum class NumberFormat : std::int32_t
{
    SSN = 0,
    FederalId = 1,
    Routing = 2,
    Custom = 3
};

// The rules of NumberBox that need no window: a style, and what follows from it.
class NumberRules
{
public:
    // A Social Security number.
    NumberRules() { SetStyle(NumberFormat::SSN); }

    NumberFormat Style() const { return style_; }
    // The box's text is then to be set to Mask(). A number that names no style is kept, while mask, box and
    // length stay those of the style before; such a style is as good as unmasked, its keys go to the box.
    void SetStyle(NumberFormat style);

    // Whether the box for routing numbers is the one in use.
    bool UsesRoutingBox() const { return usesRoutingBox_; }

    // The blank entry: underscores and dashes, or empty where digits are typed freely.
    std::wstring_view Mask() const { return mask_; }

    // The most characters of the number box, 0 for no limit. The routing box has RoutingLength.
    int MaxLength() const { return maxLength_; }
    // False, and nothing done, unless the style is Custom.
    bool SetMaxLength(int characters);
    static constexpr int RoutingLength = 9;

    // Whether a text is what the style asks for. Blank entries are.
    bool IsComplete(std::wstring_view text) const;

    // What the properties read from the box's text.
    std::wstring Text(std::wstring_view boxText) const;
    std::optional<std::wstring> Value(std::wstring_view boxText) const;

    // The box's new text for a value assigned by the host as text (empty for Null); none if it is refused.
    std::optional<std::wstring> Assigned(std::wstring_view value) const;

    // The box's new text for text from the clipboard; none if the box stays as it is.
    std::optional<std::wstring> Pasted(std::wstring_view clipboard) const;

    // What the style asks for, in words for those who cannot see the mask.
    std::wstring Meaning() const;

    // What to tell the user about the box's text; none if it is valid.
    std::optional<std::wstring> Complaint(std::wstring_view boxText) const;

    KeyOutcome KeyPress(const BoxState& box, short keyAscii) const;
    KeyOutcome KeyDown(const BoxState& box, short keyCode) const;

private:
    bool IsMasked() const { return style_ == NumberFormat::SSN || style_ == NumberFormat::FederalId; }
    bool FillsMask(std::wstring_view text) const;
    OvertypeTemplate Places() const { return {.Blank = mask_, .Separator = L'-'}; }

    NumberFormat style_ = NumberFormat::SSN;
    // Set with the first style.
    std::wstring_view mask_;
    int maxLength_;
    bool usesRoutingBox_;
};

} // namespace kiv
