#pragma once

#include "runtime/com/Variant.h"
#include "tests/support/EnumDatabase.h"

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>
#include <wrl/client.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kiv::test
{

class Host;

// The objects that a host hands to a control. Each tells the host of every call, its being asked for an
// interface and its being let go of included, before it answers as a friendly one would.
struct HostObjects
{
    explicit HostObjects(Host& host);

    Microsoft::WRL::ComPtr<IOleClientSite> Site;
    Microsoft::WRL::ComPtr<IOleClientSite> OtherSite;
    Microsoft::WRL::ComPtr<IOleInPlaceFrame> Frame;
    Microsoft::WRL::ComPtr<IOleInPlaceUIWindow> Document;
    Microsoft::WRL::ComPtr<IDispatch> Events;
    Microsoft::WRL::ComPtr<IPropertyNotifySink> Notify;
    Microsoft::WRL::ComPtr<IAdviseSink> View;
    Microsoft::WRL::ComPtr<IPropertyBag> Bag;
    Microsoft::WRL::ComPtr<IErrorLog> Log;
    Microsoft::WRL::ComPtr<IStream> Stream;
    Microsoft::WRL::ComPtr<IStorage> Storage;
    Microsoft::WRL::ComPtr<IFontDisp> Font;
    Microsoft::WRL::ComPtr<IDispatch> Extender;
    EnumDatabase Database;

    void Rewind() const;
    // Those that somebody else holds a reference of, by name.
    std::vector<std::string> Held() const;
};

} // namespace kiv::test
