#pragma once

#include <windows.h>

#include <unknwn.h>
#include <wrl/client.h>

#include <map>
#include <string>

namespace kiv::host
{

// Makes controls by their ProgIDs, and asks the system for each class only once: a form has many controls of
// a few classes.
class ControlClasses
{
public:
    // False for a ProgID that nothing is registered for.
    bool Knows(const std::wstring& progId);
    // Throws ComError.
    Microsoft::WRL::ComPtr<IUnknown> Make(const std::wstring& progId);

private:
    struct ControlClass
    {
        CLSID Id = {};
        bool IsKnown = false;
        Microsoft::WRL::ComPtr<IClassFactory> Factory; // from the first control on
    };

    ControlClass& Find(const std::wstring& progId);

    std::map<std::wstring, ControlClass> classes_;
};

} // namespace kiv::host
