#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace kiv::test
{

// Base of the rows of a table: a row's test is listed under the name, which is letters and digits.
struct NamedRow
{
    const char* Name;
};

inline std::ostream& operator<<(std::ostream& out, const NamedRow& row)
{
    return out << row.Name;
}

// For INSTANTIATE_TEST_SUITE_P.
struct RowName
{
    template<class Row>
    std::string operator()(const testing::TestParamInfo<Row>& row) const
    {
        return row.param.Name;
    }
};

} // namespace kiv::test
