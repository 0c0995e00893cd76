// Class objects and the identity of what they make, alone and inside an aggregate.

#include "tests/support/LibraryTest.h"
#include "tests/support/Text.h"

#include "runtime/com/CategorizeProperties.h"
#include "runtime/com/Errors.h"

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct NamedInterface
{
    const char* Name;
    IID Id;
};

// All that a host may ask a YesNo for.
const std::vector<NamedInterface>& InterfacesOfYesNo()
{
    static const std::vector<NamedInterface> interfaces = {
        {"IUnknown", IID_IUnknown},
        {"IDispatch", IID_IDispatch},
        {"_YesNo", IID__YesNo},
        {"ISubClass", IID_ISubClass},
        {"IOleObject", IID_IOleObject},
        {"IOleControl", IID_IOleControl},
        {"IOleWindow", IID_IOleWindow},
        {"IOleInPlaceObject", IID_IOleInPlaceObject},
        {"IOleInPlaceActiveObject", IID_IOleInPlaceActiveObject},
        {"IViewObject", IID_IViewObject},
        {"IViewObject2", IID_IViewObject2},
        {"IPersist", IID_IPersist},
        {"IPersistPropertyBag", IID_IPersistPropertyBag},
        {"IPersistStreamInit", IID_IPersistStreamInit},
        {"IPersistStorage", IID_IPersistStorage},
        {"IProvideClassInfo", IID_IProvideClassInfo},
        {"IProvideClassInfo2", IID_IProvideClassInfo2},
        {"IConnectionPointContainer", IID_IConnectionPointContainer},
        {"IQuickActivate", IID_IQuickActivate},
        {"ISupportErrorInfo", IID_ISupportErrorInfo},
        {"IPerPropertyBrowsing", IID_IPerPropertyBrowsing},
        {"ICategorizeProperties", CategorizePropertiesId},
    };
    return interfaces;
}

// Somebody else's object with a control inside, which it shows to the outside as its own.
class Aggregate final : public IUnknown
{
public:
    void Hold(ComPtr<IUnknown> inner) { inner_ = std::move(inner); }
    IUnknown* Inner() const { return inner_.Get(); }
    void LetGo() { inner_.Reset(); }
    ULONG References() const { return references_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) noexcept override
    {
        if (iid != IID_IUnknown)
            return inner_ ? inner_->QueryInterface(iid, object) : E_NOINTERFACE;
        *object = static_cast<IUnknown*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references_; }
    // Lives on the stack of its test.
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references_; }

private:
    ComPtr<IUnknown> inner_;
    ULONG references_ = 1;
};

class FactoryTest : public LibraryTest
{
protected:
    ComPtr<IClassFactory> Factory() const
    {
        ComPtr<IClassFactory> factory;
        Check(TheLibrary().GetClassObject(CLSID_YesNo, IID_PPV_ARGS(&factory)));
        return factory;
    }
};

TEST_F(FactoryTest, HandsOutAClassObjectUnderItsInterfacesOnly)
{
    for (const IID& iid : {IID_IUnknown, IID_IClassFactory})
    {
        ComPtr<IUnknown> object;
        EXPECT_HRESULT_SUCCEEDED(TheLibrary().GetClassObject(CLSID_YesNo, iid, &object));
        EXPECT_NE(object.Get(), nullptr);
    }
    void* none = this;
    EXPECT_EQ(Hr(TheLibrary().GetClassObject(CLSID_YesNo, IID_IDispatch, &none)), Hr(E_NOINTERFACE));
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(Hr(TheLibrary().GetClassObject(CLSID_YesNo, IID_IUnknown, nullptr)), Hr(E_POINTER));
}

TEST_F(FactoryTest, KnowsNoOtherClasses)
{
    // The library's own identifier, those of interfaces, and somebody else's class.
    for (const GUID& clsid : {LIBID_KivControls, IID__YesNo, IID_ISubClass, CLSID_StdFont})
    {
        void* none = this;
        EXPECT_EQ(Hr(TheLibrary().GetClassObject(clsid, IID_IClassFactory, &none)),
                  Hr(CLASS_E_CLASSNOTAVAILABLE))
            << Narrow(GuidText(clsid));
        EXPECT_EQ(none, nullptr);
    }
}

