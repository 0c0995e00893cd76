#pragma once

#include <windows.h>

namespace kiv::host
{

// Whose items stand on the sheet.
class SheetOwner
{
public:
    virtual void PaintItems(HDC context) = 0;
    virtual void OnCommand(WORD notification, HWND button) = 0;
    // WM_GETOBJECT; 0 leaves it to the system.
    virtual LRESULT OnGetObject(HWND sheet, WPARAM wParam, LPARAM lParam) = 0;

protected:
    SheetOwner() = default;
    SheetOwner(const SheetOwner&) = default;
    SheetOwner& operator=(const SheetOwner&) = default;
    ~SheetOwner() = default;
};

// The window that a form's items stand on, in the form's window: as large as the form is meant to be, and
// moved as the form scrolls, so that what stands on it keeps its place.
class FormSheet
{
public:
    FormSheet(HWND form, SheetOwner& owner, SIZE size);
    FormSheet(const FormSheet&) = delete;
    FormSheet& operator=(const FormSheet&) = delete;
    ~FormSheet();

    HWND Window() const { return window_; }
    SIZE Size() const { return size_; }

    // What the form's window hears.
    void OnFormSized();
    void OnScroll(int bar, WORD request);
    void OnWheel(int bar, int delta);

    // Scrolls as far as it takes to see the place, or its left and top where it is larger than the window.
    void Reveal(const RECT& place);

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void SetRange(int bar, long whole, long seen);
    bool HasBar(LONG style) const;
    void ScrollTo(int bar, int position);
    void Place();

    HWND form_;
    SheetOwner& owner_;
    SIZE size_;
    HWND window_ = nullptr;
    bool fitting_ = false;
};

} // namespace kiv::host
