#include "host/folio/Picture.h"

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

Bitmap PaintWindow(HWND window)
{
    RECT bounds = {};
    GetWindowRect(window, &bounds);
    const int width = bounds.right - bounds.left;
    const int height = bounds.bottom - bounds.top;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    Bitmap bitmap(CreateCompatibleBitmap(screen, width, height));
    const HGDIOBJ before = SelectObject(memory, bitmap.get());
    const BOOL painted = PrintWindow(window, memory, 0);
    SelectObject(memory, before);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    if (!painted)
        throw ComError(E_FAIL);
    return bitmap;
}

} // namespace

void SavePicture(HWND window, const std::filesystem::path& file)
{
    const Bitmap bitmap = PaintWindow(window);
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmap> source;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    UINT width = 0;
    UINT height = 0;
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&factory)));
    Check(factory->CreateBitmapFromHBITMAP(bitmap.get(), nullptr, WICBitmapIgnoreAlpha, &source));
    Check(source->GetSize(&width, &height));
    Check(factory->CreateStream(&stream));
    Check(stream->InitializeFromFilename(file.c_str(), GENERIC_WRITE));
    Check(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder));
    Check(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache));
    Check(encoder->CreateNewFrame(&frame, nullptr));
    Check(frame->Initialize(nullptr));
    Check(frame->SetSize(width, height));
    Check(frame->SetPixelFormat(&format));
    Check(frame->WriteSource(source.Get(), nullptr));
    Check(frame->Commit());
    Check(encoder->Commit());
}

} // namespace kiv::host