TEST_F(FactoryTest, KeepsTheLibraryLoadedWhileLocked)
{
    const ComPtr<IClassFactory> factory = Factory();
    EXPECT_HRESULT_SUCCEEDED(factory->LockServer(TRUE));
    EXPECT_HRESULT_SUCCEEDED(factory->LockServer(TRUE));
    EXPECT_HRESULT_SUCCEEDED(factory->LockServer(FALSE));
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_FALSE));
    EXPECT_HRESULT_SUCCEEDED(factory->LockServer(FALSE));
}

TEST_F(FactoryTest, KeepsTheLibraryLoadedWhileAClassObjectLives)
{
    ComPtr<IClassFactory> factory = Factory();
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_FALSE));
    factory.Reset();
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_OK));
}

TEST_F(FactoryTest, KeepsTheLibraryLoadedWhileAnObjectLives)
{
    ComPtr<IUnknown> control = TheLibrary().Create(CLSID_YesNo);
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_FALSE));
    control.Reset();
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_OK));
}

TEST_F(FactoryTest, KeepsTheLibraryLoadedWhileAnEnumeratorLives)
{
    ComPtr<IConnectionPointContainer> container;
    ASSERT_HRESULT_SUCCEEDED(TheLibrary().Create(CLSID_YesNo).As(&container));
    ComPtr<IEnumConnectionPoints> points;
    ASSERT_HRESULT_SUCCEEDED(container->EnumConnectionPoints(&points));
    container.Reset();
    // Its code is the library's.
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_FALSE));
    ComPtr<IConnectionPoint> point;
    EXPECT_HRESULT_SUCCEEDED(points->Next(1, &point, nullptr));
}

TEST_F(FactoryTest, RefusesWhatIsNoInterfaceOfTheClass)
{
    void* none = this;
    EXPECT_EQ(Hr(Factory()->CreateInstance(nullptr, IID_IPersistFile, &none)), Hr(E_NOINTERFACE));
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(Hr(Factory()->CreateInstance(nullptr, IID_IUnknown, nullptr)), Hr(E_POINTER));
}

TEST_F(FactoryTest, MakesTheControlUnderAnyOfItsInterfaces)
{
    const ComPtr<IClassFactory> factory = Factory();
    for (const NamedInterface& each : InterfacesOfYesNo())
    {
        ComPtr<IUnknown> object;
        EXPECT_HRESULT_SUCCEEDED(factory->CreateInstance(nullptr, each.Id, &object)) << each.Name;
        EXPECT_NE(object.Get(), nullptr) << each.Name;
    }
}

// From each interface to each other one, and back to the one identity.
TEST_F(FactoryTest, HasOneIdentityBehindAllInterfaces)
{
    const ComPtr<IUnknown> identity = TheLibrary().Create(CLSID_YesNo);
    for (const NamedInterface& from : InterfacesOfYesNo())
    {
        ComPtr<IUnknown> first;
        ASSERT_HRESULT_SUCCEEDED(identity->QueryInterface(from.Id, &first)) << from.Name;
        ComPtr<IUnknown> again;
        ASSERT_HRESULT_SUCCEEDED(first->QueryInterface(from.Id, &again)) << from.Name;
        EXPECT_EQ(first.Get(), again.Get()) << from.Name << " answers differently when asked twice";
        for (const NamedInterface& to : InterfacesOfYesNo())
        {
            ComPtr<IUnknown> second;
            ASSERT_HRESULT_SUCCEEDED(first->QueryInterface(to.Id, &second)) << from.Name << " to " << to.Name;
            ComPtr<IUnknown> back;
            EXPECT_HRESULT_SUCCEEDED(second->QueryInterface(from.Id, &back))
                << to.Name << " to " << from.Name;
            ComPtr<IUnknown> root;
            EXPECT_HRESULT_SUCCEEDED(second->QueryInterface(IID_IUnknown, &root)) << to.Name;
            EXPECT_EQ(root.Get(), identity.Get()) << to.Name;
        }
    }
}

TEST_F(FactoryTest, AnswersToNothingThatItDoesNotImplement)
{
    const ComPtr<IUnknown> identity = TheLibrary().Create(CLSID_YesNo);
    for (const NamedInterface& each :
         {NamedInterface{"IPersistFile", IID_IPersistFile},
          NamedInterface{"IClassFactory", IID_IClassFactory}, NamedInterface{"__YesNo", DIID___YesNo},
          NamedInterface{"none", IID_NULL}})
    {
        void* none = this;
        EXPECT_EQ(Hr(identity->QueryInterface(each.Id, &none)), Hr(E_NOINTERFACE)) << each.Name;
        EXPECT_EQ(none, nullptr) << each.Name;
    }
    EXPECT_EQ(Hr(identity->QueryInterface(IID_IUnknown, nullptr)), Hr(E_POINTER));
}

