#pragma once

#include "runtime/constituents/Constituent.h"
#include "runtime/core/Resolution.h"

#include <string>

namespace kiv
{

// A constituent drop-down list: a real COMBOBOX without a text box, which keeps a text and a number for each
// item and has its parent draw them (WM_DRAWITEM). Indexes count from 0; -1 is none.
class ComboBox final : public Constituent
{
public:
    ComboBox(ConstituentOwner& owner, HWND parent);

    int Count() const;
    std::wstring ItemText(int index) const;
    long ItemData(int index) const;
    void ItemData(int index, long data);
    // At the end for -1. Returns where the item is; throws ComError (E_OUTOFMEMORY) when it cannot be had.
    int Insert(const std::wstring& text, int index);
    void Remove(int index);
    void Clear();

    // The next item behind index that begins with the text, in whatever case, and from the first one on
    // again; -1 when there is none. index: of an item, or -1.
    int Find(const std::wstring& beginning, int index) const;

    // Raises no notification.
    int Selected() const;
    void Select(int index);

    bool IsDropped() const;
    // As if somebody else had it opened or closed: the window's messages tell of it.
    void DropDown(bool shown);
    // Closes the list and lets the mouse go, which an open list holds, and so does the press that opened it.
    void Close();

    // Pixels of the surface. The height is that with the list open; closed, it follows from the items'.
    void Move(int left, int top, int width, int height, bool repaint);
    int ClosedHeight() const;
    int ItemHeight() const;

    // The open list and an item in it, in pixels of the screen.
    RECT ListPlace() const;
    RECT ItemPlace(int index) const;

    // Items are never lower than one line of the font needs, and never lower than the system makes them,
    // which depends on the resolution.
    void Font(HFONT font) override;
    void At(const Resolution& resolution) { resolution_ = resolution; }
    // What is drawn for the parent's WM_DRAWITEM is to be seen where the item is.
    static void ClipTo(const DRAWITEMSTRUCT& item);
    // Repaints an item, in the open list too.
    void RepaintItem(int index);
    // With its list, which is no child of the surface.
    void FollowDirection(bool mirrored) override;
    void Draw(HDC dc, const RECT& place) const override;
    HBRUSH Colors(HDC dc) override;

protected:
    bool Received(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    HWND List() const;
    void ReleaseMouse() const;

    int LeastHeight(int asMade) const;

    int leastItemHeight_;
    int leastFieldHeight_;
    const Resolution madeAt_;
    Resolution resolution_;
    RECT place_ = {}; // as it was last moved, with the list open
};

} // namespace kiv
