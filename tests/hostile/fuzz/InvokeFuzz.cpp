// Late-bound calls of any member, and of none, with any arguments.

#include "runtime/com/Variant.h"
#include "tests/hostile/HostObjects.h"
#include "tests/hostile/fuzz/Attack.h"
#include "tests/hostile/fuzz/AttackTest.h"
#include "tests/hostile/fuzz/Exercise.h"
#include "tests/hostile/fuzz/OddMessages.h"
#include "tests/hostile/fuzz/OddValues.h"
#include "tests/support/StrayMessages.h"
#include "tests/support/Text.h"

#include <KivControls.h>

#include <algorithm>

using Microsoft::WRL::ComPtr;

namespace kiv::test
{

namespace
{

struct Call
{
    std::string Name;
    DISPID Member = DISPID_UNKNOWN;
    WORD Flags = DISPATCH_METHOD;
    std::vector<VARIANT> Arguments; // the last one first
    std::vector<DISPID> Names;

    std::string Describe() const
    {
        std::string text = Name + " (" + std::to_string(Member) + "), flags " + std::to_string(Flags) + ", " +
                           std::to_string(Names.size()) + " named, arguments from the last on:";
        for (const VARIANT& argument : Arguments)
            text += " " + OddValues::Show(argument) + ";";
        return text;
    }
};

// What a caller leaves out, he passes no address for.
void Run(IDispatch* object, Call& call, Random& random)
{
    DISPPARAMS arguments = {call.Arguments.data(), call.Names.data(),
                            static_cast<UINT>(call.Arguments.size()), static_cast<UINT>(call.Names.size())};
    VARIANT result = {};
    EXCEPINFO exception = {};
    UINT argument = 0;
    object->Invoke(call.Member, random.OneIn(50) ? IID_IUnknown : IID_NULL,
                   random.OneIn(4) ? static_cast<LCID>(random.Next()) : LOCALE_USER_DEFAULT, call.Flags,
                   random.OneIn(200) ? nullptr : &arguments, random.OneIn(4) ? nullptr : &result,
                   random.OneIn(4) ? nullptr : &exception, random.OneIn(4) ? nullptr : &argument);
    VariantClear(&result);
    if (exception.pfnDeferredFillIn)
        exception.pfnDeferredFillIn(&exception);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
}

class InvokeFuzzer : public Fuzzer
{
public:
    void End(Host&) override
    {
        values_.Clear();
        given_.clear();
    }

