#pragma once

#include "runtime/access/AccessibleServer.h"
#include "runtime/constituents/Constituent.h"
#include "runtime/constituents/Label.h"
#include "runtime/control/Surface.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kiv
{

class CommandButton;

// A place on a form, in twips.
struct FormPlace
{
    double Left = 0;
    double Top = 0;
    double Width = 0;
    double Height = 0;
};

// A dialog of the library's own: a resizable window with a surface full of constituents, which exist while
// the form is loaded. Fields of a derived class are not touched by loading and unloading.
class Form : protected ConstituentOwner, private SurfaceEvents, private AccessibleSource
{
public:
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    // Keeps a form loaded, hidden at first.
    class Loaded
    {
    public:
        // owner: the window that the form stands over; may be null.
        Loaded(Form& form, HWND owner, std::wstring_view caption);
        Loaded(const Loaded&) = delete;
        Loaded& operator=(const Loaded&) = delete;
        ~Loaded();

    private:
        Form& form_;
    };

    // Shows the loaded form over its owner, which is disabled meanwhile, and returns when the form is
    // unloaded or its window is gone. tellOwner hears whether the owner's other windows are to answer: false
    // before the form appears, true before it goes.
    void ShowModal(const std::function<void(bool enabled)>& tellOwner);
    // Ends the form's time on the screen. Its windows are there until Loaded ends: what calls this may run in
    // one of their handlers.
    void Unload();

protected:
    // Inner size in twips.
    Form(double innerWidth, double innerHeight) : innerWidth_(innerWidth), innerHeight_(innerHeight) {}
    virtual ~Form();

    // The form's life: its controls are made, laid out for its size, drawn (those that are no windows), and
    // go.
    virtual void Form_Load() = 0;
    virtual void Form_Resize() {}
    // The form is at another resolution now: its parts take their fonts and first places anew. Form_Resize
    // follows.
    virtual void Form_ResolutionChanged() {}
    virtual void Form_Paint() {}
    // The user closes the window by its frame.
    virtual void Form_QueryUnload() { Unload(); }
    virtual void Form_Unload() {}

    bool IsUnloaded() const { return unloaded_; }
    const Surface& TheSurface() const { return *surface_; }
    Surface& TheSurface() { return *surface_; }
    // In twips.
    double OuterWidth() const;
    void OuterWidth(double width);
    FormPlace PlaceOf(const Constituent& control) const;
    void Move(const Constituent& control, const FormPlace& place) const;
    void Move(Label& label, const FormPlace& place) const;
    // The buttons that Enter and Esc press.
    void DefaultButton(const CommandButton& button);
    void CancelButton(const CommandButton& button);

private:
    // SurfaceEvents
    LRESULT SurfaceMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    void SurfacePaint() override { Form_Paint(); }
    IUnknown* SurfaceOwner() noexcept override { return nullptr; }

    // ConstituentOwner
    void PreviewKeyDown(short&) override {}
    void PreviewKeyPress(short&) override {}
    void PreviewKeyUp(short&) override {}
    void ConstituentFocus(bool gained, HWND other) override;
    IUnknown* ConstituentHolder() noexcept override { return nullptr; }

    LRESULT AnswerFor(HWND window, WPARAM wParam, LPARAM lParam);
    // AccessibleSource: a dialog, whose parts are its controls.
    AccessibleInfo Describe(int part) const override;
    std::wstring NameOf(int part) const override;
    int PartCount() const override;
    int FocusedPart() const override;
    HWND WindowOf(int part) const override;

    void Load(HWND owner, std::wstring_view caption);
    void Destroy() noexcept;
    void Center();
    void RunLoop();
    void TakeFocus();
    void ResizeInside(SIZE size);
    void Resized();
    void FollowResolution(const RECT* suggested);
    const Resolution& TheResolution() const { return surface_->TheResolution(); }
    static LRESULT CALLBACK WndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);

    const double innerWidth_;
    const double innerHeight_;
    HWND window_ = nullptr; // null while not loaded, and once the owner took the window with it
    std::optional<Surface> surface_;
    HWND owner_ = nullptr;
    HWND focus_ = nullptr; // the control that has the focus while the form is the active window
    bool shown_ = false;
    bool unloaded_ = false;
    bool ownerDisabled_ = false;
    std::function<void(bool)> tellOwner_;
    std::optional<AccessibleServer> accessible_; // while loaded
};

} // namespace kiv
