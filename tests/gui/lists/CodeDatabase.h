#pragma once

#include "host/data/Database.h"

#include <gtest/gtest.h>

#include <wrl/client.h>

namespace kiv::test
{

// A database management system that holds the sample code tables, and those of the tests.
struct DatabaseEngine
{
    const char* Name;
    const wchar_t* Codes;        // the variable that names the source
    const wchar_t* WrongColumns; // as above, for a database whose code tables lack "Enum Text"
    const wchar_t* Missing;      // the variable that says why there is none; null where there always is one

    friend std::ostream& operator<<(std::ostream& out, const DatabaseEngine& engine)
    {
        return out << engine.Name;
    }
};

constexpr DatabaseEngine DatabaseEngines[] = {
    {"Sqlite", L"KIV_CODES", L"KIV_WRONG_COLUMNS", nullptr},
    {"PostgreSql", L"KIV_POSTGRESQL", L"KIV_POSTGRESQL_WRONG_COLUMNS", L"KIV_NO_POSTGRESQL"},
};

// Why tests of the engine cannot run here, or nothing.
std::string WhyMissing(const DatabaseEngine& engine);

// The database that a variable names.
Microsoft::WRL::ComPtr<host::Database> OpenCodes(const wchar_t* variable);

// For INSTANTIATE_TEST_SUITE_P.
inline std::string EngineName(const testing::TestParamInfo<DatabaseEngine>& engine)
{
    return engine.param.Name;
}

} // namespace kiv::test
