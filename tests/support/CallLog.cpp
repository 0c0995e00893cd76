#include "tests/support/CallLog.h"

#include <gtest/gtest.h>

#include <utility>

namespace kiv::test
{

namespace
{

std::string Lines(const std::vector<std::string>& calls)
{
    std::string lines;
    for (const std::string& call : calls)
        lines += "\n  " + call;
    return lines;
}

bool Matches(const std::vector<std::string>& calls, const std::vector<ExpectedCall>& expected)
{
    std::size_t next = 0;
    for (const ExpectedCall& call : expected)
    {
        if (next < calls.size() && calls[next] == call.Name)
            ++next;
        else if (!call.Optional)
            return false;
    }
    return next == calls.size();
}

} // namespace

CallLog::~CallLog()
{
    if (strict_ && !calls_.empty())
        ADD_FAILURE() << "unexpected calls:" << Lines(calls_);
}

HRESULT CallLog::Arrived(const char* name)
{
    if (closed_)
        ADD_FAILURE() << name << " after the control was cut off from its site";
    const bool fails = arrived_++ == failing_;
    calls_.push_back(name);
    const auto handler = handler_;
    if (handler)
        handler(name);
    return fails ? E_FAIL : S_OK;
}

void CallLog::ExpectCalls(const std::vector<ExpectedCall>& expected)
{
    const std::vector<std::string> calls = TakeCalls();
    if (Matches(calls, expected))
        return;
    std::vector<std::string> names;
    for (const ExpectedCall& call : expected)
        names.push_back(call.Name + (call.Optional ? " (optional)" : ""));
    ADD_FAILURE() << "expected the calls" << Lines(names) << "\nand saw" << Lines(calls);
}

std::vector<std::string> CallLog::TakeCalls()
{
    return std::exchange(calls_, {});
}

} // namespace kiv::test
