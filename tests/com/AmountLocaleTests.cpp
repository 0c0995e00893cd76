// Currency and percent boxes follow the user's way of writing numbers, also when it changes under them.

#include "tests/com/AmountControl.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/TestErrorLog.h"
#include "tests/support/TestPropertyBag.h"
#include "tests/support/Text.h"

#include <ocidl.h>

namespace kiv::test
{

namespace
{

// One of the user's settings, changed for as long as this lives.
class UserSetting
{
public:
    UserSetting(LCTYPE type, const wchar_t* value) : type_(type)
    {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, type_, before_, ARRAYSIZE(before_));
        EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, type_, value));
    }
    UserSetting(const UserSetting&) = delete;
    UserSetting& operator=(const UserSetting&) = delete;
    ~UserSetting() { SetLocaleInfoW(LOCALE_USER_DEFAULT, type_, before_); }

private:
    LCTYPE type_;
    wchar_t before_[16] = {};
};

// Points between the groups and a comma before the decimals.
class CommaSettings
{
private:
    UserSetting point_{LOCALE_SDECIMAL, L","};
    UserSetting separator_{LOCALE_STHOUSAND, L"."};
    UserSetting symbol_{LOCALE_SCURRENCY, L"\u20AC"};
};

using AmountLocaleTest = LibraryTest;

LONGLONG Units(const AmountControl& control)
{
    const Variant amount = control.Property(L"Value");
    return amount.Type() == VT_CY ? V_CY(&amount.Get()).int64 : -1;
}

TEST_F(AmountLocaleTest, CurrencyIsWrittenAndReadTheUsersWay)
{
    const AmountControl control(CLSID_CurrencyBox);
    control.InitNew();
    control.Put(L"AllowRounding", Variant(false));
    {
        const CommaSettings settings;
        control.Put(L"Value", Variant(1234.5));
        EXPECT_EQ(control.Entry(), L"1234,50");
        EXPECT_EQ(control.Property(L"Text").Text(), L"1.234,50");
        EXPECT_EQ(Units(control), 12'345'000);
        for (const wchar_t* text : {L"1.234,5", L"1234,5", L"1234,5 \u20AC"})
        {
            control.Put(L"Value", Variant::Null());
            control.Put(L"Value", Variant(text));
            EXPECT_EQ(Units(control), 12'345'000) << Narrow(text);
        }
        control.Put(L"Value", Money(999'999'999'999'999'900));
        EXPECT_EQ(Units(control), 999'999'999'999'999'900);
        control.Enter(L",");
        EXPECT_EQ(control.Shown(L"Value"), "VT 1");
        control.Enter(L"1234,50");
    }
    EXPECT_EQ(Units(control), 1'234'500'000) << "now the comma separates groups";
    EXPECT_EQ(control.Property(L"Text").Text(), L"123,450");
    control.Put(L"Value", Variant(1234.5));
    EXPECT_EQ(control.Property(L"Text").Text(), L"1,234.50");
}

TEST_F(AmountLocaleTest, PercentIsWrittenAndReadTheUsersWay)
{
    const AmountControl control(CLSID_PercentBox);
    control.InitNew();
    {
        const CommaSettings settings;
        control.Put(L"Value", Variant(0.075));
        EXPECT_EQ(control.Entry(), L"7,5");
        EXPECT_EQ(control.Shown(L"Value"), "VT 8 \"0,075\"");
        control.Put(L"Value", Variant(L"0,25"));
        EXPECT_EQ(control.Entry(), L"25,");
    }
    control.Put(L"Value", Variant(0.075));
    EXPECT_EQ(control.Entry(), L"7.5");
    EXPECT_EQ(control.Shown(L"Value"), "VT 8 \"0.075\"");
}

// A bound that a form file holds as text.
TEST_F(AmountLocaleTest, StoredTextsAreReadTheUsersWay)
{
    const CommaSettings settings;
    const auto bag = MakeCom<TestPropertyBag>();
    const auto log = MakeCom<TestErrorLog>();
    bag->Put(L"MaxValue", Variant(L"99.999.999.999.999,9999"));
    const AmountControl control(CLSID_CurrencyBox);
    EXPECT_EQ(Hr(control.Query<IPersistPropertyBag>()->Load(bag.Get(), log.Get())), Hr(S_OK));
    EXPECT_EQ(V_CY(&control.Property(L"MaxValue").Get()).int64, 999'999'999'999'999'999);
    EXPECT_EQ(log->Entries().size(), 0U);
}

} // namespace

} // namespace kiv::test
