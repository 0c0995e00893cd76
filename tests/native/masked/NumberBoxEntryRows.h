#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kiv::test
{

// Styles: 0 SSN, 1 Federal ID, 2 Routing #, 3 Custom; what is not told of MaxLength counts for Custom only.

inline const std::wstring IncompleteNumberMessage = L"Please enter all digits in this field.";
inline const std::wstring RoutingNumberMessage = L"Please enter a valid RTN.\nA valid RTN is a nine digit "
                                                 L"number in which the first two digits are 01 through "
                                                 L"12 or 21 through 32.";

// What the box holds, and what the properties make of it.
struct NumberEntryRow
{
    const char* Name;
    int Style;
    int MaxLength;
    std::wstring BoxText;
    std::wstring Text;
    // None is Null.
    std::optional<std::wstring> Value;
    // Empty if the entry is valid.
    std::wstring Message;
};

inline const std::vector<NumberEntryRow> NumberEntryRows = {
    {"BlankSSN", 0, 0, L"___-__-____", L"", {}, L""},
    {"WholeSSN", 0, 0, L"123-45-6789", L"123-45-6789", L"123-45-6789", L""},
    {"HalfAnSSN", 0, 0, L"123-4_-____", L"123-4 -", {}, IncompleteNumberMessage},
    {"SSNWithoutItsFirstDigit", 0, 0, L"_23-45-6789", L"23-45-6789", {}, IncompleteNumberMessage},
    {"SSNWithoutItsLastDigit", 0, 0, L"123-45-678_", L"123-45-678", {}, IncompleteNumberMessage},
    {"SSNWithoutItsMiddle", 0, 0, L"123-__-6789", L"123-  -6789", {}, IncompleteNumberMessage},
    {"SSNOfZeros", 0, 0, L"000-00-0000", L"000-00-0000", L"000-00-0000", L""},
    {"BlankFederalId", 1, 0, L"__-_______", L"", {}, L""},
    {"WholeFederalId", 1, 0, L"12-3456789", L"12-3456789", L"12-3456789", L""},
    {"HalfAFederalId", 1, 0, L"12-34_____", L"12-34", {}, IncompleteNumberMessage},
    {"EmptyRouting", 2, 0, L"", L"", {}, L""},
    {"Routing01", 2, 0, L"011000015", L"011000015", L"011000015", L""},
    {"Routing12", 2, 0, L"121000015", L"121000015", L"121000015", L""},
    {"Routing21", 2, 0, L"211000015", L"211000015", L"211000015", L""},
    {"Routing32", 2, 0, L"321000015", L"321000015", L"321000015", L""},
    {"Routing00", 2, 0, L"001000015", L"001000015", {}, RoutingNumberMessage},
    {"Routing13", 2, 0, L"131000015", L"131000015", {}, RoutingNumberMessage},
    {"Routing20", 2, 0, L"201000015", L"201000015", {}, RoutingNumberMessage},
    {"Routing33", 2, 0, L"331000015", L"331000015", {}, RoutingNumberMessage},
    {"RoutingOfEightDigits", 2, 0, L"01100001", L"01100001", {}, RoutingNumberMessage},
    {"RoutingOfOneDigit", 2, 0, L"0", L"0", {}, RoutingNumberMessage},
    {"EmptyCustom", 3, 4, L"", L"", {}, L""},
    {"ShortCustom", 3, 4, L"12", L"12", L"12", L""},
    {"FullCustom", 3, 4, L"1234", L"1234", L"1234", L""},
    {"CustomWithLeadingZeros", 3, 4, L"0007", L"0007", L"0007", L""},
    {"CustomWithoutLimit", 3, 0, L"123456789012345678901234567890", L"123456789012345678901234567890",
     L"123456789012345678901234567890", L""},
};

// What the host assigns as Value or Text, to a box that shows Before; refused is run-time error 380.
struct NumberAssignmentRow
{
    const char* Name;
    int Style;
    int MaxLength;
    // Empty for Null as well.
    std::wstring Assigned;
    bool Refused;
    // What the box shows if it is not refused; otherwise it shows what it did.
    std::wstring After = {};
};

inline const std::vector<NumberAssignmentRow> NumberAssignmentRows = {
    {"SSN", 0, 0, L"123-45-6789", false, L"123-45-6789"},
    {"NothingToAnSSN", 0, 0, L"", false, L"___-__-____"},
    {"BlankSSN", 0, 0, L"___-__-____", false, L"___-__-____"},
    {"SSNWithoutDashes", 0, 0, L"123456789", true},
    {"HalfAnSSN", 0, 0, L"123-4_-____", true},
    {"SSNTooShort", 0, 0, L"123-45-678", true},
    {"SSNTooLong", 0, 0, L"123-45-67890", true},
    {"SSNWithSlashes", 0, 0, L"123/45/6789", true},
    {"SSNWithADashTooMany", 0, 0, L"123-45--789", true},
    {"SSNWithLetters", 0, 0, L"123-45-678O", true},
    {"SSNWithBlanks", 0, 0, L" 123-45-6789", true},
    {"FederalIdInSSNStyle", 0, 0, L"12-3456789", true},
    {"SSNOfForeignDigits", 0, 0, L"١٢٣-٤٥-٦٧٨٩", true},
    {"FederalId", 1, 0, L"12-3456789", false, L"12-3456789"},
    {"SSNInFederalStyle", 1, 0, L"123-45-6789", true},
    {"NothingToAFederalId", 1, 0, L"", false, L"__-_______"},
    {"Routing", 2, 0, L"011000015", false, L"011000015"},
    {"NothingToARouting", 2, 0, L"", false, L""},
    {"RoutingOfTenDigits", 2, 0, L"0110000155", true},
    {"RoutingOutsideTheDistricts", 2, 0, L"131000015", true},
    {"RoutingWithALetter", 2, 0, L"01100001x", true},
    {"Custom", 3, 4, L"12", false, L"12"},
    {"NothingToACustom", 3, 4, L"", false, L""},
    {"CustomTooLong", 3, 4, L"12345", true},
    {"CustomNegative", 3, 4, L"-1", true},
    {"CustomWithAPoint", 3, 4, L"1.5", true},
};

// Pasting, to a box that shows something complete. Cutting and clearing always leave the mask.
struct NumberPasteRow
{
    const char* Name;
    int Style;
    int MaxLength;
    std::wstring Clipboard;
    // None if the paste is ignored.
    std::optional<std::wstring> After;
};

inline const std::vector<NumberPasteRow> NumberPasteRows = {
    {"SSN", 0, 0, L"123-45-6789", L"123-45-6789"},
    {"BlankSSN", 0, 0, L"___-__-____", L"___-__-____"},
    {"SSNWithoutDashes", 0, 0, L"123456789", {}},
    {"PartOfAnSSN", 0, 0, L"45", {}},
    {"SSNWithALineEnd", 0, 0, L"123-45-6789\r\n", {}},
    {"Nothing", 0, 0, L"", {}},
    {"Letters", 0, 0, L"abc", {}},
    {"NotAscii", 0, 0, L"Größe–日本", {}},
    {"SSNLongerThanTheBox", 0, 0, L"123-45-6789 and more", {}},
    {"FederalId", 1, 0, L"12-3456789", L"12-3456789"},
    {"Routing", 2, 0, L"211000015", L"211000015"},
    {"RoutingOutsideTheDistricts", 2, 0, L"131000015", {}},
    {"RoutingTooShort", 2, 0, L"01100001", {}},
    {"NothingInARouting", 2, 0, L"", {}},
    {"Custom", 3, 4, L"12", L"12"},
    {"CustomTooLong", 3, 4, L"12345", {}},
    {"CustomWithBlanks", 3, 4, L" 12", {}},
    {"CustomWithALineEnd", 3, 4, L"12\n", {}},
    {"NothingInACustom", 3, 4, L"", {}},
};

} // namespace kiv::test
