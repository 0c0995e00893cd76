#include "tests/hostile/HostObjects.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "tests/hostile/Host.h"
#include "tests/support/LibraryTest.h"
#include "tests/support/MemoryStorage.h"
#include "tests/support/TestFont.h"

#include <ole2.h>
#include <olectl.h>

#include <map>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

template<class... Entries>
class Told : public ComObject<Entries...>
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        const HRESULT answer = host_.Arrived(name_, "QueryInterface");
        if (SUCCEEDED(answer))
            return ComObject<Entries...>::QueryInterface(iid, object);
        *object = nullptr;
        return answer;
    }
    ULONG STDMETHODCALLTYPE Release() noexcept override
    {
        host_.Arrived(name_, "Release");
        return ComObject<Entries...>::Release();
    }

protected:
    Told(Host& host, const char* name) : host_(host), name_(name) {}
    HRESULT Tell(const char* member) const noexcept { return host_.Arrived(name_, member); }
    Host& TheHost() const { return host_; }

private:
    Host& host_;
    const char* name_;
};

// Automation without names: an object that is asked by number only.
template<class... Entries>
class ToldDispatch : public Told<Entries...>
{
public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override
    {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override
    {
        return DISP_E_UNKNOWNNAME;
    }

protected:
    using Told<Entries...>::Told;
};

class Site final
    : public ToldDispatch<IOleClientSite, Chain<IOleInPlaceSite, IOleWindow>, IOleControlSite, IDispatch>
{
public:
    explicit Site(Host& host) : ToldDispatch(host, "Site") {}

    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return Tell("SaveObject"); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override
    {
        *moniker = nullptr;
        Tell("GetMoniker");
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override
    {
        *container = nullptr;
        Tell("GetContainer");
        return E_NOINTERFACE;
    }
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return Tell("ShowObject"); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return Tell("OnShowWindow"); }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override
    {
        return Tell("RequestNewObjectLayout");
    }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override
    {
        const HRESULT answer = Tell("GetWindow");
        *window = SUCCEEDED(answer) ? TheHost().Window() : nullptr;
        return answer;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override
    {
        return Tell("ContextSensitiveHelp");
    }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override { return Tell("CanInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override { return Tell("OnInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override { return Tell("OnUIActivate"); }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                               RECT* position, RECT* clip,
                                               OLEINPLACEFRAMEINFO* information) noexcept override
    {
        *frame = nullptr;
        *document = nullptr;
        const HRESULT answer = Tell("GetWindowContext");
        if (FAILED(answer))
            return answer;
        TheHost().Objects().Frame.CopyTo(frame);
        TheHost().Objects().Document.CopyTo(document);
        *position = TheHost().Place();
        *clip = {0, 0, 1000, 1000};
        *information = {information->cb, FALSE, TheHost().Window(), nullptr, 0};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return Tell("Scroll"); }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override { return Tell("OnUIDeactivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override { return Tell("OnInPlaceDeactivate"); }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return Tell("DiscardUndoState"); }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return Tell("DeactivateAndUndo"); }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) noexcept override
    {
        const RECT place = *position;
        const HRESULT answer = Tell("OnPosRectChange");
        if (const auto control = TheHost().Control<IOleInPlaceObject>(); control && SUCCEEDED(answer))
            control->SetObjectRects(&place, &place);
        return answer;
    }

    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override
    {
        return Tell("OnControlInfoChanged");
    }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override { return Tell("LockInPlaceActive"); }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** extended) noexcept override
    {
        *extended = nullptr;
        const HRESULT answer = Tell("GetExtendedControl");
        return SUCCEEDED(answer) ? TheHost().Objects().Extender.CopyTo(extended) : answer;
    }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) noexcept override
    {
        return Tell("TransformCoords");
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) noexcept override
    {
        return Tell("TranslateAccelerator");
    }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL) noexcept override { return Tell("OnFocus"); }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override { return Tell("ShowPropertyFrame"); }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO*, UINT*) noexcept override
    {
        const HRESULT answer = Tell("Ambient");
        if (FAILED(answer))
            return answer;
        if (member == DISPID_AMBIENT_USERMODE)
            Variant(true).DetachTo(result);
        else if (member == DISPID_AMBIENT_FONT)
            Variant(static_cast<IDispatch*>(TheHost().Objects().Font.Get())).DetachTo(result);
        else
            return DISP_E_MEMBERNOTFOUND;
        return S_OK;
    }
};

// The frame window, or the document's.
class Frame final : public Told<Chain<IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>>
{
public:
    Frame(Host& host, const char* name) : Told(host, name) {}

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override
    {
        *window = TheHost().Window();
        return Tell("GetWindow");
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override
    {
        return Tell("ContextSensitiveHelp");
    }
    HRESULT STDMETHODCALLTYPE GetBorder(RECT*) noexcept override { return Tell("GetBorder"); }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) noexcept override
    {
        return Tell("RequestBorderSpace");
    }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) noexcept override
    {
        return Tell("SetBorderSpace");
    }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) noexcept override
    {
        return Tell("SetActiveObject");
    }
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override
    {
        return Tell("InsertMenus");
    }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return Tell("SetMenu"); }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) noexcept override { return Tell("RemoveMenus"); }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) noexcept override { return Tell("SetStatusText"); }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override { return Tell("EnableModeless"); }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, WORD) noexcept override
    {
        return Tell("TranslateAccelerator");
    }
};

