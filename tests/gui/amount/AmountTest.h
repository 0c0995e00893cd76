#pragma once

#include "runtime/core/NumberLocale.h"
#include "tests/gui/HostedBox.h"
#include "tests/gui/HostedTest.h"
#include "tests/native/amount/AmountRow.h"
#include "tests/native/core/NumberLocales.h"
#include "tests/support/Pixels.h"
#include "tests/support/UserLocale.h"

namespace kiv::test
{

// Base of the tests that answer currency and percent boxes with real keys. The user writes numbers as in
// English, whoever runs the tests; rows are proved in German as well, on the same control.
class AmountTest : public HostedTest
{
protected:
    HostedBox AddCurrencyBox(host::SiteOptions options = Placed());
    HostedBox AddPercentBox(host::SiteOptions options = Placed());
    // On a form that is shown, with the focus; a button, for the focus to be elsewhere, comes after it.
    HostedBox ShownCurrencyBox();
    HostedBox ShownPercentBox();

    // The form, with a button for the focus to be on.
    void ShowWithFocusElsewhere();

    // The focus goes from the box to the button behind it, or comes back.
    void Leave(const HostedBox& box);
    void Enter(const HostedBox& box);

    // A row's counts and bounds. Either of the counts resets the range.
    static void SetDigits(const HostedBox& box, std::int16_t integer, std::int16_t decimal);
    static void SetRange(const HostedBox& box, std::int64_t minimum, std::int64_t maximum);
    static void SetUp(const HostedBox& box, const PercentSettings& settings);

    // The text box lies in the control, or out of sight below it.
    static bool IsInView(const HostedBox& box);
    static bool IsParked(const HostedBox& box);
    static SIZE Inside(const HostedBox& box);
    // The control's inside as it is drawn on what is not its window.
    static Pixels DrawnElsewhere(const HostedBox& box);
    // What the control shows while the text box is parked: the label with this text and nothing else.
    static void ExpectLabel(const HostedBox& box, const std::wstring& text);

    // In a locale, as the user's settings: what a row's texts become there.
    template<class Rows, class Expect>
    static void ExpectRows(const Rows& rows, const Expect& expect)
    {
        for (const NumberLocale& locale : NumberLocales)
        {
            const UserLocale user(locale);
            for (const auto& row : rows)
            {
                SCOPED_TRACE(std::string(row.Name) + " with " +
                             (locale.DecimalPoint == L'.' ? "point" : "comma"));
                expect(row, locale);
            }
        }
    }

private:
    UserLocale english_{NumberLocales.front()};
};

// The look that a row's text draws: "1[23]4" with "23" selected, "1|2" with the caret between, else at the
// end.
BoxLook LookOf(std::wstring_view drawn);

// Null for no text.
Variant TextOrNull(const wchar_t* text, const NumberLocale& locale);

} // namespace kiv::test
