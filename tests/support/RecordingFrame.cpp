#include "tests/support/RecordingSite.h"

namespace kiv::test
{

HRESULT RecordingFrame::Arrived(const char* name) const
{
    return log_->Arrived(((isDocument_ ? "Document::" : "Frame::") + std::string(name)).c_str());
}

HRESULT RecordingFrame::GetWindow(HWND* window) noexcept
{
    const HRESULT answer = Arrived("GetWindow");
    *window = SUCCEEDED(answer) ? window_ : nullptr;
    return answer;
}

HRESULT RecordingFrame::ContextSensitiveHelp(BOOL) noexcept
{
    return Arrived("ContextSensitiveHelp");
}

HRESULT RecordingFrame::GetBorder(RECT*) noexcept
{
    Arrived("GetBorder");
    return INPLACE_E_NOTOOLSPACE;
}

HRESULT RecordingFrame::RequestBorderSpace(LPCBORDERWIDTHS) noexcept
{
    Arrived("RequestBorderSpace");
    return INPLACE_E_NOTOOLSPACE;
}

HRESULT RecordingFrame::SetBorderSpace(LPCBORDERWIDTHS) noexcept
{
    return Arrived("SetBorderSpace");
}

HRESULT RecordingFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept
{
    active_ = object;
    return Arrived(object ? "SetActiveObject(control)" : "SetActiveObject(null)");
}

HRESULT RecordingFrame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept
{
    return Arrived("InsertMenus");
}

HRESULT RecordingFrame::SetMenu(HMENU, HOLEMENU, HWND) noexcept
{
    return Arrived("SetMenu");
}

HRESULT RecordingFrame::RemoveMenus(HMENU) noexcept
{
    return Arrived("RemoveMenus");
}

HRESULT RecordingFrame::SetStatusText(LPCOLESTR) noexcept
{
    return Arrived("SetStatusText");
}

HRESULT RecordingFrame::EnableModeless(BOOL) noexcept
{
    return Arrived("EnableModeless");
}

HRESULT RecordingFrame::TranslateAccelerator(MSG*, WORD) noexcept
{
    Arrived("TranslateAccelerator");
    return S_FALSE;
}

} // namespace kiv::test
