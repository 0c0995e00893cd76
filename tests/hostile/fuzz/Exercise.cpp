#include "tests/hostile/fuzz/Exercise.h"

#include "tests/support/AutomationCalls.h"
#include "tests/support/TestStream.h"

#include <ole2.h>

#include <map>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

const std::vector<Member>& MembersOfClass(Host& host)
{
    static std::map<unsigned long, std::vector<Member>> known;
    auto found = known.find(host.Class().Class);
    if (found == known.end())
        found = known.emplace(host.Class().Class, MembersOf(host.Control<IDispatch>().Get())).first;
    return found->second;
}

void ReadEveryProperty(Host& host)
{
    const auto control = host.Control<IDispatch>();
    for (const Member& member : MembersOfClass(host))
    {
        if (member.Kind == INVOKE_PROPERTYGET && member.Takes.empty())
            Invoke(control.Get(), member.Id, DISPATCH_PROPERTYGET);
    }
}

void DrawOnce(Host& host)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    const RECTL bounds = {0, 0, 100, 30};
    host.Control<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr,
                                      nullptr, 0);
    DeleteDC(dc);
}

std::vector<std::uint8_t> SavedBytes(Host& host)
{
    const auto stream = MakeCom<TestStream>();
    const HRESULT saved = host.Control<IPersistStreamInit>()->Save(stream.Get(), FALSE);
    return SUCCEEDED(saved) ? stream->Bytes() : std::vector<std::uint8_t>();
}

HRESULT LoadBytes(Host& host, const std::vector<std::uint8_t>& bytes)
{
    return host.Control<IPersistStreamInit>()->Load(MakeCom<TestStream>(bytes).Get());
}

} // namespace kiv::test
