// Late binding with mistakes in it: unknown names, wrong arguments, and anything at all.

#include "tests/com/DispatchTest.h"
#include "tests/support/MessageBoxWatcher.h"
#include "tests/support/TestFont.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <ostream>
#include <random>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

TEST_F(DispatchTest, KnowsNoOtherNames)
{
    for (const wchar_t* name :
         {L"", L"Caption", L"Valu", L"Value ", L"_YesNo", L"Yes", L"WndProc", L"Click", L"Name"})
        EXPECT_EQ(Hr(GetByName(control_.Get(), name).Result), Hr(DISP_E_UNKNOWNNAME)) << Narrow(name);
    EXPECT_EQ(IdOfName(control_.Get(), L"Caption"), DISPID_UNKNOWN);
}

struct WrongCall
{
    const char* What;
    DISPID Member;
    WORD Flags;
    std::vector<Variant> Arguments;
    HRESULT Result;

    friend std::ostream& operator<<(std::ostream& out, const WrongCall& row) { return out << row.What; }
};

class WrongCallTest : public DispatchTest, public testing::WithParamInterface<WrongCall>
{
};

TEST_P(WrongCallTest, IsRefused)
{
    const CallOutcome outcome =
        Invoke(control_.Get(), GetParam().Member, GetParam().Flags, GetParam().Arguments);
    EXPECT_EQ(Hr(outcome.Result), Hr(GetParam().Result));
    EXPECT_EQ(Read(L"Value"), "VT 3 0");
    EXPECT_EQ(Read(L"Enabled"), "VT 11 True");
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongCallTest,
    testing::Values(
        WrongCall{"UnknownMember", 4711, DISPATCH_PROPERTYGET, {}, DISP_E_MEMBERNOTFOUND},
        WrongCall{"UnknownMethod", DISPID_NEWENUM, DISPATCH_METHOD, {}, DISP_E_MEMBERNOTFOUND},
        WrongCall{"PutOfReadOnlyProperty", -515, DISPATCH_PROPERTYPUT, {Variant(1L)}, DISP_E_MEMBERNOTFOUND},
        WrongCall{"PutOfFontByValue", -512, DISPATCH_PROPERTYPUT, {Variant(1L)}, DISP_E_MEMBERNOTFOUND},
        WrongCall{"PutrefOfValue", 0, DISPATCH_PROPERTYPUTREF, {Variant(1L)}, DISP_E_MEMBERNOTFOUND},
        WrongCall{"PropertyAsMethod", 1, DISPATCH_METHOD, {}, DISP_E_MEMBERNOTFOUND},
        WrongCall{"MethodAsProperty", 4, DISPATCH_PROPERTYGET, {}, DISP_E_MEMBERNOTFOUND},
        WrongCall{"PutWithoutValue", 0, DISPATCH_PROPERTYPUT, {}, DISP_E_BADPARAMCOUNT},
        WrongCall{"GetWithAnArgument", 0, DISPATCH_PROPERTYGET, {Variant(1L)}, DISP_E_BADPARAMCOUNT},
        WrongCall{"MethodWithTooMany", 4, DISPATCH_METHOD, {Variant(1L), Variant(2L)}, DISP_E_BADPARAMCOUNT},
        WrongCall{"WordsAsValue", 0, DISPATCH_PROPERTYPUT, {Variant(L"Yes")}, DISP_E_TYPEMISMATCH},
        WrongCall{"NullAsValue", 0, DISPATCH_PROPERTYPUT, {Variant::Null()}, DISP_E_TYPEMISMATCH},
        WrongCall{"TooLargeAsValue", 0, DISPATCH_PROPERTYPUT, {Variant(3e9)}, DISP_E_OVERFLOW},
        WrongCall{"WordsAsEnabled", -514, DISPATCH_PROPERTYPUT, {Variant(L"perhaps")}, DISP_E_TYPEMISMATCH},
        WrongCall{"NullAsColour", -501, DISPATCH_PROPERTYPUT, {Variant::Null()}, DISP_E_TYPEMISMATCH},
        WrongCall{"NullAsYesText", 1, DISPATCH_PROPERTYPUT, {Variant::Null()}, DISP_E_TYPEMISMATCH},
        WrongCall{"NumberAsFont", -512, DISPATCH_PROPERTYPUTREF, {Variant(1L)}, DISP_E_TYPEMISMATCH}),
    [](const auto& row) { return std::string(row.param.What); });

TEST_F(DispatchTest, ShowsNoAboutBoxWhenGivenAnArgument)
{
    MessageBoxWatcher watcher;
    const CallOutcome outcome = CallByName(control_.Get(), L"ShowAboutBox", {Variant(1L)});
    EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_BADPARAMCOUNT));
    EXPECT_TRUE(watcher.Stop().empty());
}

TEST_F(DispatchTest, RefusesNothingForAValue)
{
    const CallOutcome outcome =
        PutByName(control_.Get(), L"Value", Variant(static_cast<IDispatch*>(nullptr)));
    EXPECT_TRUE(FAILED(outcome.Result));
    EXPECT_EQ(Read(L"Value"), "VT 3 0");
}

