#pragma once

#include <ocidl.h>
#include <oleidl.h>
#include <wrl/client.h>

namespace kiv::test
{

class Host;

// Where a control is on the host's form, with all that a site can answer.
Microsoft::WRL::ComPtr<IOleClientSite> MakeSite(Host& host);

// The frame window, or the document's; it has the interfaces of both.
Microsoft::WRL::ComPtr<IOleInPlaceFrame> MakeFrame(Host& host, const char* name);

} // namespace kiv::test
