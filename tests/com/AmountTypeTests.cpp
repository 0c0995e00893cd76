// CurrencyBox and PercentBox in the type library, member by member.

#include "tests/com/PublishedClasses.h"
#include "tests/com/TypeLibraryTest.h"

namespace kiv::test
{

namespace
{

using Members = std::vector<std::wstring>;

TEST_F(TypeLibraryTest, DescribesTheMembersOfCurrencyBox)
{
    EXPECT_EQ(OwnMembers(InfoOf(Id(0x3E649250)).Get()),
              (Members{
                  L"get 1 AllowRounding() VARIANT_BOOL",
                  L"put 1 AllowRounding(in VARIANT_BOOL) void",
                  L"get -501 BackColor() OLE_COLOR",
                  L"put -501 BackColor(in OLE_COLOR) void",
                  L"get -513 ForeColor() OLE_COLOR",
                  L"put -513 ForeColor(in OLE_COLOR) void",
                  L"get -514 Enabled() VARIANT_BOOL",
                  L"put -514 Enabled(in VARIANT_BOOL) void",
                  L"get -512 Font() IFontDisp*",
                  L"putref -512 Font(in IFontDisp*) void",
                  L"get -515 hwnd() long",
                  L"get 2 NumDecDigits() short",
                  L"put 2 NumDecDigits(in short) void",
                  L"get 3 NumIntDigits() short",
                  L"put 3 NumIntDigits(in short) void",
                  L"get 4 MaxValue() CURRENCY",
                  L"put 4 MaxValue(in CURRENCY) void",
                  L"get 5 MinValue() CURRENCY",
                  L"put 5 MinValue(in CURRENCY) void",
                  L"get 6 Text() BSTR",
                  L"get 0 Value() VARIANT bindable displaybind defaultbind",
                  L"put 0 Value(in VARIANT) void bindable displaybind defaultbind",
                  L"method 7 IsValidInput(in out optional =False VARIANT_BOOL* ShowMessage) VARIANT_BOOL",
              }));
    EXPECT_EQ(OwnMembers(InfoOf(Id(0x3E649252)).Get()),
              (Members{
                  L"method 1 Change() void",
                  L"method 2 Click() void",
                  L"method 3 KeyUp(in out short* KeyCode, in out short* Shift) void",
                  L"method 4 KeyPress(in out short* KeyAscii) void",
                  L"method 5 KeyDown(in out short* KeyCode, in out short* Shift) void",
              }));
}

TEST_F(TypeLibraryTest, DescribesTheMembersOfPercentBox)
{
    EXPECT_EQ(OwnMembers(InfoOf(Id(0x3E649249)).Get()),
              (Members{
                  L"get -501 BackColor() OLE_COLOR",
                  L"put -501 BackColor(in OLE_COLOR) void",
                  L"get -513 ForeColor() OLE_COLOR",
                  L"put -513 ForeColor(in OLE_COLOR) void",
                  L"get -514 Enabled() VARIANT_BOOL",
                  L"put -514 Enabled(in VARIANT_BOOL) void",
                  L"get -512 Font() IFontDisp*",
                  L"putref -512 Font(in IFontDisp*) void",
                  L"get 1 Complement() VARIANT_BOOL",
                  L"put 1 Complement(in VARIANT_BOOL) void",
                  L"get 2 DisplayPercent() VARIANT_BOOL",
                  L"put 2 DisplayPercent(in VARIANT_BOOL) void",
                  L"get 3 MaxDigits() short",
                  L"put 3 MaxDigits(in short) void",
                  L"get 4 MaxDecimals() short",
                  L"put 4 MaxDecimals(in short) void",
                  L"get 5 MaxValue() float",
                  L"put 5 MaxValue(in float) void",
                  L"get 6 MinValue() float",
                  L"put 6 MinValue(in float) void",
                  L"get 7 Text() BSTR",
                  L"get 0 Value() VARIANT bindable displaybind defaultbind",
                  L"put 0 Value(in VARIANT) void bindable displaybind defaultbind",
                  L"method 8 IsValidInput(in out optional =False VARIANT_BOOL* ShowMessage) VARIANT_BOOL",
              }));
    EXPECT_EQ(OwnMembers(InfoOf(Id(0x3E64924B)).Get()),
              (Members{
                  L"method 1 Change() void",
                  L"method 2 KeyPress(in out short* KeyAscii) void",
                  L"method 3 KeyDown(in out short* KeyCode, in out short* Shift) void",
                  L"method 4 KeyUp(in out short* KeyCode, in out short* Shift) void",
              }));
}

} // namespace

} // namespace kiv::test
