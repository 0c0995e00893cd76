#pragma once

#include <windows.h>

#include <string>

namespace kiv::test
{

// For this process another key stands for HKEY_CLASSES_ROOT as long as this object lives. Throws ComError.
class RedirectedClasses
{
public:
    // What is registered for the current user only, and for all users only.
    static RedirectedClasses OfCurrentUser();
    static RedirectedClasses OfAllUsers();

    RedirectedClasses(const RedirectedClasses&) = delete;
    RedirectedClasses& operator=(const RedirectedClasses&) = delete;
    ~RedirectedClasses();

protected:
    RedirectedClasses(HKEY root, const std::wstring& path);
    HKEY Key() const { return key_; }

private:
    HKEY key_ = nullptr;
};

// A root that takes no class and keeps the type library that is there, as the one for all users does against
// who may not change it.
class RefusingClasses : public RedirectedClasses
{
public:
    // typeLibrary: its identifier, as the registry writes it.
    explicit RefusingClasses(const std::wstring& typeLibrary);
    ~RefusingClasses();
};

} // namespace kiv::test
