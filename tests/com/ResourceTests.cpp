// The pictures and the version that KivCtls.ocx carries, read as any program reads a file's resources. The
// library is mapped without running any of its code.

#include "tests/support/ShippedPicture.h"

#include <windows.h>

#include <winver.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace kiv::test
{

namespace
{

template<auto Delete>
struct Deleter
{
    template<typename Handle>
    void operator()(Handle handle) const
    {
        Delete(handle);
    }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, Deleter<&FreeLibrary>>;
using Icon = std::unique_ptr<std::remove_pointer_t<HICON>, Deleter<&DestroyIcon>>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, Deleter<&DeleteObject>>;
using Brush = std::unique_ptr<std::remove_pointer_t<HBRUSH>, Deleter<&DeleteObject>>;
using MemoryContext = std::unique_ptr<std::remove_pointer_t<HDC>, Deleter<&DeleteDC>>;

constexpr int Side = 32;
using Pixels = std::vector<std::uint32_t>; // Side rows of Side, 0x00rrggbb

// A 32-bit picture in memory that stands in for the screen, filled with one colour.
class Canvas
{
public:
    explicit Canvas(COLORREF background) : context_(CreateCompatibleDC(nullptr))
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = Side;
        info.bmiHeader.biHeight = -Side;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        bitmap_.reset(CreateDIBSection(context_.get(), &info, DIB_RGB_COLORS, &bits_, nullptr, 0));
        old_ = SelectObject(context_.get(), bitmap_.get());
        const Brush brush(CreateSolidBrush(background));
        const RECT all{0, 0, Side, Side};
        FillRect(context_.get(), &all, brush.get());
    }

    ~Canvas() { SelectObject(context_.get(), old_); }

    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC Context() const { return context_.get(); }

    // Copies a 14x14 bitmap to the top-left corner.
    void Combine(HBITMAP bitmap, DWORD operation) const
    {
        const MemoryContext source(CreateCompatibleDC(context_.get()));
        const HGDIOBJ old = SelectObject(source.get(), bitmap);
        BitBlt(context_.get(), 0, 0, 14, 14, source.get(), 0, 0, operation);
        SelectObject(source.get(), old);
    }

    Pixels Read() const
    {
        GdiFlush();
        const auto* first = static_cast<const std::uint32_t*>(bits_);
        Pixels pixels(first, first + Side * Side);
        for (std::uint32_t& pixel : pixels)
            pixel &= 0xffffff;
        return pixels;
    }

private:
    MemoryContext context_;
    Bitmap bitmap_;
    void* bits_ = nullptr;
    HGDIOBJ old_ = nullptr;
};

std::wstring LibraryPath()
{
    std::array<wchar_t, MAX_PATH> path{};
    const DWORD length =
        GetEnvironmentVariableW(L"KIVCTLS_OCX", path.data(), static_cast<DWORD>(path.size()));
    return {path.data(), length < path.size() ? length : 0};
}

class ResourceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_NE(LibraryPath(), L"") << "KIVCTLS_OCX must name the library";
        library_.reset(LoadLibraryExW(LibraryPath().c_str(), nullptr,
                                      LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
        ASSERT_TRUE(library_);
    }

    const BYTE* Resource(const char* name, LPCSTR type) const
    {
        const HRSRC found = FindResourceA(library_.get(), name, type);
        return static_cast<const BYTE*>(LockResource(LoadResource(library_.get(), found)));
    }

    Bitmap LoadPicture(const char* name) const { return Bitmap(LoadBitmapA(library_.get(), name)); }

    Module library_;
};

class IconTest : public ResourceTest, public testing::WithParamInterface<const char*>
{
protected:
    // The text that the icon is made of.
    static pictures::Picture Source()
    {
        std::string name;
        std::ranges::transform(std::string(GetParam()), std::back_inserter(name),
                               [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
        return ShippedPicture(name);
    }

    // The icon drawn as the controls draw it.
    Pixels DrawOn(COLORREF background) const
    {
        const Canvas canvas(background);
        const Icon icon(LoadIconA(library_.get(), GetParam()));
        EXPECT_TRUE(DrawIconEx(canvas.Context(), 0, 0, icon.get(), 0, 0, 0, nullptr, DI_NORMAL));
        return canvas.Read();
    }
};

} // namespace

// Names are looked up in either case.
TEST_P(IconTest, HasOne32x32ImageOf16Colours)
{
    const BYTE* const group = Resource(GetParam(), reinterpret_cast<LPCSTR>(RT_GROUP_ICON));
    ASSERT_NE(group, nullptr);
    const auto word = [&](std::size_t at) { return static_cast<WORD>(group[at] | group[at + 1] << 8); };
    EXPECT_EQ(word(4), 1); // images
    EXPECT_EQ(group[6], 32);
    EXPECT_EQ(group[7], 32);
    EXPECT_EQ(word(12), 4); // bits a pixel
    const BYTE* const image = Resource(MAKEINTRESOURCEA(word(18)), reinterpret_cast<LPCSTR>(RT_ICON));
    ASSERT_NE(image, nullptr);
    const auto* const header = reinterpret_cast<const BITMAPINFOHEADER*>(image);
    EXPECT_EQ(header->biWidth, 32);
    EXPECT_EQ(header->biHeight, 64); // colours and mask
    EXPECT_EQ(header->biBitCount, 4);
}

TEST_P(IconTest, DrawsItsCornerAndLeavesTheRest)
{
    const pictures::Picture source = Source();
    for (const COLORREF background : {RGB(0xff, 0x80, 0), RGB(0x80, 0xc0, 0xff)})
    {
        const Pixels shown = DrawOn(background);
        const std::uint32_t kept = static_cast<std::uint32_t>(GetRValue(background)) << 16 |
                                   static_cast<std::uint32_t>(GetGValue(background)) << 8 |
                                   GetBValue(background);
        for (std::size_t y = 0; y < Side; ++y)
        {
            for (std::size_t x = 0; x < Side; ++x)
            {
                const pictures::Pixel drawn =
                    x < source.width && y < source.height ? source.At(x, y) : std::nullopt;
                const std::uint32_t expected =
                    drawn ? std::uint32_t{drawn->red} << 16 | std::uint32_t{drawn->green} << 8 | drawn->blue
                          : kept;
                EXPECT_EQ(shown[y * Side + x], expected) << x << ", " << y;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Resources, IconTest,
                         testing::Values("checkmark", "CHECKMARK", "partial", "plus", "minus", "note",
                                         "graph", "weblink", "chkcmb_chk", "chkcmb_chk_sel", "chkcmb_par",
                                         "chkcmb_par_sel"),
                         [](const auto& row) { return std::string(row.param); });

TEST_F(ResourceTest, OptionImagesAre14x14With16Colours)
{
    for (const char* name : {"YNCLEAR", "YNSET", "YNMASK", "ynclear", "ynset", "ynmask"})
    {
        const BYTE* const image = Resource(name, reinterpret_cast<LPCSTR>(RT_BITMAP));
        ASSERT_NE(image, nullptr) << name;
        const auto* const header = reinterpret_cast<const BITMAPINFOHEADER*>(image);
        EXPECT_EQ(header->biWidth, 14) << name;
        EXPECT_EQ(header->biHeight, 14) << name;
        EXPECT_EQ(header->biBitCount, 4) << name;
        EXPECT_TRUE(LoadPicture(name)) << name;
    }
}

TEST_F(ResourceTest, OptionImagesLeaveTheSurroundAndFillTheCircle)
{
    constexpr std::uint32_t orange = 0xff8000;
    for (const char* name : {"YNCLEAR", "YNSET"})
    {
        const Canvas canvas(RGB(0xff, 0x80, 0));
        canvas.Combine(LoadPicture("YNMASK").get(), SRCAND);
        canvas.Combine(LoadPicture(name).get(), SRCPAINT);
        const Pixels pixels = canvas.Read();
        const auto at = [&](int x, int y) { return pixels[static_cast<std::size_t>(y * Side + x)]; };
        for (const POINT corner : {POINT{0, 0}, POINT{13, 0}, POINT{0, 13}, POINT{13, 13}, POINT{2, 2}})
            EXPECT_EQ(at(corner.x, corner.y), orange) << name << " " << corner.x << ", " << corner.y;
        int kept = 0;
        for (int i = 0; i < 14 * 14; ++i)
            kept += at(i % 14, i / 14) == orange;
        EXPECT_EQ(kept, 14 * 14 - 112) << name;  // 112 pixels make the circle
        EXPECT_EQ(at(3, 4), 0u) << name;         // the sunken edge
        EXPECT_EQ(at(4, 6), 0xffffffu) << name;  // the face
        EXPECT_EQ(at(12, 7), 0xffffffu) << name; // the lit edge
        EXPECT_EQ(at(6, 6), name == std::string("YNSET") ? 0u : 0xffffffu) << name;
    }
}

TEST_F(ResourceTest, EachControlHasAToolboxImageOfItsOwn)
{
    std::set<std::string> images;
    for (WORD id = 30000; id <= 30008; ++id)
    {
        const HRSRC found =
            FindResourceA(library_.get(), MAKEINTRESOURCEA(id), reinterpret_cast<LPCSTR>(RT_BITMAP));
        ASSERT_NE(found, nullptr) << id;
        const auto* const image = static_cast<const char*>(LockResource(LoadResource(library_.get(), found)));
        const auto* const header = reinterpret_cast<const BITMAPINFOHEADER*>(image);
        EXPECT_EQ(header->biWidth, 16) << id;
        EXPECT_EQ(header->biHeight, 15) << id;
        EXPECT_EQ(header->biBitCount, 24) << id;
        images.emplace(image, SizeofResource(library_.get(), found));
        EXPECT_TRUE(LoadPicture(MAKEINTRESOURCEA(id))) << id;
    }
    EXPECT_EQ(images.size(), 9u);
}

TEST_F(ResourceTest, VersionNamesTheLibrary)
{
    const std::wstring path = LibraryPath();
    DWORD unused = 0;
    std::vector<BYTE> version(GetFileVersionInfoSizeW(path.c_str(), &unused));
    ASSERT_TRUE(GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(version.size()), version.data()));
    const auto text = [&](const wchar_t* name) -> std::wstring {
        void* value = nullptr;
        UINT length = 0;
        const std::wstring query = std::wstring(L"\\StringFileInfo\\040904B0\\") + name;
        if (!VerQueryValueW(version.data(), query.c_str(), &value, &length))
            return L"missing";
        return static_cast<const wchar_t*>(value);
    };
    EXPECT_EQ(text(L"FileDescription"), L"Form Folio Custom Controls");
    EXPECT_EQ(text(L"ProductName"), L"KivCtls");
    EXPECT_EQ(text(L"InternalName"), L"KivCtls.ocx");
    EXPECT_EQ(text(L"OriginalFilename"), L"KivCtls.ocx");
    EXPECT_EQ(text(L"FileVersion"), KIV_PROJECT_VERSION);
    EXPECT_EQ(text(L"ProductVersion"), KIV_PROJECT_VERSION);
    EXPECT_EQ(text(L"CompanyName"), L"KivCtls developers");
    EXPECT_EQ(text(L"LegalCopyright"), L"Copyright KivCtls developers");
    EXPECT_EQ(text(L"OLESelfRegister"), L"");

    void* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(version.data(), L"\\", &fixed, &length));
    const auto& numbers = *static_cast<const VS_FIXEDFILEINFO*>(fixed);
    const auto dotted = [](DWORD high, DWORD low) {
        return std::to_wstring(HIWORD(high)) + L"." + std::to_wstring(LOWORD(high)) + L"." +
               std::to_wstring(HIWORD(low));
    };
    EXPECT_EQ(dotted(numbers.dwFileVersionMS, numbers.dwFileVersionLS), KIV_PROJECT_VERSION);
    EXPECT_EQ(dotted(numbers.dwProductVersionMS, numbers.dwProductVersionLS), KIV_PROJECT_VERSION);
    EXPECT_EQ(numbers.dwFileType, static_cast<DWORD>(VFT_DLL));
}

} // namespace kiv::test
