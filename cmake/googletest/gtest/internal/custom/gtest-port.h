// GoogleTest's own place for adaptations; it finds this file instead of its empty one.
// The mingw C++ library over Windows' own threads has no std::mutex, which GoogleTest wants for one class
// only.
#pragma once

#include <windows.h>

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal
{
// Lets a thread wait until another one gives it leave to start.
class Notification
{
public:
    Notification() = default;
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;
    ~Notification() { CloseHandle(event_); }

    void Notify() { SetEvent(event_); }
    void WaitForNotification() { WaitForSingleObject(event_, INFINITE); }

private:
    HANDLE event_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
};
} // namespace testing::internal