TEST_F(DispatchTest, RefusesAForeignInterfaceIdentifier)
{
    DISPPARAMS none = {};
    Variant result;
    EXPECT_EQ(Hr(control_->Invoke(0, IID_IDispatch, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                  result.Receive(), nullptr, nullptr)),
              Hr(DISP_E_UNKNOWNINTERFACE));
}

TEST_F(DispatchTest, SurvivesCallsWithoutAPlaceForAnswers)
{
    DISPPARAMS none = {};
    EXPECT_HRESULT_SUCCEEDED(control_->Invoke(0, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                              nullptr, nullptr, nullptr));
    EXPECT_TRUE(FAILED(control_->Invoke(0, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, nullptr,
                                        nullptr, nullptr, nullptr)));
    EXPECT_EQ(Hr(control_->get_Value(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->get_BackColor(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->get_ForeColor(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->get_Enabled(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->get_Font(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->get_hwnd(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->get_YesText(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->get_NoText(nullptr)), Hr(E_POINTER));
    EXPECT_EQ(Hr(control_->get_Text(nullptr)), Hr(E_POINTER));
}

// Arguments of every kind at random. The result does not matter; that there is one does, and that the control
// goes on working.
TEST_F(DispatchTest, SurvivesRandomCalls)
{
    std::mt19937 random(19991122);
    const auto pick = [&random](auto count) { return static_cast<std::size_t>(random()) % count; };
    const DISPID members[] = {-501, -513, -514, -512, -515, 0,    1,          2,
                              3,    4,    5,    -1,   -4,   4711, 0x60000000, 0x60030000};
    const WORD flags[] = {DISPATCH_METHOD,
                          DISPATCH_PROPERTYGET,
                          DISPATCH_PROPERTYPUT,
                          DISPATCH_PROPERTYPUTREF,
                          DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                          0,
                          0xFFFF};
    const ComPtr<IFontDisp> font = MakeFont();
    Variant variable(3L);
    long number = 1;
    VARIANT_BOOL flag = VARIANT_TRUE;
    SAFEARRAY* array = SafeArrayCreateVector(VT_I4, 0, 3);
    const auto argument = [&]() -> VARIANT {
        VARIANT made = {};
        switch (pick(16U))
        {
        case 0:
            V_VT(&made) = VT_I4;
            V_I4(&made) = static_cast<long>(random());
            break;
        case 1:
            V_VT(&made) = VT_R8;
            V_R8(&made) = std::numeric_limits<double>::quiet_NaN();
            break;
        case 2:
            V_VT(&made) = VT_BSTR; // a null string is an empty one
            break;
        case 3:
            V_VT(&made) = VT_NULL;
            break;
        case 4:
            V_VT(&made) = VT_ERROR;
            V_ERROR(&made) = DISP_E_PARAMNOTFOUND;
            break;
        case 5:
            V_VT(&made) = VT_DISPATCH;
            V_DISPATCH(&made) = font.Get();
            break;
        case 6:
            V_VT(&made) = VT_UNKNOWN;
            V_UNKNOWN(&made) = font.Get();
            break;
        case 7:
            V_VT(&made) = VT_DISPATCH;
            V_DISPATCH(&made) = control_.Get();
            break;
        case 8:
            V_VT(&made) = VT_BYREF | VT_VARIANT;
            V_VARIANTREF(&made) = variable.Borrow();
            break;
        case 9:
            V_VT(&made) = VT_BYREF | VT_I4;
            V_I4REF(&made) = &number;
            break;
        case 10:
            V_VT(&made) = VT_BYREF | VT_BOOL;
            V_BOOLREF(&made) = &flag;
            break;
        case 11:
            V_VT(&made) = VT_ARRAY | VT_I4;
            V_ARRAY(&made) = array;
            break;
        case 12:
            V_VT(&made) = VT_DECIMAL;
            V_DECIMAL(&made).Lo64 = 12345;
            V_VT(&made) = VT_DECIMAL;
            break;
        case 13:
            V_VT(&made) = VT_CY;
            V_CY(&made).int64 = -1;
            break;
        case 14:
            V_VT(&made) = VT_DISPATCH; // Nothing
            break;
        default:
            break; // Empty
        }
        return made;
    };
    int succeeded = 0;
    for (int round = 0; round < 5000; ++round)
    {
        VARIANT arguments[4] = {};
        DISPID named[2] = {DISPID_PROPERTYPUT, 0};
        const UINT count = static_cast<UINT>(pick(4U));
        for (UINT i = 0; i < count; ++i)
            arguments[i] = argument();
        const WORD kind = flags[pick(std::size(flags))];
        DISPPARAMS parameters = {arguments, named, count, static_cast<UINT>(pick(std::min(count, 2U) + 1))};
        Variant result;
        EXCEPINFO exception = {};
        UINT argumentInError = 0;
        const bool wantsResult = pick(2U) == 0;
        const HRESULT outcome = control_->Invoke(
            members[pick(std::size(members))], IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
            wantsResult ? result.Receive() : nullptr, &exception, &argumentInError);
        succeeded += SUCCEEDED(outcome) ? 1 : 0;
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
    }
    SafeArrayDestroy(array);
    EXPECT_GT(succeeded, 100) << "the calls must not all be refused at the door";
    EXPECT_EQ(Hr(control_->put_Value(Yes)), Hr(S_OK));
    EXPECT_EQ(Read(L"Value"), "VT 3 1");
}

} // namespace

} // namespace kiv::test
