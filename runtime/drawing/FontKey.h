#pragma once

#include <windows.h>

#include <cstring>

namespace kiv
{

// What a font is, to know again by: a handle may come back as another font's.
class FontKey
{
public:
    FontKey() = default;
    explicit FontKey(HFONT font) { GetObjectW(font, sizeof attributes_, &attributes_); }

    bool operator==(const FontKey& other) const
    {
        return std::memcmp(&attributes_, &other.attributes_, sizeof attributes_) == 0;
    }

private:
    LOGFONTW attributes_ = {};
};

} // namespace kiv
