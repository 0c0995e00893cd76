// Giving by-reference arguments back to the control that raises an event.

#include "host/container/EventRecord.h"

#include <gtest/gtest.h>

namespace kiv::test
{

namespace
{

host::EventRecord Record(std::initializer_list<const wchar_t*> names)
{
    host::EventRecord record;
    for (const wchar_t* name : names)
        record.Arguments.push_back({name, Variant()});
    return record;
}

TEST(EventRecord, ReturnsByTheDeclaredPlace)
{
    VARIANT_BOOL cancel = VARIANT_FALSE;
    short key = 65;
    VARIANT raisedArguments[2] = {};
    V_VT(&raisedArguments[0]) = VT_BYREF | VT_I2; // the last one first
    V_I2REF(&raisedArguments[0]) = &key;
    V_VT(&raisedArguments[1]) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&raisedArguments[1]) = &cancel;
    DISPPARAMS raised = {raisedArguments, nullptr, 2, 0};
    const host::EventRecord record = Record({L"Cancel", L"KeyAscii"});

    EXPECT_TRUE(host::Return(record, raised, L"CANCEL", Variant(true)));
    EXPECT_EQ(cancel, VARIANT_TRUE);
    EXPECT_TRUE(host::Return(record, raised, L"KeyAscii", Variant(0L)));
    EXPECT_EQ(key, 0);
    EXPECT_FALSE(host::Return(record, raised, L"KeyAscii", Variant(L"no number")));
    EXPECT_FALSE(host::Return(record, raised, L"Shift", Variant(0L)));
}

TEST(EventRecord, ReturnsToNamedArguments)
{
    long first = 1;
    long second = 2;
    VARIANT raisedArguments[2] = {};
    V_VT(&raisedArguments[0]) = VT_BYREF | VT_I4;
    V_I4REF(&raisedArguments[0]) = &second;
    V_VT(&raisedArguments[1]) = VT_BYREF | VT_I4;
    V_I4REF(&raisedArguments[1]) = &first;
    DISPID named[] = {1};
    DISPPARAMS raised = {raisedArguments, named, 2, 1};
    const host::EventRecord record = Record({L"First", L"Second"});
    EXPECT_TRUE(host::Return(record, raised, L"Second", Variant(20L)));
    EXPECT_TRUE(host::Return(record, raised, L"First", Variant(10L)));
    EXPECT_EQ(first, 10);
    EXPECT_EQ(second, 20);
}

TEST(EventRecord, ReturnsTextsAndVariants)
{
    BSTR text = SysAllocString(L"before");
    Variant any(L"before");
    VARIANT raisedArguments[2] = {};
    V_VT(&raisedArguments[0]) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&raisedArguments[0]) = any.Borrow();
    V_VT(&raisedArguments[1]) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&raisedArguments[1]) = &text;
    DISPPARAMS raised = {raisedArguments, nullptr, 2, 0};
    const host::EventRecord record = Record({L"Text", L"Any"});
    EXPECT_TRUE(host::Return(record, raised, L"Text", Variant(L"after")));
    EXPECT_STREQ(text, L"after");
    EXPECT_TRUE(host::Return(record, raised, L"Any", Variant(5L)));
    EXPECT_EQ(any.Long(), 5);
    SysFreeString(text);
}

TEST(EventRecord, LeavesByValueArgumentsAlone)
{
    VARIANT argument = {};
    V_VT(&argument) = VT_I4;
    V_I4(&argument) = 1;
    DISPPARAMS raised = {&argument, nullptr, 1, 0};
    EXPECT_FALSE(host::Return(Record({L"Index"}), raised, L"Index", Variant(2L)));
    EXPECT_EQ(V_I4(&argument), 1);
}

} // namespace

} // namespace kiv::test
