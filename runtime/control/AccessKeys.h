#pragma once

#include <windows.h>

#include <ocidl.h>

#include <string>
#include <string_view>

namespace kiv
{

// The letters that, with Alt, lead to a control, as its container is told of them.
class AccessKeys
{
public:
    AccessKeys() = default;
    AccessKeys(const AccessKeys&) = delete;
    AccessKeys& operator=(const AccessKeys&) = delete;
    ~AccessKeys();

    const std::wstring& Letters() const { return letters_; }
    void Letters(std::wstring_view letters);

    // Fills in the keys; the table stays this object's, and valid until the letters change.
    void Describe(CONTROLINFO& info) const;
    // The letter that a message of the keyboard stands for, the first letter when it is none of them; 0
    // without letters. message may be null.
    wchar_t LetterOf(MSG* message) const;

private:
    std::wstring letters_;
    HACCEL table_ = nullptr;
    WORD size_ = 0;
};

} // namespace kiv
