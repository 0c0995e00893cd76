#include "host/folio/Picture.h"

#include "host/files/WholeFile.h"
#include "runtime/com/Errors.h"

#include <wincodec.h>
#include <wrl/client.h>

#include <memory>
#include <type_traits>

namespace kiv::host
{

using Microsoft::WRL::ComPtr;

namespace
{

struct DeleteBitmap
{
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteBitmap>;

// Where a picture is being made, and of what on the screen.
struct Target
{
    HDC Dc;
    POINT Origin;
};

// To copy all of a window from. A mirrored one would count from the right.
HDC PixelsOf(HWND window)
{
    const HDC source = GetWindowDC(window);
    SetLayout(source, 0);
    return source;
}

// The open list of a combo box is a window of its own, which hangs out of the form's.
BOOL CALLBACK CopyOpenList(HWND window, LPARAM parameter)
{
    const auto& target = *reinterpret_cast<const Target*>(parameter);
    wchar_t name[16] = {};
    GetClassNameW(window, name, ARRAYSIZE(name));
    if (!IsWindowVisible(window) || _wcsicmp(name, L"ComboLBox") != 0)
        return TRUE;
    RedrawWindow(window, nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE | RDW_UPDATENOW);
    RECT place = {};
    GetWindowRect(window, &place);
    const HDC source = PixelsOf(window);
    BitBlt(target.Dc, place.left - target.Origin.x, place.top - target.Origin.y, place.right - place.left,
           place.bottom - place.top, source, 0, 0, SRCCOPY);
    ReleaseDC(window, source);
    return TRUE;
}

// What is on the screen now, once everything due is painted. Nothing else is: a button that is held down
// would come up in the picture.
Bitmap CopyWindow(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_ALLCHILDREN | RDW_UPDATENOW);
    const HDC source = PixelsOf(window);
    // Where a window manager draws the frame instead of the system, the window has no pixels there.
    RECT drawn = {};
    GetClipBox(source, &drawn);
    const int width = drawn.right - drawn.left;
    const int height = drawn.bottom - drawn.top;
    const HDC memory = CreateCompatibleDC(source);
    Bitmap bitmap(CreateCompatibleBitmap(source, width, height));
    const HGDIOBJ before = SelectObject(memory, bitmap.get());
    const BOOL copied = BitBlt(memory, 0, 0, width, height, source, drawn.left, drawn.top, SRCCOPY);
    RECT place = {};
    GetWindowRect(window, &place);
    Target target = {memory, {place.left + drawn.left, place.top + drawn.top}};
    EnumThreadWindows(GetWindowThreadProcessId(window, nullptr), &CopyOpenList,
                      reinterpret_cast<LPARAM>(&target));
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(window, source);
    if (!copied)
        throw ComError(E_FAIL);
    return bitmap;
}

// Of a stream in memory.
std::string ContentOf(IStream* stream)
{
    STATSTG state = {};
    HGLOBAL memory = nullptr;
    Check(stream->Stat(&state, STATFLAG_NONAME));
    Check(GetHGlobalFromStream(stream, &memory));
    const std::string content(static_cast<const char*>(GlobalLock(memory)),
                              static_cast<std::size_t>(state.cbSize.QuadPart));
    GlobalUnlock(memory);
    return content;
}

} // namespace

void SavePicture(HWND window, const std::filesystem::path& file)
{
    const Bitmap bitmap = CopyWindow(window);
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmap> source;
    // Into memory first: a picture that cannot be written leaves the older one.
    ComPtr<IStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    UINT width = 0;
    UINT height = 0;
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory)));
    Check(factory->CreateBitmapFromHBITMAP(bitmap.get(), nullptr, WICBitmapIgnoreAlpha, &source));
    Check(source->GetSize(&width, &height));
    Check(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
    Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache));
    Check(encoder->CreateNewFrame(&frame, nullptr));
    Check(frame->Initialize(nullptr));
    Check(frame->SetSize(width, height));
    Check(frame->SetPixelFormat(&format));
    Check(frame->WriteSource(source.Get(), nullptr));
    Check(frame->Commit());
    Check(encoder->Commit());
    WriteFile(file, ContentOf(stream.Get()));
}

} // namespace kiv::host
