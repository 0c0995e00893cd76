#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace kiv::host
{

// A message box as its real window shows it.
struct ShownMessageBox
{
    HWND Window = nullptr;
    std::wstring Caption;
    std::wstring Text;
    UINT Flags = 0; // MB_…: which buttons and which icon
};

// Sees every message box of the thread that made it, when it comes up and before the user can answer. One at
// a time for a thread.
class MessageBoxWatch
{
public:
    using Handler = std::function<void(const ShownMessageBox&)>;

    explicit MessageBoxWatch(Handler onShown);
    MessageBoxWatch(const MessageBoxWatch&) = delete;
    MessageBoxWatch& operator=(const MessageBoxWatch&) = delete;
    ~MessageBoxWatch();

    // The newest box that is on the screen, or null.
    const ShownMessageBox* Current() const;

private:
    static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) noexcept;
    void OnActivating(HWND window);

    Handler onShown_;
    std::vector<ShownMessageBox> open_;
    HHOOK hook_;
};

} // namespace kiv::host
