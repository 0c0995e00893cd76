#pragma once

#include <windows.h>

#include <optional>

namespace kiv::host
{

class Form;
class FormItem;

// Which edges of an item move with the mouse; all of them: the item itself.
struct GrabbedEdges
{
    bool Left = false;
    bool Top = false;
    bool Right = false;
    bool Bottom = false;
};

// Design mode of a form: a grid of dots, grab handles around the selected item, and an invisible window above
// all controls that takes the mouse instead of them. A click selects; a drag moves what is selected, or by a
// handle sizes it, from one line of the grid to another and not out of what it stands in.
class DesignSurface
{
public:
    DesignSurface(Form& form, SIZE gridPixels);
    DesignSurface(const DesignSurface&) = delete;
    DesignSurface& operator=(const DesignSurface&) = delete;
    ~DesignSurface();

    void KeepOnTop();
    void Select(FormItem* item);
    FormItem* Selected() const { return selected_; }

    void PaintGrid(HDC context) const;
    void PaintHandles(HDC context) const;

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void OnButtonDown(POINT point);
    void OnDrag(POINT point);
    bool ShowCursor() const;
    FormItem* ItemAt(POINT point) const;
    std::optional<GrabbedEdges> HandleAt(POINT point) const;
    RECT Moved(POINT by) const;
    RECT Sized(POINT by) const;
    // What an item may not leave.
    RECT Room(const FormItem& item) const;

    Form& form_;
    SIZE grid_;
    HWND window_ = nullptr;
    FormItem* selected_ = nullptr;
    // Since the button is down:
    POINT grabbedAt_ = {};
    RECT grabbedBounds_ = {};
    GrabbedEdges grabbedEdges_;
    bool dragging_ = false; // the mouse has gone far enough to mean it
};

} // namespace kiv::host
