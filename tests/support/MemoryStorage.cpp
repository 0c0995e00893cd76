#include "tests/support/MemoryStorage.h"

#include "runtime/com/Errors.h"

#include <ole2.h>

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

ComPtr<IStorage> MakeMemoryStorage()
{
    ComPtr<ILockBytes> bytes;
    Check(CreateILockBytesOnHGlobal(nullptr, TRUE, &bytes));
    ComPtr<IStorage> storage;
    Check(StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                       &storage));
    return storage;
}

std::vector<std::pair<std::wstring, std::vector<std::uint8_t>>> ContentOf(IStorage* storage)
{
    std::vector<std::pair<std::wstring, std::vector<std::uint8_t>>> content;
    ComPtr<IEnumSTATSTG> elements;
    Check(storage->EnumElements(0, nullptr, 0, &elements));
    STATSTG element = {};
    while (elements->Next(1, &element, nullptr) == S_OK)
    {
        const std::wstring name = element.pwcsName;
        CoTaskMemFree(element.pwcsName);
        ComPtr<IStream> stream;
        Check(storage->OpenStream(name.c_str(), nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &stream));
        std::vector<std::uint8_t> bytes(static_cast<std::size_t>(element.cbSize.QuadPart));
        ULONG read = 0;
        Check(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read));
        bytes.resize(read);
        content.emplace_back(name, std::move(bytes));
    }
    std::ranges::sort(content);
    return content;
}

} // namespace kiv::test
