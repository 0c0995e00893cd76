#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace kiv::test
{

// One expected call; an optional one may also be missing.
struct ExpectedCall
{
    ExpectedCall(const char* name) : Name(name) {} // NOLINT: a name stands for a call that must come
    std::string Name;
    bool Optional = false;
};

inline ExpectedCall May(const char* name)
{
    ExpectedCall call(name);
    call.Optional = true;
    return call;
}

// The calls that a control makes on its host, shared by the host's objects. Whatever arrives must be
// expected: by the next ExpectCalls, or through AllowAll.
class CallLog
{
public:
    CallLog() = default;
    CallLog(const CallLog&) = delete;
    CallLog& operator=(const CallLog&) = delete;
    ~CallLog(); // fails the test for calls that nobody expected

    // Records a call and tells how to answer it: S_OK, or what FailCall says.
    HRESULT Arrived(const char* name);

    // Compares the calls since the last time with the expected ones and forgets them.
    void ExpectCalls(const std::vector<ExpectedCall>& expected);
    void AllowAll() { strict_ = false; }
    const std::vector<std::string>& Calls() const { return calls_; }
    std::vector<std::string> TakeCalls();

    // From here on any call fails the test.
    void Close() { closed_ = true; }
    void Reopen() { closed_ = false; }

    // The call of that number (0 the next one) fails with E_FAIL.
    void FailCall(std::size_t number) { failing_ = arrived_ + number; }
    // Runs inside every call, before it is answered.
    void OnCall(std::function<void(const std::string&)> handler) { handler_ = std::move(handler); }

private:
    std::vector<std::string> calls_;
    std::size_t arrived_ = 0;
    std::size_t failing_ = ~std::size_t{0};
    bool strict_ = true;
    bool closed_ = false;
    std::function<void(const std::string&)> handler_;
};

} // namespace kiv::test
