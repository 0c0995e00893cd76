#pragma once

#include <windows.h>

#include <utility>

namespace kiv
{

// Owner of one GDI object: a bitmap, brush, pen, font or region.
template<class Handle>
class GdiObject
{
public:
    GdiObject() = default;
    explicit GdiObject(Handle handle) : handle_(handle) {}
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~GdiObject()
    {
        if (handle_)
            DeleteObject(handle_);
    }

    Handle Get() const { return handle_; }
    Handle Release() { return std::exchange(handle_, nullptr); }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    Handle handle_ = nullptr;
};

// An object selected into a device context for as long as this lives; a null object selects nothing.
class Selection
{
public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(object ? SelectObject(dc, object) : nullptr) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection()
    {
        if (previous_)
            SelectObject(dc_, previous_);
    }

private:
    HDC dc_;
    HGDIOBJ previous_;
};

// Owner of a memory device context; null when the system could not make one.
class MemoryDc
{
public:
    // compatibleWith: null for the screen.
    explicit MemoryDc(HDC compatibleWith) : dc_(CreateCompatibleDC(compatibleWith)) {}
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    ~MemoryDc()
    {
        if (dc_)
            DeleteDC(dc_);
    }

    HDC Get() const { return dc_; }
    explicit operator bool() const { return dc_ != nullptr; }

private:
    HDC dc_;
};

} // namespace kiv
