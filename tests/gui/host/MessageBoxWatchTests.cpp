// What the host sees of a message box.

#include "host/container/MessageBoxWatch.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

TEST(MessageBoxWatch, ReadsCaptionTextButtonsAndIcon)
{
    // Each box is answered as soon as its loop runs.
    const host::MessageBoxWatch* watching = nullptr;
    bool currentWhileOpen = false;
    std::vector<host::ShownMessageBox> shown;
    host::MessageBoxWatch watch([&](const host::ShownMessageBox& box) {
        shown.push_back(box);
        currentWhileOpen = watching->Current() && watching->Current()->Window == box.Window;
        const int button = GetDlgItem(box.Window, IDNO)   ? IDNO
                           : GetDlgItem(box.Window, IDOK) ? IDOK
                                                          : IDCANCEL;
        PostMessageW(box.Window, WM_COMMAND, static_cast<WPARAM>(button), 0);
    });
    watching = &watch;
    const UINT rows[] = {
        MB_OK,
        MB_OK | MB_ICONEXCLAMATION,
        MB_OK | MB_ICONHAND,
        MB_OKCANCEL | MB_ICONQUESTION,
        MB_YESNO | MB_ICONASTERISK,
        MB_YESNOCANCEL,
        MB_RETRYCANCEL | MB_ICONEXCLAMATION,
    };
    for (const UINT flags : rows)
    {
        currentWhileOpen = false;
        const std::size_t before = shown.size();
        MessageBoxW(nullptr, L"Two\nlines && more", L"The caption", flags);
        ASSERT_EQ(shown.size(), before + 1) << flags;
        EXPECT_EQ(shown.back().Flags, flags);
        EXPECT_EQ(shown.back().Text, L"Two\nlines && more");
        EXPECT_EQ(shown.back().Caption, L"The caption");
        EXPECT_TRUE(currentWhileOpen) << flags;
        EXPECT_EQ(watch.Current(), nullptr) << flags;
    }
}

} // namespace

} // namespace kiv::test