class Events final : public ToldDispatch<IDispatch>
{
public:
    explicit Events(Host& host) : ToldDispatch(host, "Events") {}

    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override
    {
        return Tell("Invoke");
    }
};

class Notify final : public Told<IPropertyNotifySink>
{
public:
    explicit Notify(Host& host) : Told(host, "Notify") {}

    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) noexcept override { return Tell("OnChanged"); }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) noexcept override { return Tell("OnRequestEdit"); }
};

class View final : public Told<IAdviseSink>
{
public:
    explicit View(Host& host) : Told(host, "View") {}

    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override { Tell("OnDataChange"); }
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) noexcept override { Tell("OnViewChange"); }
    void STDMETHODCALLTYPE OnRename(IMoniker*) noexcept override { Tell("OnRename"); }
    void STDMETHODCALLTYPE OnSave() noexcept override { Tell("OnSave"); }
    void STDMETHODCALLTYPE OnClose() noexcept override { Tell("OnClose"); }
};

class Bag final : public Told<IPropertyBag>
{
public:
    explicit Bag(Host& host) : Told(host, "Bag") {}

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override
    {
        const HRESULT answer = Tell("Read");
        if (FAILED(answer))
            return answer;
        const auto found = values_.find(name);
        if (found == values_.end())
            return E_INVALIDARG;
        return VariantCopy(value, found->second.Borrow());
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) noexcept override
    {
        const HRESULT answer = Tell("Write");
        // Objects are not kept: the bag would hold its host's own font, and be held by nobody.
        if (SUCCEEDED(answer) && V_VT(value) != VT_UNKNOWN && V_VT(value) != VT_DISPATCH)
            values_[name] = Variant(*value);
        return answer;
    }

private:
    std::map<std::wstring, Variant> values_;
};

class Log final : public Told<IErrorLog>
{
public:
    explicit Log(Host& host) : Told(host, "Log") {}

    HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR, EXCEPINFO*) noexcept override { return Tell("AddError"); }
};

// In front of a stream of the system's.
class Stream final : public Told<Chain<IStream, ISequentialStream>>
{
public:
    Stream(Host& host, ComPtr<IStream> stream) : Told(host, "Stream"), stream_(std::move(stream)) {}