    std::string Try(Host& host, Random& random, const Tell& tell) override
    {
        values_.Clear();
        given_.clear();
        if (host.Class().HandlesMessages && host.ControlWindow() && random.OneIn(8))
        {
            SendMessageByCall(host, random, tell);
            return "";
        }
        if (random.OneIn(50))
        {
            AskForNames(host, random, tell);
            return "";
        }
        Call call = AnyCall(host, random);
        tell("calls " + call.Describe());
        Run(host.Control<IDispatch>().Get(), call, random);
        return "";
    }

private:
    Call AnyCall(Host& host, Random& random)
    {
        static constexpr WORD Flags[] = {DISPATCH_METHOD,
                                         DISPATCH_PROPERTYGET,
                                         DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                         DISPATCH_PROPERTYPUT,
                                         DISPATCH_PROPERTYPUTREF,
                                         DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF,
                                         0,
                                         0xFFFF};
        const Member& member = random.Pick(MembersOfClass(host));
        Call call{member.Name, member.Id, static_cast<WORD>(member.Kind), {}, {}};
        if (random.OneIn(8))
            call.Flags = random.Pick(Flags);
        if (random.OneIn(16))
            call.Member = static_cast<DISPID>(random.OddNumber());
        std::size_t count = member.Takes.size();
        if (random.OneIn(8))
            count = random.Below(6);
        for (std::size_t each = 0; each < count; ++each)
            call.Arguments.push_back(Argument(
                host, random, each < member.Takes.size() ? member.Takes[each] : VARTYPE{VT_VARIANT}));
        std::ranges::reverse(call.Arguments);
        const bool assigns = (call.Flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        if (assigns && !call.Arguments.empty() && !random.OneIn(16))
            call.Names.push_back(DISPID_PROPERTYPUT);
        else if (random.OneIn(12))
            for (std::size_t named = random.Below(call.Arguments.size() + 1); named > 0; --named)
                call.Names.push_back(random.OneIn(3) ? static_cast<DISPID>(random.OddNumber())
                                                     : static_cast<DISPID>(random.Below(4)));
        return call;
    }

    // One that fits, so that something comes of the call, or anything.
    VARIANT Argument(Host& host, Random& random, VARTYPE type)
    {
        if (random.OneIn(3))
            return values_.Any(random);
        given_.push_back(random.OneIn(2) && type != VT_PTR && type != VT_DISPATCH
                             ? Variant(OddValues::Text(random))
                             : ArgumentOf(type, random.Below(2), host.Objects().Font.Get(),
                                          host.Objects().Database.Get()));
        return given_.back().Get();
    }

    void SendMessageByCall(Host& host, Random& random, const Tell& tell)
    {
        const auto subclass = host.Control<ISubClass>();
        std::vector<HWND> windows = WindowsOf(host.ControlWindow());
        windows.push_back(host.Window());
        const HWND target = random.Pick(windows);
        const OddMessage message = messages_.Any(random, target, host.ControlWindow());
        if (message.Number == WM_LBUTTONDOWN || message.Number == WM_LBUTTONDBLCLK)
            PostMessageA(target, WM_LBUTTONUP, 0, 0);
        Call call{"WndProc", 0x60030000, DISPATCH_METHOD, {}, {}};
        for (const std::int64_t number :
             {static_cast<std::int64_t>(message.Second), static_cast<std::int64_t>(message.First),
              static_cast<std::int64_t>(message.Number), static_cast<std::int64_t>(HandleToLong(target))})
        {
            VARIANT argument = {};
            V_VT(&argument) = VT_I4;
            V_I4(&argument) = static_cast<LONG>(number);
            if (sizeof(LPARAM) == sizeof number && call.Arguments.size() < 2)
            {
                V_VT(&argument) = VT_I8;
                V_I8(&argument) = number;
            }
            call.Arguments.push_back(argument);
        }
        // No other value for the message's number: what it pointed to would be another message's.
        if (random.OneIn(8))
            call.Arguments[3] = values_.Any(random);
        tell("by call, " + message.Describe(target) + ": " + call.Describe());
        Run(subclass.Get(), call, random);
        ComPtr<ITypeInfo> info;
        subclass->GetTypeInfo(static_cast<UINT>(random.Below(3)), 0, &info);
    }

    static void AskForNames(Host& host, Random& random, const Tell& tell)
    {
        std::vector<std::wstring> texts(1 + random.Below(3));
        std::vector<LPOLESTR> names;
        for (std::wstring& text : texts)
        {
            text = random.OneIn(2) ? Widen(random.Pick(MembersOfClass(host)).Name) : OddValues::Text(random);
            names.push_back(text.data());
        }
        tell("asks for the name " + Narrow(texts.front().substr(0, 40)));
        std::vector<DISPID> ids(names.size());
        const auto control = host.Control<IDispatch>();
        control->GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                               static_cast<LCID>(random.OddNumber()), ids.data());
        ComPtr<ITypeInfo> info;
        control->GetTypeInfo(static_cast<UINT>(random.OddNumber()), 0, &info);
    }

    OddValues values_;
    std::vector<Variant> given_;
    OddMessages messages_;
};

using FuzzInvoke = AttackTest;

TEST_F(FuzzInvoke, LeavesTheControlWhole)
{
    InvokeFuzzer fuzzer;
    RunAttack("FuzzInvoke", fuzzer);
}

} // namespace

} // namespace kiv::test
