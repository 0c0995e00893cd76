// What the host hands to controls that read code tables: over ODBC, each engine like the others.

#include "host/container/Automation.h"
#include "host/data/DataError.h"
#include "tests/gui/lists/CodeDatabase.h"
#include "tests/support/Files.h"

#include <filesystem>

namespace kiv::test
{

namespace
{

using host::CallMethod;
using host::GetProperty;
using Microsoft::WRL::ComPtr;

class DatabaseTest : public testing::TestWithParam<DatabaseEngine>
{
protected:
    void SetUp() override
    {
        if (const std::string reason = WhyMissing(GetParam()); !reason.empty())
            GTEST_SKIP() << reason;
        database_ = OpenCodes(GetParam().Codes);
    }

    host::Database* TheDatabase() const { return database_.Get(); }
    void ReleaseDatabase() { database_.Reset(); }

    Variant Open(std::wstring_view query) const
    {
        return CallMethod(database_.Get(), L"OpenRecordset", {Variant(query), Variant(8L)});
    }

    // The values of a column, in the order of the rows.
    std::vector<std::wstring> Column(std::wstring_view query, std::wstring_view name) const;

    HRESULT OpenError(std::wstring_view query) const;

private:
    ComPtr<host::Database> database_;
};

IDispatch* ObjectOf(const Variant& value)
{
    return value.Type() == VT_DISPATCH ? V_DISPATCH(&value.Get()) : nullptr;
}

Variant FieldValue(const Variant& recordset, const Variant& name)
{
    return GetProperty(ObjectOf(CallMethod(ObjectOf(recordset), L"Fields", {name})), L"Value");
}

HRESULT ErrorOf(const std::function<void()>& work)
{
    try
    {
        work();
        return S_OK;
    }
    catch (const ComError& error)
    {
        return error.Result();
    }
}

std::vector<std::wstring> DatabaseTest::Column(std::wstring_view query, std::wstring_view name) const
{
    std::vector<std::wstring> values;
    const Variant recordset = Open(query);
    for (; !GetProperty(ObjectOf(recordset), L"EOF").Bool(); CallMethod(ObjectOf(recordset), L"MoveNext", {}))
    {
        const Variant value = FieldValue(recordset, Variant(name));
        values.push_back(value.IsNull() ? L"Null" : value.Text());
    }
    CallMethod(ObjectOf(recordset), L"Close", {});
    return values;
}

HRESULT DatabaseTest::OpenError(std::wstring_view query) const
{
    return ErrorOf([&] { Open(query); });
}

std::wstring ListOf(const std::wstring& state, const std::wstring& table, const std::wstring& order)
{
    return L"SELECT * FROM [Enum Tables]  WHERE [State Code] = '" + state + L"' AND [Table Name] = '" +
           table + L"' ORDER BY " + order;
}

const std::wstring ByCode = L"RIGHT('0000000000' & [Enum Code], 10)";
const std::wstring ByText = L"[Enum Text]";

using Texts = std::vector<std::wstring>;

TEST_P(DatabaseTest, OrdersCodesByTheirLastTenDigits)
{
    EXPECT_EQ(Column(ListOf(L"T1", L"Lengths", ByCode), L"Enum Code"),
              (Texts{L"", L"90000000005", L"7", L"10000000008", L"10", L"100"}));
}

TEST_P(DatabaseTest, OrdersByDescription)
{
    EXPECT_EQ(Column(ListOf(L"T1", L"Lengths", ByText), L"Enum Text"),
              (Texts{L"A hundred", L"Eight, of eleven digits", L"Five, of eleven digits", L"Nothing",
                     L"Seven", L"Ten"}));
}

TEST_P(DatabaseTest, GivesTextsAsTheyAre)
{
    const std::wstring letters = ListOf(L"T1", L"Letters", ByText + L" DESC");
    EXPECT_EQ(Column(letters, L"Enum Text"),
              (Texts{L"\u0395\u03BB\u03BB\u03AC\u03B4\u03B1, \u0423\u043A\u0440\u0430\u0457\u043D\u0430, "
                     L"\u65E5\u672C, \U0001F0A1",
                     L"RIGHT('x', 1); -- \"?\" \\n {d}"}));
    EXPECT_EQ(Column(letters, L"Enum Code"), (Texts{L"\u00E9", L"[a] & b"}));
    EXPECT_EQ(Column(ListOf(L"T1", L"Lines", ByCode), L"Enum Text"), Texts{L"One\r\n\r\nthree\r\n"});
    EXPECT_EQ(Column(ListOf(L"T1", L"Null", ByCode), L"Enum Text"), (Texts{L"Null", L"Not Null"}));
}

TEST_P(DatabaseTest, FindsTextsThatAreSpecialElsewhere)
{
    const std::wstring query = L"SELECT * FROM [Enum Tables]  WHERE [Enum Code] = ";
    EXPECT_EQ(Column(query + L"'[a] & b'", L"Table Name"), Texts{L"Letters"});
    EXPECT_EQ(Column(query + L"'\u00E9'", L"Table Name"), Texts{L"Letters"});
    EXPECT_EQ(Column(L"SELECT * FROM [Enum Tables] WHERE [State Code] = 'T''1'", L"Enum Text"),
              Texts{L"One"});
    EXPECT_EQ(Column(L"SELECT * FROM [Enum Tables] WHERE [Enum Text] = 'RIGHT(''x'', 1); -- \"?\" \\n {d}'",
                     L"Enum Code"),
              Texts{L"[a] & b"});
}

TEST_P(DatabaseTest, GivesAMillionCharacters)
{
    const Texts read = Column(ListOf(L"T1", L"Long", ByCode), L"Enum Text");
    ASSERT_EQ(read.size(), 1U);
    ASSERT_EQ(read.front().size(), 1U << 20);
    for (std::size_t at = 0; at < read.front().size(); ++at)
        ASSERT_EQ(read.front()[at], L"0123456789abcde "[at % 16]) << at;
}

TEST_P(DatabaseTest, GivesTenThousandRows)
{
    const Texts codes = Column(ListOf(L"US", L"Business Activity", ByCode), L"Enum Code");
    ASSERT_EQ(codes.size(), 10000U);
    EXPECT_EQ(codes.front(), L"110101");
    EXPECT_EQ(codes.back(), L"722520");
    EXPECT_TRUE(std::is_sorted(codes.begin(), codes.end()));
}

TEST_P(DatabaseTest, TellsFieldsByNameAndNumber)
{
    const Variant recordset = Open(ListOf(L"MD", L"County", ByCode));
    EXPECT_EQ(FieldValue(recordset, Variant(L"enum TEXT")).Text(), L"Allegany");
    EXPECT_EQ(FieldValue(recordset, Variant(2L)).Text(), L"1");
    EXPECT_EQ(FieldValue(recordset, Variant(0L)).Text(), L"MD") << "an earlier one, read later";
    // Through the collection, and through what is left out in "recordset(name)".
    const Variant fields = GetProperty(ObjectOf(recordset), L"Fields");
    const Variant field = CallMethod(ObjectOf(fields), L"Item", {Variant(L"Enum Code")});
    EXPECT_EQ(GetProperty(ObjectOf(field), DISPID_VALUE).Text(), L"1");
    CallMethod(ObjectOf(recordset), L"MoveNext", {});
    EXPECT_EQ(GetProperty(ObjectOf(field), DISPID_VALUE).Text(), L"2") << "of the row that is current";
    for (const Variant& name : {Variant(L"Nobody"), Variant(L""), Variant(4L), Variant(-1L)})
        EXPECT_EQ(ErrorOf([&] { FieldValue(recordset, name); }), host::NoSuchItem);
}

TEST_P(DatabaseTest, EndsBehindTheLastRow)
{
    const Variant none = Open(ListOf(L"MD", L"Nothing", ByCode));
    EXPECT_TRUE(GetProperty(ObjectOf(none), L"EOF").Bool());
    EXPECT_EQ(ErrorOf([&] { FieldValue(none, Variant(L"Enum Code")); }), host::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { CallMethod(ObjectOf(none), L"MoveNext", {}); }), host::NoCurrentRecord);
}

TEST_P(DatabaseTest, TakesASelectOnly)
{
    for (const wchar_t* query :
         {L"DELETE FROM [Enum Tables]", L"", L"Enum Tables", L"SELECT * INTO x FROM [Enum Tables]",
          L"SELECT 1; DELETE FROM [Enum Tables]",
          L"SELECT * FROM [Enum Tables] WHERE [Enum Code] = 'O'Neill'"})
        EXPECT_EQ(OpenError(query), host::QueryNotUnderstood) << query;
    for (const wchar_t* query :
         {L"SELECT * FROM [No Tables]", L"SELECT [No Column] FROM [Enum Tables]", L"SELECT FROM WHERE"})
        EXPECT_EQ(OpenError(query), host::OdbcCallFailed) << query;
    EXPECT_EQ(ErrorOf([&] {
                  CallMethod(TheDatabase(), L"OpenRecordset", {Variant(ByText), Variant(2L)});
              }),
              host::InvalidDataArgument);
    // After all that it still answers.
    EXPECT_EQ(Column(ListOf(L"MD", L"County", ByCode), L"Enum Code").size(), 27U);
}

TEST_P(DatabaseTest, SaysWhatFailed)
{
    const auto raised = [&](const wchar_t* query) {
        DISPID open = DISPID_UNKNOWN;
        std::wstring name = L"OpenRecordset";
        LPOLESTR names = name.data();
        EXPECT_EQ(TheDatabase()->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_NEUTRAL, &open), S_OK);
        const Variant argument(query);
        DISPPARAMS passed = {argument.Borrow(), nullptr, 1, 0};
        EXCEPINFO exception = {};
        EXPECT_EQ(TheDatabase()->Invoke(open, IID_NULL, LOCALE_NEUTRAL, DISPATCH_METHOD, &passed, nullptr,
                                        &exception, nullptr),
                  DISP_E_EXCEPTION);
        EXPECT_EQ(Bstr::ViewOf(exception.bstrSource), L"FolioHost.Database");
        const std::wstring description(Bstr::ViewOf(exception.bstrDescription));
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        return description;
    };
    EXPECT_EQ(raised(L"SELECT 'a"), L"Query: the text that starts at character 8 has no closing quote");
    EXPECT_NE(raised(L"SELECT * FROM Nowhere").find(L"owhere"), std::wstring::npos) << "what the engine says";
}

