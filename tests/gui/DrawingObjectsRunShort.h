#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

namespace kiv::test
{

// Takes all drawing objects that a process can hold, some 65,000, but a few: a loop that leaves one at each
// turn then fails soon.
class DrawingObjectsRunShort
{
public:
    static constexpr int Left = 1000;

    DrawingObjectsRunShort()
    {
        while (const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3)))
            pens_.push_back(pen);
        for (int i = 0; i < Left; ++i)
            Free();
    }
    DrawingObjectsRunShort(const DrawingObjectsRunShort&) = delete;
    DrawingObjectsRunShort& operator=(const DrawingObjectsRunShort&) = delete;
    ~DrawingObjectsRunShort()
    {
        while (!pens_.empty())
            Free();
    }

    // As many as there are to be after a loop that left none behind.
    static void ExpectSomeLeft()
    {
        std::vector<HPEN> pens;
        for (int i = 0; i < Left / 2; ++i)
            pens.push_back(CreatePen(PS_SOLID, 1, RGB(1, 2, 3)));
        EXPECT_NE(pens.back(), nullptr);
        for (const HPEN pen : pens)
            DeleteObject(pen);
    }

private:
    void Free()
    {
        DeleteObject(pens_.back());
        pens_.pop_back();
    }

    std::vector<HPEN> pens_;
};

constexpr int MoreThanDrawingObjects = 3 * DrawingObjectsRunShort::Left;

} // namespace kiv::test
