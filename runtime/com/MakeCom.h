#pragma once

#include <wrl/client.h>

#include <utility>

namespace kiv
{

// A new ComObject in the hands of its first owner.
template<class Object, class... Arguments>
Microsoft::WRL::ComPtr<Object> MakeCom(Arguments&&... arguments)
{
    Microsoft::WRL::ComPtr<Object> made;
    made.Attach(new Object(std::forward<Arguments>(arguments)...));
    return made;
}

} // namespace kiv