    HRESULT STDMETHODCALLTYPE Read(void* target, ULONG size, ULONG* read) noexcept override
    {
        const HRESULT answer = Tell("Read");
        return SUCCEEDED(answer) ? stream_->Read(target, size, read) : answer;
    }
    HRESULT STDMETHODCALLTYPE Write(const void* source, ULONG size, ULONG* written) noexcept override
    {
        const HRESULT answer = Tell("Write");
        return SUCCEEDED(answer) ? stream_->Write(source, size, written) : answer;
    }
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin,
                                   ULARGE_INTEGER* position) noexcept override
    {
        const HRESULT answer = Tell("Seek");
        return SUCCEEDED(answer) ? stream_->Seek(move, origin, position) : answer;
    }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER size) noexcept override
    {
        const HRESULT answer = Tell("SetSize");
        return SUCCEEDED(answer) ? stream_->SetSize(size) : answer;
    }
    HRESULT STDMETHODCALLTYPE CopyTo(IStream* target, ULARGE_INTEGER size, ULARGE_INTEGER* read,
                                     ULARGE_INTEGER* written) noexcept override
    {
        const HRESULT answer = Tell("CopyTo");
        return SUCCEEDED(answer) ? stream_->CopyTo(target, size, read, written) : answer;
    }
    HRESULT STDMETHODCALLTYPE Commit(DWORD) noexcept override { return Tell("Commit"); }
    HRESULT STDMETHODCALLTYPE Revert() noexcept override { return Tell("Revert"); }
    HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override
    {
        return Tell("LockRegion");
    }
    HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override
    {
        return Tell("UnlockRegion");
    }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG* statistics, DWORD flags) noexcept override
    {
        const HRESULT answer = Tell("Stat");
        return SUCCEEDED(answer) ? stream_->Stat(statistics, flags) : answer;
    }
    HRESULT STDMETHODCALLTYPE Clone(IStream**) noexcept override
    {
        Tell("Clone");
        return E_NOTIMPL;
    }

private:
    ComPtr<IStream> stream_;
};

// In front of a storage of the system's.
class Storage final : public Told<IStorage>
{
public:
    explicit Storage(Host& host) : Told(host, "Storage"), storage_(MakeMemoryStorage()) {}

    HRESULT STDMETHODCALLTYPE CreateStream(LPCOLESTR name, DWORD mode, DWORD, DWORD,
                                           IStream** stream) noexcept override
    {
        *stream = nullptr;
        const HRESULT answer = Tell("CreateStream");
        return SUCCEEDED(answer)
                   ? Wrapped([&](IStream** made) { return storage_->CreateStream(name, mode, 0, 0, made); },
                             stream)
                   : answer;
    }
    HRESULT STDMETHODCALLTYPE OpenStream(LPCOLESTR name, void*, DWORD mode, DWORD,
                                         IStream** stream) noexcept override
    {
        *stream = nullptr;
        const HRESULT answer = Tell("OpenStream");
        return SUCCEEDED(answer)
                   ? Wrapped(
                         [&](IStream** made) { return storage_->OpenStream(name, nullptr, mode, 0, made); },
                         stream)
                   : answer;
    }
    HRESULT STDMETHODCALLTYPE CreateStorage(LPCOLESTR, DWORD, DWORD, DWORD, IStorage**) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE OpenStorage(LPCOLESTR, IStorage*, DWORD, SNB, DWORD,
                                          IStorage**) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CopyTo(DWORD, const IID*, SNB, IStorage*) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE MoveElementTo(LPCOLESTR, IStorage*, LPCOLESTR, DWORD) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Commit(DWORD) noexcept override { return Tell("Commit"); }
    HRESULT STDMETHODCALLTYPE Revert() noexcept override { return Tell("Revert"); }
    HRESULT STDMETHODCALLTYPE EnumElements(DWORD, void*, DWORD, IEnumSTATSTG**) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DestroyElement(LPCOLESTR) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RenameElement(LPCOLESTR, LPCOLESTR) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetElementTimes(LPCOLESTR, const FILETIME*, const FILETIME*,
                                              const FILETIME*) noexcept override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetClass(REFCLSID) noexcept override { return Tell("SetClass"); }
    HRESULT STDMETHODCALLTYPE SetStateBits(DWORD, DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG*, DWORD) noexcept override { return E_NOTIMPL; }

private:
    template<class Make>
    HRESULT Wrapped(const Make& make, IStream** stream)
    {
        ComPtr<IStream> made;
        const HRESULT result = make(&made);
        if (SUCCEEDED(result))
            *stream = MakeCom<Stream>(TheHost(), made).Detach();
        return result;
    }

