// A database that another program writes into just now: it is waited for, with the windows painted, and then
// told.

#include "host/container/Automation.h"
#include "host/data/OdbcHandle.h"
#include "runtime/com/MakeCom.h"
#include "tests/gui/HostedTest.h"
#include "tests/gui/lists/CodeDatabase.h"
#include "tests/support/Files.h"
#include "tests/support/Thread.h"

#include <sqlucode.h>

#include <memory>

namespace kiv::test
{

namespace
{

constexpr const wchar_t* Query = L"SELECT * FROM [Enum Tables]";

// Has a database to itself as long as it lives.
class Lock
{
public:
    explicit Lock(const std::wstring& file) : connection_(Prepared(environment_))
    {
        const std::wstring source = host::ConnectionStringOf(file);
        connection_.Check(SQLDriverConnectW(connection_.Get(), nullptr, host::OdbcText(source),
                                            static_cast<SQLSMALLINT>(source.size()), nullptr, 0, nullptr,
                                            SQL_DRIVER_NOPROMPT));
        Execute(L"BEGIN EXCLUSIVE");
    }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;
    ~Lock()
    {
        Execute(L"ROLLBACK");
        SQLDisconnect(connection_.Get());
    }

private:
    static SQLHENV Prepared(const host::OdbcHandle<SQL_HANDLE_ENV>& environment)
    {
        environment.Check(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION,
                                        reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0));
        return environment.Get();
    }

    void Execute(const std::wstring& command)
    {
        const host::OdbcHandle<SQL_HANDLE_STMT> statement(connection_.Get());
        statement.Check(SQLExecDirectW(statement.Get(), host::OdbcText(command),
                                       static_cast<SQLINTEGER>(command.size())));
    }

    host::OdbcHandle<SQL_HANDLE_ENV> environment_{SQL_NULL_HANDLE};
    host::OdbcHandle<SQL_HANDLE_DBC> connection_;
};

class LockedDatabase : public HostedTest
{
protected:
    void SetUp() override
    {
        HostedTest::SetUp();
        file_.CopyFrom(RequiredVariable(L"KIV_CODES"));
        database_ = MakeCom<host::Database>(host::ConnectionStringOf(file_.Path()));
    }
    void TearDown() override
    {
        database_.Reset();
        HostedTest::TearDown();
    }

    const std::wstring& File() const { return file_.Path(); }
    void Open() const
    {
        host::CallMethod(database_.Get(), L"OpenRecordset", {Variant(std::wstring_view(Query))});
    }

private:
    TemporaryFile file_{L".db"};
    Microsoft::WRL::ComPtr<host::Database> database_;
};

TEST_F(LockedDatabase, IsToldAfterAWhile)
{
    ShowForm();
    const Lock lock(File());
    InvalidateRect(TheForm().Page(), nullptr, TRUE);
    const ULONGLONG begin = GetTickCount64();
    try
    {
        Open();
        ADD_FAILURE() << "it was read";
    }
    catch (const host::RaisedError& error)
    {
        EXPECT_EQ(error.Result(), host::DatabaseInUse);
        EXPECT_EQ(error.Description(), L"The database is locked by another program.");
    }
    EXPECT_GE(GetTickCount64() - begin, 1900U);
    EXPECT_FALSE(GetUpdateRect(TheForm().Page(), nullptr, FALSE)) << "the form was not painted meanwhile";
}

TEST_F(LockedDatabase, IsReadAsSoonAsItCanBe)
{
    auto lock = std::make_unique<Lock>(File());
    {
        const Thread other([&] {
            Sleep(600);
            lock.reset();
        });
        Open();
    }
    EXPECT_FALSE(lock);
    Open();
}

TEST_F(LockedDatabase, TakesNoInputMeanwhile)
{
    HostedYesNo control(TheForm(), Placed());
    ShowForm();
    const long before = control.Value();
    const Lock lock(File());
    TapKey('Y');
    EXPECT_THROW(Open(), host::RaisedError);
    EXPECT_EQ(control.Value(), before);
    // What was typed is not lost.
    Settle();
    EXPECT_EQ(control.Value(), 1);
}

} // namespace

} // namespace kiv::test
