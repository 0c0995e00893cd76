#pragma once

#include <windows.h>

namespace kiv::host
{

class Form;
class FormItem;

// Design mode of a form: a grid of dots, grab handles around the selected item, and an invisible window above
// all controls that takes the mouse, so that a click selects and a drag moves instead of reaching the
// control.
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
    FormItem* ItemAt(POINT point) const;

    Form& form_;
    SIZE grid_;
    HWND window_ = nullptr;
    FormItem* selected_ = nullptr;
    POINT grabbed_ = {}; // from the selected item's corner to where it was taken hold of
};

} // namespace kiv::host
