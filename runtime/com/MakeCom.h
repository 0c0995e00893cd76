#pragma once

#include <wrl/client.h>

#include <utility>

namespace kiv
{

// A reference that somebody has counted already, in the hands of an owner. Not ComPtr::Attach, which in
// mingw-w64 counts once more.
template<class Interface>
Microsoft::WRL::ComPtr<Interface> TakeOver(Interface* counted)
{
    const Microsoft::WRL::ComPtr<Interface> taken(counted);
    if (counted)
        counted->Release();
    return taken;
}

// A new ComObject in the hands of its first owner.
template<class Object, class... Arguments>
Microsoft::WRL::ComPtr<Object> MakeCom(Arguments&&... arguments)
{
    return TakeOver(new Object(std::forward<Arguments>(arguments)...));
}

} // namespace kiv
