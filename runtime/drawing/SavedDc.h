#pragma once

#include <windows.h>

namespace kiv
{

// Puts a device context back as it was.
class SavedDc
{
public:
    explicit SavedDc(HDC dc) : dc_(dc), saved_(SaveDC(dc)) {}
    SavedDc(const SavedDc&) = delete;
    SavedDc& operator=(const SavedDc&) = delete;
    ~SavedDc()
    {
        if (saved_ != 0)
            RestoreDC(dc_, saved_);
    }

private:
    HDC dc_;
    int saved_;
};

} // namespace kiv
