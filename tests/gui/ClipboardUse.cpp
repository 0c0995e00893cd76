#include "tests/gui/ClipboardUse.h"

#include <gtest/gtest.h>

#include <cstring>

namespace kiv::test
{

void PutOnClipboard(HWND owner, UINT format, const void* data, std::size_t size)
{
    ASSERT_TRUE(OpenClipboard(owner));
    EmptyClipboard();
    if (data)
    {
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
        std::memcpy(GlobalLock(memory), data, size);
        GlobalUnlock(memory);
        EXPECT_NE(SetClipboardData(format, memory), nullptr);
    }
    CloseClipboard();
}

void PutTextOnClipboard(HWND owner, const std::wstring& text)
{
    PutOnClipboard(owner, CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

void EmptyTheClipboard(HWND owner)
{
    PutOnClipboard(owner, CF_UNICODETEXT, nullptr, 0);
}

std::wstring TextOnClipboard(HWND owner)
{
    EXPECT_TRUE(OpenClipboard(owner));
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const std::wstring text = data ? static_cast<const wchar_t*>(GlobalLock(data)) : L"nothing";
    if (data)
        GlobalUnlock(data);
    CloseClipboard();
    return text;
}

} // namespace kiv::test
