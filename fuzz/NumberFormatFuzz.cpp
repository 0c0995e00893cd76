#include "runtime/core/NumberFormat.h"
#include "runtime/core/NumericText.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace
{

std::wstring Widened(std::string_view text)
{
    std::wstring wide;
    for (const char character : text)
        wide.push_back(static_cast<unsigned char>(character));
    return wide;
}

int CountPlaces(std::wstring_view text)
{
    return static_cast<int>(std::ranges::count_if(text, [](wchar_t c) { return c == L'0' || c == L'#'; }));
}

// What a pattern of 0 # . , alone shows of a number, read in another way than Format reads patterns.
kiv::Decimal Shown(const kiv::Decimal& number, const std::wstring& pattern)
{
    const std::size_t point = std::min(pattern.find(L'.'), pattern.size());
    const std::wstring whole = pattern.substr(0, point);
    int thousandths = 0;
    if (CountPlaces(whole) != 0)
        thousandths = static_cast<int>(whole.size() - whole.find_last_not_of(L',') - 1);
    const int decimals = CountPlaces(pattern.substr(point));
    return number.Shifted(-3 * thousandths).Rounded(decimals, kiv::Halves::AwayFromZero);
}

} // namespace

// A pattern, a line end and a number: laid out and read again, the number is what the pattern shows of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::wstring input = Widened({reinterpret_cast<const char*>(data), size});
    const std::size_t lineEnd = std::min(input.find(L'\n'), input.size());
    const std::wstring pattern = input.substr(0, lineEnd);
    const auto number = kiv::ParseNumber(std::wstring_view(input).substr(lineEnd), {});
    if (!number)
        return 0;
    for (const kiv::NumberLocale& locale :
         {kiv::NumberLocale{}, kiv::NumberLocale{L',', L'.', L""}, kiv::NumberLocale{L'.', L'\0', L""}})
    {
        const std::wstring text = kiv::Format(*number, pattern, locale);
        if (pattern.find_first_not_of(L"0#.,") != std::wstring::npos || CountPlaces(pattern) == 0)
            continue;
        const kiv::Decimal shown = Shown(*number, pattern);
        // A number that its pattern makes too small or too large for reading is not read.
        if (shown.ToDouble() == 0.0 && !shown.IsZero())
            continue;
        // Of zero a pattern without a 0 shows no digit, which reads as none.
        if (kiv::ParseNumber(text, locale).value_or(kiv::Decimal()) != shown)
            std::abort();
    }
    return 0;
}
