#include "tests/hostile/fuzz/OddStorage.h"

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"
#include "tests/support/TestStream.h"
#include "tests/support/Text.h"

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

class OddStorage final : public ComObject<IStorage>
{
public:
    OddStorage(std::vector<std::uint8_t> contents, const OddStorageManners& manners) :
        contents_(std::move(contents)), manners_(manners)
    {
    }

    HRESULT STDMETHODCALLTYPE CreateStream(LPCOLESTR, DWORD, DWORD, DWORD, IStream** stream) noexcept override
    {
        *stream = nullptr;
        const auto made = MakeCom<TestStream>();
        if (manners_.WritesShort)
            made->WriteShortPast(manners_.Room);
        else
            made->FailPast(manners_.Room);
        return Give(made, manners_.Making, stream);
    }
    HRESULT STDMETHODCALLTYPE OpenStream(LPCOLESTR, void*, DWORD, DWORD, IStream** stream) noexcept override
    {
        *stream = nullptr;
        const auto opened = MakeCom<TestStream>(contents_);
        opened->FailReadsPast(manners_.Readable);
        return Give(opened, manners_.Opening, stream);
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
    HRESULT STDMETHODCALLTYPE Commit(DWORD) noexcept override { return manners_.Making; }
    HRESULT STDMETHODCALLTYPE Revert() noexcept override { return S_OK; }
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
    HRESULT STDMETHODCALLTYPE SetClass(REFCLSID) noexcept override { return manners_.Making; }
    HRESULT STDMETHODCALLTYPE SetStateBits(DWORD, DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG*, DWORD) noexcept override { return E_NOTIMPL; }

private:
    HRESULT Give(ComPtr<IStream> made, HRESULT answer, IStream** stream) const
    {
        if (SUCCEEDED(answer) && !manners_.NoStream)
            *stream = made.Detach();
        return answer;
    }

    std::vector<std::uint8_t> contents_;
    const OddStorageManners manners_;
};

} // namespace

std::string OddStorageManners::Describe() const
{
    return "answers " + Hr(Opening) + " and " + Hr(Making) + (NoStream ? " without a stream" : "");
}

OddStorageManners AnyManners(Random& random)
{
    static constexpr HRESULT Answers[] = {STG_E_FILENOTFOUND, STG_E_ACCESSDENIED, STG_E_DOCFILECORRUPT,
                                          E_OUTOFMEMORY,      E_UNEXPECTED,       S_FALSE};
    OddStorageManners manners;
    if (random.OneIn(6))
        manners.Opening = random.Pick(Answers);
    if (random.OneIn(6))
        manners.Making = random.Pick(Answers);
    manners.NoStream = random.OneIn(20);
    if (random.OneIn(6))
        manners.Readable = random.Below(1000);
    if (random.OneIn(6))
        manners.Room = random.Below(1000);
    manners.WritesShort = random.OneIn(2);
    return manners;
}

ComPtr<IStorage> MakeOddStorage(std::vector<std::uint8_t> contents, const OddStorageManners& manners)
{
    return MakeCom<OddStorage>(std::move(contents), manners);
}

} // namespace kiv::test
