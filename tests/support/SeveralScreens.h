#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace kiv::test
{

// Screens of several resolutions in one process, which Wine does not have: while this lives, GetDpiForWindow
// answers as it is told here. One at a time.
class SeveralScreens
{
public:
    SeveralScreens();
    SeveralScreens(const SeveralScreens&) = delete;
    SeveralScreens& operator=(const SeveralScreens&) = delete;
    ~SeveralScreens();

    // Where a top-level window is from now on, with all that is in it and that it owns. Nobody is told.
    void Put(HWND window, int pixelsPerInch);

private:
    // A jump, as short as the processor has one.
    static constexpr std::size_t JumpSize = sizeof(void*) == 4 ? 5 : 14;
    using Code = std::array<std::uint8_t, JumpSize>;

    void Write(const Code& code);

    std::uint8_t* const function_;
    Code former_ = {};
};

} // namespace kiv::test