    ComPtr<IStorage> storage_;
};

// A font object of the host's own in front of one of the system's, which does the work and tells of changes.
class Font final : public ToldDispatch<Chain<IFontDisp, IDispatch>, IFont, IConnectionPointContainer>
{
public:
    explicit Font(Host& host) : ToldDispatch(host, "Font"), disp_(MakeFont())
    {
        Check(disp_.As(&font_));
        Check(disp_.As(&points_));
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID iid, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* argument) noexcept override
    {
        Tell("Invoke");
        return disp_->Invoke(member, iid, locale, flags, arguments, result, exception, argument);
    }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) noexcept override
    {
        const HRESULT answer = Tell("get_Name");
        return SUCCEEDED(answer) ? font_->get_Name(name) : answer;
    }
    HRESULT STDMETHODCALLTYPE put_Name(BSTR name) noexcept override { return font_->put_Name(name); }
    HRESULT STDMETHODCALLTYPE get_Size(CY* size) noexcept override
    {
        const HRESULT answer = Tell("get_Size");
        return SUCCEEDED(answer) ? font_->get_Size(size) : answer;
    }
    HRESULT STDMETHODCALLTYPE put_Size(CY size) noexcept override { return font_->put_Size(size); }
    HRESULT STDMETHODCALLTYPE get_Bold(BOOL* bold) noexcept override { return font_->get_Bold(bold); }
    HRESULT STDMETHODCALLTYPE put_Bold(BOOL bold) noexcept override { return font_->put_Bold(bold); }
    HRESULT STDMETHODCALLTYPE get_Italic(BOOL* italic) noexcept override { return font_->get_Italic(italic); }
    HRESULT STDMETHODCALLTYPE put_Italic(BOOL italic) noexcept override { return font_->put_Italic(italic); }
    HRESULT STDMETHODCALLTYPE get_Underline(BOOL* underline) noexcept override
    {
        return font_->get_Underline(underline);
    }
    HRESULT STDMETHODCALLTYPE put_Underline(BOOL underline) noexcept override
    {
        return font_->put_Underline(underline);
    }
    HRESULT STDMETHODCALLTYPE get_Strikethrough(BOOL* through) noexcept override
    {
        return font_->get_Strikethrough(through);
    }
    HRESULT STDMETHODCALLTYPE put_Strikethrough(BOOL through) noexcept override
    {
        return font_->put_Strikethrough(through);
    }
    HRESULT STDMETHODCALLTYPE get_Weight(SHORT* weight) noexcept override
    {
        return font_->get_Weight(weight);
    }
    HRESULT STDMETHODCALLTYPE put_Weight(SHORT weight) noexcept override { return font_->put_Weight(weight); }
    HRESULT STDMETHODCALLTYPE get_Charset(SHORT* charset) noexcept override
    {
        return font_->get_Charset(charset);
    }
    HRESULT STDMETHODCALLTYPE put_Charset(SHORT charset) noexcept override
    {
        return font_->put_Charset(charset);
    }
    HRESULT STDMETHODCALLTYPE get_hFont(HFONT* handle) noexcept override
    {
        const HRESULT answer = Tell("get_hFont");
        return SUCCEEDED(answer) ? font_->get_hFont(handle) : answer;
    }
    HRESULT STDMETHODCALLTYPE Clone(IFont** clone) noexcept override
    {
        const HRESULT answer = Tell("Clone");
        return SUCCEEDED(answer) ? font_->Clone(clone) : answer;
    }
    HRESULT STDMETHODCALLTYPE IsEqual(IFont* other) noexcept override { return font_->IsEqual(other); }
    HRESULT STDMETHODCALLTYPE SetRatio(LONG logical, LONG himetric) noexcept override
    {
        return font_->SetRatio(logical, himetric);
    }
    HRESULT STDMETHODCALLTYPE QueryTextMetrics(TEXTMETRICOLE* metrics) noexcept override
    {
        return font_->QueryTextMetrics(metrics);
    }
    HRESULT STDMETHODCALLTYPE AddRefHfont(HFONT handle) noexcept override
    {
        return font_->AddRefHfont(handle);
    }
    HRESULT STDMETHODCALLTYPE ReleaseHfont(HFONT handle) noexcept override
    {
        return font_->ReleaseHfont(handle);
    }
    HRESULT STDMETHODCALLTYPE SetHdc(HDC dc) noexcept override { return font_->SetHdc(dc); }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override
    {
        return points_->EnumConnectionPoints(points);
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override
    {
        *point = nullptr;
        const HRESULT answer = Tell("FindConnectionPoint");
        return SUCCEEDED(answer) ? points_->FindConnectionPoint(iid, point) : answer;
    }

private:
    ComPtr<IFontDisp> disp_;
    ComPtr<IFont> font_;
    ComPtr<IConnectionPointContainer> points_;
};

