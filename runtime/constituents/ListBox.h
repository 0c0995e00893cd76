#pragma once

#include "runtime/constituents/Constituent.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kiv
{

// A constituent list box: a real LISTBOX with tab stops, of which one item or none is selected. Items are
// counted from 0; -1 stands for none.
class ListBox final : public Constituent
{
public:
    ListBox(ConstituentOwner& owner, HWND parent);

    // Events: the user selects an item, or double-clicks.
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;

    // Adds an item at the end and tells where that is. Throws std::bad_alloc when the list is full.
    int AddItem(std::wstring text);
    void Clear();
    int ListCount() const { return static_cast<int>(texts_.size()); }
    // The item's text as it was added. The window has its beginning, as far as any screen could show it.
    // Empty for an item that somebody else has put into the window.
    std::wstring_view List(int index) const;
    int ItemData(int index) const;
    void ItemData(int index, int data);

    int ListIndex() const;
    void ListIndex(int index);
    // The first item in sight.
    int TopIndex() const;
    void TopIndex(int index);

    // The only tab stop, in dialog units of the list's font.
    void TabStop(int dialogUnits);
    // While this lives the window is not painted: for many changes at once.
    class Batch
    {
    public:
        explicit Batch(const ListBox& list);
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;
        ~Batch();

    private:
        const ListBox& list_;
    };

    void Notified(WORD code) override;

    // What assistive tools are told: the list's name, and what they say for an item's text.
    std::wstring SpokenName;
    std::function<std::wstring(std::wstring_view text)> SpokenItem;
    AccessibleInfo Describe(int part) const override;
    std::wstring NameOf(int part) const override;
    int PartCount() const override { return ListCount(); }
    int FocusedPart() const override { return GetFocus() == hWnd() ? ListIndex() + 1 : 0; }
    int SelectedPart() const override { return ListIndex() + 1; }
    int PartAt(POINT place) override;
    bool DoDefaultAction(int part) override;
    bool TakeAccessibleSelection(int part) override;

private:
    void ReserveRoom();
    void AnnounceSelection() const;

    std::vector<std::wstring> texts_;
    std::size_t reserved_ = 0; // items that the window has room for, as far as it was told
};

} // namespace kiv