TEST_F(FactoryTest, GivesAnAggregateItsIdentityOnly)
{
    Aggregate outer;
    void* none = this;
    for (const IID& iid : {IID_IDispatch, IID__YesNo, IID_IOleObject})
    {
        EXPECT_EQ(Hr(Factory()->CreateInstance(&outer, iid, &none)), Hr(CLASS_E_NOAGGREGATION));
        EXPECT_EQ(none, nullptr);
        none = this;
    }
    EXPECT_EQ(outer.References(), 1U);
}

TEST_F(FactoryTest, PartOfAnAggregateAnswersWithTheAggregatesIdentity)
{
    Aggregate outer;
    ComPtr<IUnknown> inner;
    ASSERT_HRESULT_SUCCEEDED(Factory()->CreateInstance(&outer, IID_IUnknown, &inner));
    EXPECT_NE(inner.Get(), &outer);
    EXPECT_EQ(outer.References(), 1U) << "a part does not count on its whole";
    outer.Hold(inner);
    inner.Reset();

    for (const NamedInterface& each : InterfacesOfYesNo())
    {
        ComPtr<IUnknown> object;
        ASSERT_HRESULT_SUCCEEDED(outer.QueryInterface(each.Id, &object)) << each.Name;
        EXPECT_EQ(outer.References(), 2U) << each.Name << " counts on the whole";
        ComPtr<IUnknown> root;
        ASSERT_HRESULT_SUCCEEDED(object->QueryInterface(IID_IUnknown, &root)) << each.Name;
        EXPECT_EQ(root.Get(), static_cast<IUnknown*>(&outer)) << each.Name;
    }
    EXPECT_EQ(outer.References(), 1U);
    ComPtr<IUnknown> own;
    ASSERT_HRESULT_SUCCEEDED(outer.Inner()->QueryInterface(IID_IUnknown, &own));
    EXPECT_EQ(own.Get(), outer.Inner()) << "asked for IUnknown, the inner identity answers with itself";
}

TEST_F(FactoryTest, PartOfAnAggregateCountsItsConnectionPointsOnTheWhole)
{
    Aggregate outer;
    ComPtr<IUnknown> inner;
    ASSERT_HRESULT_SUCCEEDED(Factory()->CreateInstance(&outer, IID_IUnknown, &inner));
    outer.Hold(inner);
    inner.Reset();
    ComPtr<IConnectionPointContainer> container;
    ASSERT_HRESULT_SUCCEEDED(outer.QueryInterface(IID_PPV_ARGS(&container)));
    ComPtr<IConnectionPoint> point;
    ASSERT_HRESULT_SUCCEEDED(container->FindConnectionPoint(DIID___YesNo, &point));
    ComPtr<IConnectionPointContainer> back;
    ASSERT_HRESULT_SUCCEEDED(point->GetConnectionPointContainer(&back));
    EXPECT_EQ(back.Get(), container.Get());
    container.Reset();
    back.Reset();
    EXPECT_EQ(outer.References(), 2U);
    point.Reset();
    EXPECT_EQ(outer.References(), 1U);
}

TEST_F(FactoryTest, PartOfAnAggregateLivesAsLongAsTheInnerReference)
{
    Aggregate outer;
    ComPtr<IUnknown> inner;
    ASSERT_HRESULT_SUCCEEDED(Factory()->CreateInstance(&outer, IID_IUnknown, &inner));
    outer.Hold(inner);
    inner.Reset();
    // The usual habit: a cached interface, whose reference is taken back from the whole.
    ComPtr<_YesNo> control;
    ASSERT_HRESULT_SUCCEEDED(outer.Inner()->QueryInterface(IID_PPV_ARGS(&control)));
    outer.Release();
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_FALSE));
    AnswerEnums value = Yes;
    EXPECT_HRESULT_SUCCEEDED(control->get_Value(&value));
    outer.AddRef();
    control.Reset();
    outer.LetGo();
    EXPECT_EQ(Hr(TheLibrary().CanUnloadNow()), Hr(S_OK));
    EXPECT_EQ(outer.References(), 1U);
}

} // namespace

} // namespace kiv::test
