#pragma once

#include <windows.h>

#include <utility>

namespace kiv::test
{

// Owner of a bitmap or brush of a test's own.
template<class Handle>
class GdiObject
{
public:
    GdiObject() = default;
    explicit GdiObject(Handle handle) : handle_(handle) {}
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject&&) = delete;
    ~GdiObject() { DeleteObject(handle_); }

    Handle Get() const { return handle_; }
    Handle Release() { return std::exchange(handle_, nullptr); }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    Handle handle_ = nullptr;
};

// A device context in memory, for the screen's kind of bitmap, with a bitmap in it.
class BitmapDc
{
public:
    explicit BitmapDc(HBITMAP bitmap) : dc_(CreateCompatibleDC(nullptr)), former_(SelectObject(dc_, bitmap))
    {
    }
    BitmapDc(const BitmapDc&) = delete;
    BitmapDc& operator=(const BitmapDc&) = delete;
    ~BitmapDc()
    {
        SelectObject(dc_, former_);
        DeleteDC(dc_);
    }

    HDC Get() const { return dc_; }
    // Whether the bitmap went in.
    bool Holds() const { return former_ != nullptr; }

private:
    HDC dc_;
    HGDIOBJ former_;
};

} // namespace kiv::test
