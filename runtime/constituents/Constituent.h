#pragma once

#include "runtime/access/AccessibleServer.h"
#include "runtime/constituents/Window.h"

#include <windows.h>

#include <unknwn.h>

#include <optional>

namespace kiv
{

// What a constituent window tells the control that it is a part of.
class ConstituentOwner
{
public:
    // Whether presses of mouse buttons reach the constituent.
    virtual bool TakesInput() const { return true; }
    // The keys, before the constituent sees them. A key set to 0 goes no further.
    virtual void PreviewKeyDown(short& keyCode) = 0;
    virtual void PreviewKeyPress(short& keyAscii) = 0;
    virtual void PreviewKeyUp(short& keyCode) = 0;
    // The focus has come from, or goes to, another window (which may be one of the control's own, or null).
    virtual void ConstituentFocus(bool gained, HWND other) = 0;
    // Holds the control while a message is handled.
    virtual IUnknown* ConstituentHolder() noexcept = 0;
    // What a constituent's window answers to WM_GETOBJECT where it is one with its owner to assistive tools;
    // none where it describes itself.
    virtual std::optional<LRESULT> AnswerAccessible(HWND, WPARAM, LPARAM) { return std::nullopt; }

protected:
    ~ConstituentOwner() = default;
};

// A system control inside a control. Its window is a child of the surface for as long as this lives.
class Constituent : public Window, public AccessibleSource
{
public:
    Constituent(const Constituent&) = delete;
    Constituent& operator=(const Constituent&) = delete;

    bool Enabled() const;
    void Enabled(bool enabled);
    bool Visible() const;
    void Visible(bool visible);
    virtual void Font(HFONT font);
    // The surface has been turned. Most turn with it.
    virtual void FollowDirection(bool mirrored) { Mirror(mirrored); }
    // The help topic for the window; 0 for none.
    void HelpContextID(long topic);

    // The constituent of a window, null for other windows.
    static Constituent* Of(HWND window);
    // The one whose window a notification names; null where it names anything but a window right in parent.
    static Constituent* In(HWND parent, LPARAM window);

    // A notification of the window to its parent: WM_COMMAND's or WM_HSCROLL's code.
    virtual void Notified(WORD code);
    // The window's picture for a device context that is not the window's: a printed form, an inactive
    // control. The system's control draws it, unless a class knows better.
    virtual void Draw(HDC dc, const RECT& place) const;
    // Colours for the window, which the system asks its parent for; null for the system's own.
    virtual HBRUSH Colors(HDC dc);

    // AccessibleSource, for a constituent that describes itself: as a window with its text. A class knows its
    // role and what it does.
    AccessibleInfo Describe(int part) const override;
    std::wstring NameOf(int part) const override;
    IUnknown* AccessibleHolder() noexcept override { return owner_.ConstituentHolder(); }
    bool TakeAccessibleFocus(int part) override;

protected:
    // style: in addition to that of a child. Where most fill their parent, none has to be moved there. Throws
    // ComError when the window cannot be made.
    Constituent(ConstituentOwner& owner, HWND parent, const char* windowClass, DWORD style,
                DWORD extendedStyle);
    Constituent(ConstituentOwner& owner, HWND parent, const char* windowClass, DWORD style,
                DWORD extendedStyle, const RECT& place);
    virtual ~Constituent();

    // Moves the window to a place on the surface, in pixels, unless it is there: asking costs next to
    // nothing, moving much more.
    void Place(const RECT& place, bool repaint = true);

    // Hands a message straight to the system's control, past the hooks: for what the control itself wants to
    // know or do many times for each key.
    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    // The same for a message with a text in Unicode, in or out, of which nothing is lost.
    LRESULT AskWide(UINT message, WPARAM wParam, LPARAM lParam) const;

    // The window's own messages, after the owner has seen what is its to see; returns true when that is all
    // there is to do.
    virtual bool Received(UINT message, WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static void Forget(HWND window) noexcept;
    bool Handle(UINT message, WPARAM& wParam, LPARAM lParam);
    LRESULT AnswerAccessible(WPARAM wParam, LPARAM lParam);

    ConstituentOwner& owner_;
    WNDPROC previous_ = nullptr;
    WNDPROC widePrevious_ = nullptr;
    AccessibleServer accessible_;
};

} // namespace kiv
