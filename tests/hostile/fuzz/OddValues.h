#pragma once

#include "tests/hostile/fuzz/Random.h"

#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <deque>
#include <string>
#include <vector>

namespace kiv::test
{

// Values of every type that automation has, the odd ones among them, and what those by reference refer to.
// They are good until the next Clear.
class OddValues
{
public:
    OddValues() = default;
    OddValues(const OddValues&) = delete;
    OddValues& operator=(const OddValues&) = delete;
    ~OddValues() { Clear(); }

    // Of any type. The holder keeps it: whoever wants one of his own copies it.
    VARIANT Any(Random& random);
    // Of a type that has a value of its own: no reference and no array.
    VARIANT Plain(Random& random);
    void Clear();

    // A text that a control may take for something, or a very long one.
    static std::wstring Text(Random& random);
    // "VT 8 "12"", for people.
    static std::string Show(const VARIANT& value);

private:
    VARIANT Number(Random& random, VARTYPE type);
    VARIANT Array(Random& random);
    VARIANT Reference(Random& random);
    VARIANT& Kept(const VARIANT& value);

    std::deque<VARIANT> kept_; // addresses stay
};

// An object that answers to every name, with whatever comes.
Microsoft::WRL::ComPtr<IDispatch> MakeOddObject(std::uint64_t seed);

} // namespace kiv::test
