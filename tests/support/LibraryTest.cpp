#include "tests/support/LibraryTest.h"

#include "runtime/com/Errors.h"
#include "tests/support/Text.h"
#include "tests/support/ToolTips.h"
#include "tests/support/WindowClass.h"

#include <ole2.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

BOOL CALLBACK CountControl(HWND window, LPARAM count)
{
    if (IsOfClass(window, "KivControls.UserControl"))
        ++*reinterpret_cast<int*>(count);
    return TRUE;
}

// EnumChildWindows goes through all generations.
BOOL CALLBACK CountTopLevel(HWND window, LPARAM count)
{
    CountControl(window, count);
    EnumChildWindows(window, CountControl, count);
    return TRUE;
}

} // namespace

int ControlWindows()
{
    int count = static_cast<int>(ToolTips().size());
    const LPARAM result = reinterpret_cast<LPARAM>(&count);
    EnumThreadWindows(GetCurrentThreadId(), CountTopLevel, result);
    // Message-only windows are in a tree of their own.
    for (HWND window = FindWindowExW(HWND_MESSAGE, nullptr, nullptr, nullptr); window;
         window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr))
    {
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId())
            CountTopLevel(window, result);
    }
    return count;
}

void DrainMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
    {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

ULONG References(IUnknown* object)
{
    object->AddRef();
    return object->Release();
}

void LibraryTest::SetUp()
{
    Check(OleInitialize(nullptr));
    // What an earlier test left behind is that test's failure, not this one's.
    cleanBefore_ = TheLibrary().CanUnloadNow() == S_OK;
    windowsBefore_ = ControlWindows();
}

void LibraryTest::TearDown()
{
    DrainMessages();
    if (cleanBefore_)
    {
        EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_OK)) << "objects are left";
    }
    EXPECT_EQ(ControlWindows(), windowsBefore_) << "windows are left";
    OleUninitialize();
}

ComPtr<_YesNo> LibraryTest::CreateYesNo() const
{
    ComPtr<_YesNo> control;
    Check(TheLibrary().Create(CLSID_YesNo).As(&control));
    return control;
}

} // namespace kiv::test
