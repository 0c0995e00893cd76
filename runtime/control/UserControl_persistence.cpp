#include "runtime/control/UserControl.h"

#include "runtime/core/Scoped.h"

using Microsoft::WRL::ComPtr;

namespace kiv
{

namespace
{

// The stream that holds a control's properties in a structured storage.
constexpr wchar_t ContentsName[] = L"Contents";

} // namespace

// A host that neither makes a control new nor loads it before using it gets a new one.
void UserControl::EnsureInitialized()
{
    if (!hasProperties_ && !loading_)
        MakeNew();
}

// A new control is yet to be saved.
void UserControl::MakeNew()
{
    LoadFrom([&] { UserControl_InitProperties(); });
    dirty_ = true;
}

// Runs one of the procedures that give a control all its properties; nothing is notified meanwhile.
void UserControl::LoadFrom(const std::function<void()>& read)
{
    const ComPtr<IUnknown> held(Outer());
    {
        const Scoped<bool> loading(loading_, true);
        surface_.Reset();
        read();
    }
    hasProperties_ = true;
    dirty_ = false;
    UserControl_Resize();
    TellAccessKeys();
    Refresh();
}

void UserControl::LoadFrom(const PropertyStream& stream)
{
    if (stream.WidthHimetric < 0 || stream.HeightHimetric < 0)
        throw DamagedStream("a control of a negative size");
    StreamPropertyBag bag(stream);
    LoadFrom([&] { UserControl_ReadProperties(bag); });
    SetSize({stream.WidthHimetric, stream.HeightHimetric});
}

PropertyStream UserControl::Saved()
{
    EnsureInitialized();
    StreamPropertyBag bag;
    UserControl_WriteProperties(bag);
    return {extent_.cx, extent_.cy, bag.Take()};
}

HRESULT UserControl::GetClassID(CLSID* clsid) noexcept
{
    if (!clsid)
        return E_POINTER;
    *clsid = class_.Clsid;
    return S_OK;
}

HRESULT UserControl::IsDirty() noexcept
{
    return dirty_ ? S_OK : S_FALSE;
}

HRESULT UserControl::InitNew() noexcept
{
    return Entry([&] { MakeNew(); });
}

// A load that fails leaves the control as a new one.
HRESULT UserControl::LoadOrInitNew(const std::function<void()>& load) noexcept
{
    // What is read from may release the control.
    const ComPtr<IUnknown> held(Outer());
    const HRESULT result = Boundary(load);
    if (FAILED(result))
        InitNew();
    return result;
}

HRESULT UserControl::Load(IPropertyBag* bag, IErrorLog* log) noexcept
{
    if (!bag)
        return E_POINTER;
    return LoadOrInitNew([&] {
        ContainerPropertyBag properties(bag, log, class_.Name);
        LoadFrom([&] { UserControl_ReadProperties(properties); });
    });
}

HRESULT UserControl::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) noexcept
{
    if (!bag)
        return E_POINTER;
    return Entry([&] {
        EnsureInitialized();
        ContainerPropertyBag properties(bag, nullptr, class_.Name);
        UserControl_WriteProperties(properties);
        if (clearDirty)
            dirty_ = false;
    });
}

HRESULT UserControl::Load(IStream* stream) noexcept
{
    if (!stream)
        return E_POINTER;
    return LoadOrInitNew([&] { LoadFrom(ReadPropertyStream(stream)); });
}

HRESULT UserControl::Save(IStream* stream, BOOL clearDirty) noexcept
{
    if (!stream)
        return E_POINTER;
    return Entry([&] {
        WritePropertyStream(stream, Saved());
        if (clearDirty)
            dirty_ = false;
    });
}

HRESULT UserControl::GetSizeMax(ULARGE_INTEGER* size) noexcept
{
    if (!size)
        return E_POINTER;
    return Entry([&] { size->QuadPart = EncodePropertyStream(Saved()).size(); });
}

HRESULT UserControl::InitNew(IStorage* storage) noexcept
{
    return storage ? InitNew() : E_POINTER;
}

HRESULT UserControl::Load(IStorage* storage) noexcept
{
    if (!storage)
        return E_POINTER;
    return LoadOrInitNew([&] {
        ComPtr<IStream> stream;
        Check(storage->OpenStream(ContentsName, nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream));
        LoadFrom(ReadPropertyStream(stream.Get()));
    });
}

// Nothing of the storage is kept between calls, so that its scribble and hands-off states come to the same.
HRESULT UserControl::Save(IStorage* storage, BOOL sameAsLoad) noexcept
{
    if (!storage)
        return E_POINTER;
    return Entry([&] {
        ComPtr<IStream> stream;
        Check(storage->CreateStream(ContentsName, STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                    &stream));
        Check(Save(stream.Get(), FALSE));
        savedToOwnStorage_ = sameAsLoad != FALSE;
    });
}

// A storage named here is the one that was saved to and is the control's own from now on.
HRESULT UserControl::SaveCompleted(IStorage* storage) noexcept
{
    if (std::exchange(savedToOwnStorage_, false) || storage)
        dirty_ = false;
    return S_OK;
}

HRESULT UserControl::HandsOffStorage() noexcept
{
    return S_OK;
}

} // namespace kiv