TEST_P(DatabaseTest, FailsOnceItIsClosed)
{
    const Variant recordset = Open(ListOf(L"MD", L"County", ByCode));
    const Variant field = CallMethod(ObjectOf(recordset), L"Fields", {Variant(L"Enum Code")});
    CallMethod(TheDatabase(), L"Close", {});
    EXPECT_EQ(OpenError(ListOf(L"MD", L"County", ByCode)), host::DataObjectClosed);
    EXPECT_EQ(ErrorOf([&] { GetProperty(ObjectOf(recordset), L"EOF"); }), host::DataObjectClosed);
    EXPECT_EQ(ErrorOf([&] { CallMethod(ObjectOf(recordset), L"MoveNext", {}); }), host::DataObjectClosed);
    EXPECT_EQ(ErrorOf([&] { GetProperty(ObjectOf(field), L"Value"); }), host::DataObjectClosed);
    EXPECT_EQ(ErrorOf([&] { CallMethod(TheDatabase(), L"Close", {}); }), host::DataObjectClosed);
    CallMethod(ObjectOf(recordset), L"Close", {});
    EXPECT_EQ(ErrorOf([&] { CallMethod(ObjectOf(recordset), L"Close", {}); }), host::DataObjectClosed);
}

TEST_P(DatabaseTest, FieldsOutliveWhatTheyCameFrom)
{
    Variant recordset = Open(ListOf(L"MD", L"County", ByCode));
    const Variant field = CallMethod(ObjectOf(recordset), L"Fields", {Variant(L"Enum Code")});
    recordset = Variant();
    ReleaseDatabase();
    EXPECT_EQ(GetProperty(ObjectOf(field), L"Value").Text(), L"1");
}

