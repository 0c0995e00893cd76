#pragma once

#include "runtime/com/ComObject.h"
#include "runtime/com/MakeCom.h"

#include <objidl.h>

#include <cstdint>
#include <vector>

namespace kiv::test
{

// A stream over bytes in memory that can be told to misbehave.
class TestStream final : public ComObject<Chain<IStream, ISequentialStream>>
{
public:
    explicit TestStream(std::vector<std::uint8_t> bytes = {}) : bytes_(std::move(bytes)) {}

    const std::vector<std::uint8_t>& Bytes() const { return bytes_; }
    std::size_t Position() const { return position_; }
    void Rewind() { position_ = 0; }

    // Writing past so many bytes fails with STG_E_MEDIUMFULL …
    void FailPast(std::size_t size) { capacity_ = size; }
    // … or succeeds with fewer bytes written than asked for.
    void WriteShortPast(std::size_t size)
    {
        capacity_ = size;
        shortWrites_ = true;
    }
    // Reading past so many bytes fails with STG_E_READFAULT.
    void FailReadsPast(std::size_t size) { readable_ = size; }

    HRESULT STDMETHODCALLTYPE Read(void* target, ULONG size, ULONG* read) noexcept override;
    HRESULT STDMETHODCALLTYPE Write(const void* source, ULONG size, ULONG* written) noexcept override;
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin,
                                   ULARGE_INTEGER* position) noexcept override;
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER size) noexcept override;
    HRESULT STDMETHODCALLTYPE CopyTo(IStream* target, ULARGE_INTEGER size, ULARGE_INTEGER* read,
                                     ULARGE_INTEGER* written) noexcept override;
    HRESULT STDMETHODCALLTYPE Commit(DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE Revert() noexcept override;
    HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE Stat(STATSTG* statistics, DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE Clone(IStream** clone) noexcept override;

private:
    std::vector<std::uint8_t> bytes_;
    std::size_t position_ = 0;
    std::size_t capacity_ = ~std::size_t{0};
    std::size_t readable_ = ~std::size_t{0};
    bool shortWrites_ = false;
};

} // namespace kiv::test
