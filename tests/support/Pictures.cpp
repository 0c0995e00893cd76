#include "tests/support/Pictures.h"

#include "runtime/com/Errors.h"
#include "tests/support/Drawing.h"

#include <olectl.h>

namespace kiv::test
{

Microsoft::WRL::ComPtr<IPictureDisp> PictureOf(const Pixels& pixels)
{
    const SIZE size = pixels.Size();
    const HDC screen = GetDC(nullptr);
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateCompatibleBitmap(screen, size.cx, size.cy);
    ReleaseDC(nullptr, screen);
    {
        const BitmapDc dc(description.bmp.hbitmap);
        for (int y = 0; y < size.cy; ++y)
            for (int x = 0; x < size.cx; ++x)
                SetPixel(dc.Get(), x, y, pixels.At(x, y));
    }
    Microsoft::WRL::ComPtr<IPictureDisp> picture;
    Check(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE,
                                   reinterpret_cast<void**>(picture.GetAddressOf())));
    return picture;
}

Pixels TwoColours(SIZE size, COLORREF first, COLORREF second, POINT where)
{
    Pixels pixels(size);
    for (int y = 0; y < size.cy; ++y)
        for (int x = 0; x < size.cx; ++x)
            pixels.Set(x, y, x < where.x && y < where.y ? first : second);
    return pixels;
}

} // namespace kiv::test
