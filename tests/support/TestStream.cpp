#include "tests/support/TestStream.h"

#include <algorithm>
#include <cstring>

namespace kiv::test
{

HRESULT TestStream::Read(void* target, ULONG size, ULONG* read) noexcept
{
    const std::size_t left = position_ < bytes_.size() ? bytes_.size() - position_ : 0;
    const std::size_t taken = std::min<std::size_t>(size, left);
    if (read)
        *read = 0;
    if (position_ + taken > readable_)
        return STG_E_READFAULT;
    if (taken != 0)
        std::memcpy(target, bytes_.data() + position_, taken);
    position_ += taken;
    if (read)
        *read = static_cast<ULONG>(taken);
    return taken == size ? S_OK : S_FALSE;
}

HRESULT TestStream::Write(const void* source, ULONG size, ULONG* written) noexcept
{
    const std::size_t room = capacity_ > position_ ? capacity_ - position_ : 0;
    const std::size_t taken = std::min<std::size_t>(size, room);
    if (written)
        *written = 0;
    if (taken < size && !shortWrites_)
        return STG_E_MEDIUMFULL;
    if (position_ + taken > bytes_.size())
        bytes_.resize(position_ + taken);
    if (taken != 0)
        std::memcpy(bytes_.data() + position_, source, taken);
    position_ += taken;
    if (written)
        *written = static_cast<ULONG>(taken);
    return S_OK;
}

HRESULT TestStream::Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* position) noexcept
{
    const std::size_t base = origin == STREAM_SEEK_SET   ? 0
                             : origin == STREAM_SEEK_CUR ? position_
                                                         : bytes_.size();
    position_ = static_cast<std::size_t>(static_cast<LONGLONG>(base) + move.QuadPart);
    if (position)
        position->QuadPart = position_;
    return S_OK;
}

HRESULT TestStream::SetSize(ULARGE_INTEGER size) noexcept
{
    bytes_.resize(static_cast<std::size_t>(size.QuadPart));
    return S_OK;
}

HRESULT TestStream::CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*, ULARGE_INTEGER*) noexcept
{
    return E_NOTIMPL;
}

HRESULT TestStream::Commit(DWORD) noexcept
{
    return S_OK;
}

HRESULT TestStream::Revert() noexcept
{
    return S_OK;
}

HRESULT TestStream::LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept
{
    return STG_E_INVALIDFUNCTION;
}

HRESULT TestStream::UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) noexcept
{
    return STG_E_INVALIDFUNCTION;
}

HRESULT TestStream::Stat(STATSTG* statistics, DWORD) noexcept
{
    *statistics = {};
    statistics->type = STGTY_STREAM;
    statistics->cbSize.QuadPart = bytes_.size();
    return S_OK;
}

HRESULT TestStream::Clone(IStream**) noexcept
{
    return E_NOTIMPL;
}

} // namespace kiv::test
