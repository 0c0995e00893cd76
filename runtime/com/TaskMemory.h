#pragma once

#include <windows.h>

#include <objbase.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string_view>

namespace kiv
{

// Memory that is handed to a caller of another module, who frees it by CoTaskMemFree.

struct FreeTaskMemory
{
    void operator()(void* memory) const noexcept { CoTaskMemFree(memory); }
};

// Owner of an array of plain values.
template<class T>
using TaskArray = std::unique_ptr<T[], FreeTaskMemory>;

template<class T>
TaskArray<T> MakeTaskArray(std::size_t count)
{
    TaskArray<T> array(static_cast<T*>(CoTaskMemAlloc(count * sizeof(T))));
    if (!array)
        throw std::bad_alloc();
    return array;
}

// A text with its terminator.
inline TaskArray<wchar_t> MakeTaskText(std::wstring_view text)
{
    TaskArray<wchar_t> copy = MakeTaskArray<wchar_t>(text.size() + 1);
    *std::ranges::copy(text, copy.get()).out = L'\0';
    return copy;
}

} // namespace kiv
