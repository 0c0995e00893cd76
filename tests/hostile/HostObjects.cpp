#include "tests/hostile/HostObjects.h"

#include "runtime/com/Bstr.h"
#include "runtime/com/MakeCom.h"
#include "tests/hostile/HostSite.h"
#include "tests/hostile/Told.h"
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

class Events final : public ToldDispatch<IDispatch>
{
public:
    explicit Events(Host& host) : ToldDispatch(host, "Events") {}

    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return Tell("Invoke");
    }
};

class Notify final : public Told<IPropertyNotifySink>
{
public:
    explicit Notify(Host& host) : Told(host, "Notify") {}

    HRESULT STDMETHODCALLTYPE OnChanged(DISPID) override { return Tell("OnChanged"); }
    HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID) override { return Tell("OnRequestEdit"); }
};

class View final : public Told<IAdviseSink>
{
public:
    explicit View(Host& host) : Told(host, "View") {}

    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override { TellQuietly("OnDataChange"); }
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { Tell("OnViewChange"); }
    void STDMETHODCALLTYPE OnRename(IMoniker*) override { TellQuietly("OnRename"); }
    void STDMETHODCALLTYPE OnSave() override { TellQuietly("OnSave"); }
    void STDMETHODCALLTYPE OnClose() override { TellQuietly("OnClose"); }
};

class Bag final : public Told<IPropertyBag>
{
public:
    explicit Bag(Host& host) : Told(host, "Bag") {}

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override
    {
        const HRESULT answer = Tell("Read");
        if (FAILED(answer))
            return answer;
        const auto found = values_.find(name);
        if (found == values_.end())
            return E_INVALIDARG;
        return VariantCopy(value, found->second.Borrow());
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override
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

    HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR, EXCEPINFO*) override { return Tell("AddError"); }
};

// In front of a stream of the system's.
class Stream final : public Told<Chain<IStream, ISequentialStream>>
{
public:
    Stream(Host& host, ComPtr<IStream> stream) : Told(host, "Stream"), stream_(std::move(stream)) {}

