#pragma once

#include "tests/com/TypeDescription.h"
#include "tests/support/LibraryTest.h"

namespace kiv::test
{

// Base of the tests that read the type library out of the library's file.
class TypeLibraryTest : public LibraryTest
{
protected:
    void SetUp() override
    {
        LibraryTest::SetUp();
        ASSERT_HRESULT_SUCCEEDED(LoadTypeLibEx(TheLibrary().Path().c_str(), REGKIND_NONE, &library_));
    }
    void TearDown() override
    {
        library_.Reset();
        LibraryTest::TearDown();
    }

    Microsoft::WRL::ComPtr<ITypeInfo> InfoOf(REFGUID guid) const
    {
        Microsoft::WRL::ComPtr<ITypeInfo> info;
        Check(library_->GetTypeInfoOfGuid(guid, &info));
        return info;
    }

    Microsoft::WRL::ComPtr<ITypeLib> library_;
};

} // namespace kiv::test