TEST_P(DatabaseTest, TakesArgumentsThatAreLeftOut)
{
    VARIANT omitted = {};
    V_VT(&omitted) = VT_ERROR;
    V_ERROR(&omitted) = DISP_E_PARAMNOTFOUND;
    const Variant missing(omitted);
    const Variant query(ListOf(L"MD", L"County", ByCode).c_str());
    const std::vector<Variant> calls[] = {
        {query}, {query, missing}, {query, Variant(8L), missing, missing}, {query, Variant(short{8})}};
    for (const std::vector<Variant>& arguments : calls)
        EXPECT_EQ(FieldValue(CallMethod(TheDatabase(), L"OpenRecordset", arguments), Variant(2L)).Text(),
                  L"1");
    EXPECT_EQ(ErrorOf([&] { CallMethod(TheDatabase(), L"OpenRecordset", {missing}); }), DISP_E_BADPARAMCOUNT);
}

TEST_P(DatabaseTest, KnowsNothingElse)
{
    EXPECT_FALSE(host::HasMember(TheDatabase(), L"Execute"));
    EXPECT_EQ(ErrorOf([&] { CallMethod(TheDatabase(), L"OpenRecordset", {}); }), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(ErrorOf([&] { CallMethod(TheDatabase(), L"Close", {Variant(1L)}); }), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(ErrorOf([&] { host::PutProperty(TheDatabase(), L"Close", Variant(1L)); }),
              DISP_E_MEMBERNOTFOUND);
}

INSTANTIATE_TEST_SUITE_P(Over, DatabaseTest, testing::ValuesIn(DatabaseEngines), EngineName);

// The engines' own ways to be asked to write in a SELECT.
TEST(SqliteDatabaseTest, CannotBeWrittenTo)
{
    const host::OdbcConnection connection(host::ConnectionStringOf(RequiredVariable(L"KIV_CODES")));
    const host::OdbcHandle<SQL_HANDLE_STMT> statement(connection.Get());
    std::wstring command = L"DELETE FROM [Enum Tables]";
    EXPECT_EQ(SQLExecDirectW(statement.Get(), host::OdbcText(command), SQL_NTS), SQL_ERROR);
    EXPECT_NE(host::DescribeOdbcError(SQL_HANDLE_STMT, statement.Get()).find(L"readonly"),
              std::wstring::npos);
}

TEST(PostgreSqlDatabaseTest, CannotBeWrittenTo)
{
    const DatabaseEngine& engine = DatabaseEngines[1];
    if (const std::string reason = WhyMissing(engine); !reason.empty())
        GTEST_SKIP() << reason;
    const ComPtr<host::Database> database = OpenCodes(engine.Codes);
    const Variant locking(L"SELECT * FROM [Enum Tables] FOR UPDATE");
    EXPECT_EQ(ErrorOf([&] { CallMethod(database.Get(), L"OpenRecordset", {locking}); }),
              host::OdbcCallFailed);
}

TEST(SqliteDatabaseTest, HasToBeThere)
{
    const std::wstring missing = RequiredVariable(L"KIV_CODES") + L".missing";
    EXPECT_THROW(host::ConnectionStringOf(missing), host::DataError);
    EXPECT_EQ(host::ConnectionStringOf(L"Driver=X;Database=Y"), L"Driver=X;Database=Y");
    EXPECT_THROW(host::OdbcConnection(L"Driver=NoSuchDriver"), host::DataError);
    // Nor does connecting make one.
    std::wstring source = host::ConnectionStringOf(RequiredVariable(L"KIV_CODES"));
    source.insert(source.find(L".db") + 3, L".missing");
    EXPECT_THROW(host::OdbcConnection{source}, host::DataError);
    EXPECT_FALSE(std::filesystem::exists(missing));
}

} // namespace

} // namespace kiv::test
