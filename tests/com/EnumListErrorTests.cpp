// A list of codes whose database fails: what the user is told, and what the host.

#include "tests/com/EnumListTest.h"
#include "tests/support/AutomationCalls.h"
#include "tests/support/Text.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

TEST_F(EnumListTest, ADatabaseThatCannotBeReadIsTheUsersToKnow)
{
    Put(L"DisplayStyle", Variant(1L));
    Put(L"EnumCode", Variant(L"7"));
    const auto ask = [&] { Put(L"EnumCode", Variant(L"10")); };
    const auto expectEmpty = [&] {
        EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"")));
        EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(L"10"))) << "the code is kept";
    };
    Database().Fail(L"OpenRecordset", 0);
    ExpectUnread(ask);
    expectEmpty();
    for (const Variant& answer : {Variant(), Variant::Null(), Variant(1L), Variant(L"no rows"),
                                  Variant(static_cast<IDispatch*>(nullptr))})
    {
        Database().Answer(answer);
        ExpectUnread(ask);
        expectEmpty();
    }
    Database().Answer(std::nullopt);
    Put(L"Database", Variant(static_cast<IDispatch*>(nullptr)));
    ExpectUnread(ask);
    expectEmpty();
    const auto noDatabase = MakeCom<ScriptedObject>();
    Put(L"Database", Variant(static_cast<IDispatch*>(noDatabase.Get())));
    ExpectUnread(ask);
    expectEmpty();
}

TEST_F(EnumListTest, AQuoteInACodeBreaksTheQueryAndTheCodeIsKept)
{
    Put(L"DisplayStyle", Variant(1L));
    ExpectUnread([&] { Put(L"EnumCode", Variant(L"o'x")); });
    EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(L"o'x")));
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"")));
}

// Only opening is tried; what fails after that is the caller's to handle, as the database raised it, and the
// record set is closed.
TEST_F(EnumListTest, AnErrorWithinTheRowsIsTheCallers)
{
    Put(L"DisplayStyle", Variant(1L));
    for (const wchar_t* call : {L"EOF", L"Fields Enum Text", L"Value"})
    {
        Database().Fail(call, 0, RunTimeError(3265));
        CallOutcome outcome;
        ExpectNoMessage([&] { outcome = PutByName(Control().Get(), L"EnumCode", Variant(L"7")); });
        EXPECT_EQ(Hr(outcome.Result), Hr(DISP_E_EXCEPTION)) << Narrow(call);
        EXPECT_EQ(Hr(outcome.ErrorCode), Hr(RunTimeError(3265)));
        EXPECT_EQ(outcome.ErrorSource, L"ScriptedObject");
        EXPECT_EQ(outcome.ErrorDescription, L"as the test wants it");
        EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(L"7")));
        EXPECT_EQ(Database().StillOpen(), 0);
    }
    // The control's own errors are told as its own afterwards.
    const auto plain = MakeCom<ScriptedObject>();
    ExpectError(PutByName(Control().Get(), L"EnumCode", Variant(static_cast<IDispatch*>(plain.Get()))),
                ObjectLacksMember, L"EnumList");
}

// Early-bound callers find the same.
TEST_F(EnumListTest, AnErrorWithinTheRowsIsToldToEarlyBoundCallers)
{
    Put(L"DisplayStyle", Variant(1L));
    const auto list = Control().Query<_EnumList>();
    Database().Fail(L"EOF", 0, RunTimeError(3265));
    EXPECT_EQ(Hr(list->put_EnumCode(Bstr(L"7").Get())), Hr(RunTimeError(3265)));
    ComPtr<IErrorInfo> report;
    ASSERT_EQ(Hr(GetErrorInfo(0, &report)), Hr(S_OK));
    Bstr source;
    Bstr description;
    Check(report->GetSource(source.Receive()));
    Check(report->GetDescription(description.Receive()));
    EXPECT_EQ(source.View(), L"ScriptedObject");
    EXPECT_EQ(description.View(), L"as the test wants it");
}

// A record set in which something is missing, or is not what late binding can call.
TEST_F(EnumListTest, ARecordSetWithoutTheMembersRaises438)
{
    Put(L"DisplayStyle", Variant(1L));
    const auto answer = [](const Variant& value) {
        return [value](const std::vector<Variant>&) { return value; };
    };
    const auto plain = MakeCom<ScriptedObject>();
    const Variant object(static_cast<IDispatch*>(plain.Get()));
    struct
    {
        const char* Name;
        std::vector<const wchar_t*> Members;
        Variant Field;
        HRESULT Error;
    } const rows[] = {
        {"NoEOF", {L"Close"}, {}, RunTimeError(438)},
        {"NoFields", {L"EOF", L"Close"}, {}, RunTimeError(438)},
        {"NoValue", {L"EOF", L"Fields"}, object, RunTimeError(438)},
        {"FieldIsNoObject", {L"EOF", L"Fields"}, Variant(5L), RunTimeError(424)},
        {"FieldIsNothing", {L"EOF", L"Fields"}, Variant(static_cast<IDispatch*>(nullptr)), RunTimeError(424)},
    };
    for (const auto& row : rows)
    {
        const auto set = MakeCom<ScriptedObject>();
        for (const wchar_t* member : row.Members)
        {
            if (member == std::wstring(L"Fields"))
                set->Add(member, DISPATCH_METHOD, 1, answer(row.Field));
            else
                set->Add(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, 0, answer(Variant(false)));
        }
        Database().Answer(Variant(static_cast<IDispatch*>(set.Get())));
        ExpectNoMessage([&] {
            const CallOutcome outcome = PutByName(Control().Get(), L"EnumCode", Variant(L"7"));
            SCOPED_TRACE(row.Name);
            ExpectError(outcome, row.Error, L"EnumList");
        });
        EXPECT_EQ(Shown(L"EnumCode"), Show(Variant(L"7"))) << row.Name;
    }
}

// A record set that cannot be closed has been read all the same.
TEST_F(EnumListTest, AnErrorInClosingIsNobodys)
{
    Put(L"DisplayStyle", Variant(1L));
    Database().Fail(L"Close", 0, RunTimeError(3420));
    ExpectNoMessage([&] { Put(L"EnumCode", Variant(L"7")); });
    EXPECT_EQ(Shown(L"EnumText"), Show(Variant(L"Pears")));
}

} // namespace

} // namespace kiv::test
