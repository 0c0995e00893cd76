#pragma once

#include "host/container/Button.h"
#include "host/container/ControlSite.h"
#include "host/container/FormSheet.h"
#include "host/container/Frame.h"
#include "host/container/ItemOwner.h"
#include "host/container/Label.h"
#include "runtime/access/AccessibleServer.h"

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace kiv::host
{

class DesignSurface;
class FormFrame;

// A top-level window that holds controls: the whole of a small container. Use it on one thread that has
// entered a single-threaded apartment (OleInitialize). Errors of creation and loading are thrown as ComError.
class Form : private ItemOwner, private SheetOwner, private AccessibleSource
{
public:
    // In points, of the system's dialog font.
    static double UsualFontSize();

    // size in pixels, of what can stand on it. The window is made at once, hidden; it scrolls and can be
    // sized when the screen is smaller. rightToLeft: mirrored, with all that stands on it.
    Form(std::wstring_view title, SIZE size, bool rightToLeft = false);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    ~Form(); // Destroy

    // Creates (unless given), sites, loads and activates a control. The site lives until Remove or Destroy.
    ControlSite& Add(REFCLSID classId, SiteOptions options = {});
    ControlSite& Add(const wchar_t* progId, SiteOptions options = {});
    ControlSite& Add(IUnknown* control, SiteOptions options = {});
    void Remove(ControlSite& site);

    // The form's own items.
    Label& AddLabel(const LabelOptions& options);
    Frame& AddFrame(const FrameOptions& options);
    Button& AddButton(const ButtonOptions& options);

    const std::vector<std::unique_ptr<FormItem>>& Items() const { return items_; }
    FormItem* Find(std::wstring_view name) const; // case ignored; null when there is none
    ControlSite* FindSite(std::wstring_view name) const;

    HWND Window() const override { return window_; }
    HWND Page() const override { return sheet_ ? sheet_->Window() : nullptr; }
    // Of the form, in the system's dialog font; also the default ambient font.
    HFONT Font() const override;
    // Before anything stands on the form.
    void FontSize(double points);
    IFontDisp* FontObject() const override { return fontObject_.Get(); }

    void Show();    // and brings it to the foreground with the focus on the first item
    void Destroy(); // closes every control first
    bool Closed() const { return window_ == nullptr; }
    // Closes as a user does who is through.
    void Close();
    // Asked when the form is to be closed: false keeps it open. Meanwhile ClosedBy tells the button that was
    // pressed, null: none was; and Cancelled whether what was answered is to be forgotten, as by a cancel
    // button, or by the close box of a form that has one.
    std::function<bool()> OnClosing;
    const Button* ClosedBy() const { return closedBy_; }
    bool Cancelled() const { return cancelled_; }

    // Keyboard. The site whose control is UI-active, or null.
    ControlSite* ActiveSite() const { return active_; }
    FormItem* FocusedItem() const override;
    void FocusNext(bool backward) override;
    void FocusAfter(const FormItem& item) override; // the next one in tab order that can have it
    // The form's own keys: Tab, Enter, Esc, mnemonics. True when the message was one and is dealt with.
    bool Navigate(MSG& message) override;

    // The message loop; returns when the window is gone.
    void Run();
    // What a message loop of the caller's own does for the form before TranslateMessage: true when handled.
    bool Translate(MSG& message);

    // For other threads. Invoke runs the work on the form's thread, between two messages, and waits for it;
    // what the work throws arrives at the caller. Work that may open a modal window is posted instead. False
    // when the form is gone.
    bool Invoke(const std::function<void()>& work) const;
    bool Post(std::function<void()> work) const;

    // Design mode: controls are shown but do not answer; a click selects. Set before controls are added,
    // whose options then should say userMode = false.
    void SetDesignMode(SIZE gridPixels);
    bool DesignMode() const override { return design_ != nullptr; }
    void Select(FormItem* item);
    FormItem* Selected() const;

private:
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void CreateFormWindow(std::wstring_view title, SIZE size, bool rightToLeft);
    void LimitSize(MINMAXINFO& limits) const;
    void PaintItems(HDC context) override;
    void OnCommand(WORD notification, HWND button) override;
    LRESULT OnGetObject(HWND sheet, WPARAM wParam, LPARAM lParam) override;

    // AccessibleSource (Form_accessible.cpp): all that stands on the form and can be seen, in tab order.
    AccessibleInfo Describe(int part) const override;
    int PartCount() const override { return static_cast<int>(ShownItems().size()); }
    int FocusedPart() const override;
    int PartAt(POINT place) override;
    HWND WindowOf(int part) const override;
    std::vector<FormItem*> ShownItems() const;
    FormItem* ShownItem(int part) const;
    std::wstring LabelBefore(const FormItem& item) const override;

    void OnActivate(bool active);
    void RestoreFocus();
    Button* FindButton(HWND window) const;
    Button* CancelButton() const;

    ControlSite& Host(IUnknown* control, SiteOptions options);
    template<class Item, class Options>
    Item& AddItem(const Options& options);
    void MakeActive(ControlSite* site); // null: the focus is on an item of the form's own
    void SiteActivated(ControlSite& site) override;
    void SiteDeactivated(ControlSite& site) override;
    IOleInPlaceFrame* InPlaceFrame() const override;

    void CloseBy(const FormItem& button) override;
    void AskToClose(const Button* button, bool cancelled);

    bool Enter();
    bool Escape();
    bool RunMnemonic(MSG& message);
    void UpdateDefaultButton();
    std::vector<FormItem*> TabOrder() const;
    short NextTabIndex() const override;

    HWND window_ = nullptr;
    std::unique_ptr<FormSheet> sheet_;
    AccessibleServer accessible_;
    Microsoft::WRL::ComPtr<IFontDisp> fontObject_;
    Microsoft::WRL::ComPtr<FormFrame> frame_;
    ControlSite* active_ = nullptr;
    HWND lastFocus_ = nullptr;
    const Button* closedBy_ = nullptr;
    bool cancelled_ = false;
    bool isAsked_ = false;
    std::vector<std::unique_ptr<FormItem>> items_;
    std::unique_ptr<DesignSurface> design_;
};

} // namespace kiv::host
