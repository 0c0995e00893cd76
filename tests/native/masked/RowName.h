#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <ostream>
#include <string>

namespace kiv::test
{

// A row of a table: its test is listed under its name, which is letters and digits.
template<class Row>
concept Named = requires(const Row& row)
{
    {
        row.Name
        } -> std::convertible_to<const char*>;
};

template<Named Row>
std::ostream& operator<<(std::ostream& out, const Row& row)
{
    return out << row.Name;
}

// For INSTANTIATE_TEST_SUITE_P.
inline constexpr auto NameOfRow = [](const auto& info) -> std::string { return info.param.Name; };

} // namespace kiv::test