// What the container adds to a control: its name.
class Extender final : public ToldDispatch<IDispatch>
{
public:
    explicit Extender(Host& host) : ToldDispatch(host, "Extender") {}

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) noexcept override
    {
        *ids = 1;
        return Tell("GetIDsOfNames");
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) noexcept override
    {
        const HRESULT answer = Tell("Invoke");
        if (SUCCEEDED(answer))
            Variant(L"Control1").DetachTo(result);
        return answer;
    }
};

ComPtr<IStream> MemoryStream()
{
    ComPtr<IStream> stream;
    Check(CreateStreamOnHGlobal(nullptr, TRUE, &stream));
    return stream;
}

} // namespace

HostObjects::HostObjects(Host& host) :
    Site(MakeCom<test::Site>(host)),
    OtherSite(MakeCom<test::Site>(host)),
    Frame(MakeCom<test::Frame>(host, "Frame")),
    Document(MakeCom<test::Frame>(host, "Document")),
    Events(MakeCom<test::Events>(host)),
    Notify(MakeCom<test::Notify>(host)),
    View(MakeCom<test::View>(host)),
    Bag(MakeCom<test::Bag>(host)),
    Log(MakeCom<test::Log>(host)),
    Stream(MakeCom<test::Stream>(host, MemoryStream())),
    Storage(MakeCom<test::Storage>(host)),
    Font(MakeCom<test::Font>(host)),
    Extender(MakeCom<test::Extender>(host)),
    Database(SampleEnumRows())
{
    Database.OnCall([&host](const std::wstring&) { Check(host.Arrived("Database", "Call")); });
}

void HostObjects::Rewind() const
{
    Stream->Seek({}, STREAM_SEEK_SET, nullptr);
}

std::vector<std::string> HostObjects::Held() const
{
    std::vector<std::string> held;
    const std::pair<const char*, IUnknown*> all[] = {
        {"Site", Site.Get()},         {"OtherSite", OtherSite.Get()},
        {"Frame", Frame.Get()},       {"Document", Document.Get()},
        {"Events", Events.Get()},     {"Notify", Notify.Get()},
        {"View", View.Get()},         {"Bag", Bag.Get()},
        {"Log", Log.Get()},           {"Stream", Stream.Get()},
        {"Storage", Storage.Get()},   {"Font", Font.Get()},
        {"Extender", Extender.Get()}, {"Database", Database.Get()},
    };
    for (const auto& [name, object] : all)
    {
        if (References(object) != 1)
            held.emplace_back(name);
    }
    return held;
}

} // namespace kiv::test