    HRESULT STDMETHODCALLTYPE Read(void* target, ULONG size, ULONG* read) override
    {
        const HRESULT answer = Tell("Read");
        return SUCCEEDED(answer) ? stream_->Read(target, size, read) : answer;
    }
    HRESULT STDMETHODCALLTYPE Write(const void* source, ULONG size, ULONG* written) override
    {
        const HRESULT answer = Tell("Write");
        return SUCCEEDED(answer) ? stream_->Write(source, size, written) : answer;
    }
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* position) override
    {
        const HRESULT answer = Tell("Seek");
        return SUCCEEDED(answer) ? stream_->Seek(move, origin, position) : answer;
    }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER size) override
    {
        const HRESULT answer = Tell("SetSize");
        return SUCCEEDED(answer) ? stream_->SetSize(size) : answer;
    }
    HRESULT STDMETHODCALLTYPE CopyTo(IStream* target, ULARGE_INTEGER size, ULARGE_INTEGER* read,
                                     ULARGE_INTEGER* written) override
    {
        const HRESULT answer = Tell("CopyTo");
        return SUCCEEDED(answer) ? stream_->CopyTo(target, size, read, written) : answer;
    }
    HRESULT STDMETHODCALLTYPE Commit(DWORD) override { return Tell("Commit"); }
    HRESULT STDMETHODCALLTYPE Revert() override { return Tell("Revert"); }
    HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override
    {
        return Tell("LockRegion");
    }
    HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override
    {
        return Tell("UnlockRegion");
    }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG* statistics, DWORD flags) override
    {
        const HRESULT answer = Tell("Stat");
        return SUCCEEDED(answer) ? stream_->Stat(statistics, flags) : answer;
    }
    HRESULT STDMETHODCALLTYPE Clone(IStream**) override
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
                                           IStream** stream) override
    {
        *stream = nullptr;
        const HRESULT answer = Tell("CreateStream");
        return SUCCEEDED(answer)
                   ? Wrapped([&](IStream** made) { return storage_->CreateStream(name, mode, 0, 0, made); },
                             stream)
                   : answer;
    }
    HRESULT STDMETHODCALLTYPE OpenStream(LPCOLESTR name, void*, DWORD mode, DWORD, IStream** stream) override
    {
        *stream = nullptr;
        const HRESULT answer = Tell("OpenStream");
        return SUCCEEDED(answer)
                   ? Wrapped(
                         [&](IStream** made) { return storage_->OpenStream(name, nullptr, mode, 0, made); },
                         stream)
                   : answer;
    }
    HRESULT STDMETHODCALLTYPE CreateStorage(LPCOLESTR, DWORD, DWORD, DWORD, IStorage**) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE OpenStorage(LPCOLESTR, IStorage*, DWORD, SNB, DWORD, IStorage**) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CopyTo(DWORD, const IID*, SNB, IStorage*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE MoveElementTo(LPCOLESTR, IStorage*, LPCOLESTR, DWORD) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Commit(DWORD) override { return Tell("Commit"); }
    HRESULT STDMETHODCALLTYPE Revert() override { return Tell("Revert"); }
    HRESULT STDMETHODCALLTYPE EnumElements(DWORD, void*, DWORD, IEnumSTATSTG**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DestroyElement(LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RenameElement(LPCOLESTR, LPCOLESTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetElementTimes(LPCOLESTR, const FILETIME*, const FILETIME*,
                                              const FILETIME*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetClass(REFCLSID) override { return Tell("SetClass"); }
    HRESULT STDMETHODCALLTYPE SetStateBits(DWORD, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG*, DWORD) override { return E_NOTIMPL; }

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
                                     UINT* argument) override
    {
        Tell("Invoke");
        return disp_->Invoke(member, iid, locale, flags, arguments, result, exception, argument);
    }

    HRESULT STDMETHODCALLTYPE get_Name(BSTR* name) override
    {
        const HRESULT answer = Tell("get_Name");
        return SUCCEEDED(answer) ? font_->get_Name(name) : answer;
    }
    HRESULT STDMETHODCALLTYPE put_Name(BSTR name) override { return font_->put_Name(name); }
    HRESULT STDMETHODCALLTYPE get_Size(CY* size) override
    {
        const HRESULT answer = Tell("get_Size");
        return SUCCEEDED(answer) ? font_->get_Size(size) : answer;
    }
    HRESULT STDMETHODCALLTYPE put_Size(CY size) override { return font_->put_Size(size); }
    HRESULT STDMETHODCALLTYPE get_Bold(BOOL* bold) override { return font_->get_Bold(bold); }
    HRESULT STDMETHODCALLTYPE put_Bold(BOOL bold) override { return font_->put_Bold(bold); }
    HRESULT STDMETHODCALLTYPE get_Italic(BOOL* italic) override { return font_->get_Italic(italic); }
    HRESULT STDMETHODCALLTYPE put_Italic(BOOL italic) override { return font_->put_Italic(italic); }
    HRESULT STDMETHODCALLTYPE get_Underline(BOOL* underline) override
    {
        return font_->get_Underline(underline);
    }
    HRESULT STDMETHODCALLTYPE put_Underline(BOOL underline) override
    {
        return font_->put_Underline(underline);
    }
    HRESULT STDMETHODCALLTYPE get_Strikethrough(BOOL* through) override
    {
        return font_->get_Strikethrough(through);
    }
    HRESULT STDMETHODCALLTYPE put_Strikethrough(BOOL through) override
    {
        return font_->put_Strikethrough(through);
    }
    HRESULT STDMETHODCALLTYPE get_Weight(SHORT* weight) override { return font_->get_Weight(weight); }
    HRESULT STDMETHODCALLTYPE put_Weight(SHORT weight) override { return font_->put_Weight(weight); }
    HRESULT STDMETHODCALLTYPE get_Charset(SHORT* charset) override { return font_->get_Charset(charset); }
    HRESULT STDMETHODCALLTYPE put_Charset(SHORT charset) override { return font_->put_Charset(charset); }
    HRESULT STDMETHODCALLTYPE get_hFont(HFONT* handle) override
    {
        const HRESULT answer = Tell("get_hFont");
        return SUCCEEDED(answer) ? font_->get_hFont(handle) : answer;
    }
    HRESULT STDMETHODCALLTYPE Clone(IFont** clone) override
    {
        const HRESULT answer = Tell("Clone");
        return SUCCEEDED(answer) ? font_->Clone(clone) : answer;
    }
    HRESULT STDMETHODCALLTYPE IsEqual(IFont* other) override { return font_->IsEqual(other); }
    HRESULT STDMETHODCALLTYPE SetRatio(LONG logical, LONG himetric) override
    {
        return font_->SetRatio(logical, himetric);
    }
    HRESULT STDMETHODCALLTYPE QueryTextMetrics(TEXTMETRICOLE* metrics) override
    {
        return font_->QueryTextMetrics(metrics);
    }
    HRESULT STDMETHODCALLTYPE AddRefHfont(HFONT handle) override { return font_->AddRefHfont(handle); }
    HRESULT STDMETHODCALLTYPE ReleaseHfont(HFONT handle) override { return font_->ReleaseHfont(handle); }
    HRESULT STDMETHODCALLTYPE SetHdc(HDC dc) override { return font_->SetHdc(dc); }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override
    {
        return points_->EnumConnectionPoints(points);
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override
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

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override
    {
        *ids = 1;
        return Tell("GetIDsOfNames");
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override
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
    Site(MakeSite(host)),
    OtherSite(MakeSite(host)),
    Frame(MakeFrame(host, "Frame")),
    Document(MakeFrame(host, "Document")),
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
