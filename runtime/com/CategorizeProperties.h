#pragma once

#include <windows.h>

#include <unknwn.h>

namespace kiv
{

// How a designer that lists properties by category asks for them. Not every set of system headers has it.
struct ICategorizeProperties : IUnknown
{
    // category: one of the standard numbers, which are negative, or one of the control's own
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID property, int* category) noexcept = 0;
    // The name of a category of the control's own.
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(int category, LCID locale, BSTR* name) noexcept = 0;
};

inline constexpr IID CategorizePropertiesId = {
    0x4D07FC10, 0xF931, 0x11CE, {0xB0, 0x01, 0x00, 0xAA, 0x00, 0x68, 0x84, 0xE5}};

} // namespace kiv
