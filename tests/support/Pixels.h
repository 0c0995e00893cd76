#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kiv::test
{

// A picture in memory, one colour a pixel.
class Pixels
{
public:
    explicit Pixels(SIZE size);

    SIZE Size() const { return size_; }
    COLORREF At(int x, int y) const { return colors_[Index(x, y)]; }
    void Set(int x, int y, COLORREF color) { colors_[Index(x, y)] = color; }

    // How many pixels have the colour.
    int Count(COLORREF color) const;

    bool operator==(const Pixels& other) const;

private:
    std::size_t Index(int x, int y) const { return static_cast<std::size_t>(y * size_.cx + x); }

    SIZE size_;
    std::vector<COLORREF> colors_;
};

// What a window's client area shows now, as its device context has it.
Pixels PixelsOfWindow(HWND window);

// The same with its border and all that stands in it.
Pixels PixelsOfWholeWindow(HWND window);

// A part of it.
Pixels Cut(const Pixels& picture, const RECT& place);

// "" for equal pictures, else how many pixels differ and where, for people.
std::string Difference(const Pixels& expected, const Pixels& actual);

// A device context in memory to draw a picture with.
class Canvas
{
public:
    explicit Canvas(SIZE size);
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas();

    HDC Dc() const { return dc_; }
    Pixels Content() const;

private:
    SIZE size_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ former_;
    const DWORD* bits_ = nullptr;
};

} // namespace kiv::test
