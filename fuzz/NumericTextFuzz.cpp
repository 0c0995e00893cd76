#include "runtime/core/NumericText.h"
#include "runtime/core/PlainText.h"
#include "runtime/core/Val.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace
{

void Check(bool holds)
{
    if (!holds)
        std::abort();
}

void CheckCurrency(const kiv::Decimal& number, const kiv::NumberLocale& locale)
{
    const auto amount = kiv::Currency::From(number);
    if (!amount)
        return;
    // Not more than half a unit off, and its text reads back as it is.
    const kiv::Decimal off = (number - amount->ToDecimal()).Absolute();
    Check(off <= kiv::Decimal(false, "5", -4));
    const auto again = kiv::ParseNumber(kiv::PlainText(*amount, locale), locale);
    Check(again && kiv::Currency::From(*again) == amount);
}

void CheckNumber(std::wstring_view text, const kiv::NumberLocale& locale)
{
    const auto number = kiv::ParseNumber(text, locale);
    if (!number)
        return;
    CheckCurrency(*number, locale);
    // Fifteen digits are as near as a text of a double comes; the shortest digits are the double itself.
    const double binary = number->ToDouble();
    Check(kiv::Decimal::FromDouble(binary)->ToDouble() == binary);
    Check(kiv::ParseNumber(kiv::PlainText(binary, locale), locale).has_value() || binary > 1e308 ||
          binary < -1e308);
}

// Plain decimal numbers mean the same to both readers, whatever follows them for Val.
void CheckVal(const std::wstring& text)
{
    kiv::ExactVal(text);
    if (text.empty() || text.find_first_not_of(L"0123456789.") != std::wstring::npos)
        return;
    const auto number = kiv::ParseNumber(text, {});
    if (!number)
        return;
    const bool tooSmall = number->IsZero();
    Check(tooSmall || kiv::ExactVal(text) == *number);
    Check(tooSmall || kiv::ExactVal(text + L",000") == *number);
}

} // namespace

// A text of one byte a character: as it is, and with a few characters of other alphabets.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::wstring text;
    for (std::size_t i = 0; i < size; ++i)
        text.push_back(data[i] == 0xFF ? L'\u202F' : static_cast<wchar_t>(data[i]));
    CheckVal(text);
    for (const kiv::NumberLocale& locale : {kiv::NumberLocale{}, kiv::NumberLocale{L',', L'.', L"\u20AC"},
                                            kiv::NumberLocale{L',', L'\u202F', L"kr."}})
        CheckNumber(text, locale);
    if (size >= sizeof(double))
    {
        double number = 0;
        std::memcpy(&number, data, sizeof number);
        const auto decimal = kiv::Decimal::FromDouble(number);
        Check(!decimal || decimal->ToDouble() == number);
        kiv::PlainText(number, {});
        kiv::PlainText(static_cast<float>(data[0]) / 7, {});
    }
    return 0;
}
