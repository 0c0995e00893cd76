#include "host/formfile/FormValue.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace kiv::host
{

namespace
{

using namespace std::string_literals;

FormValue Whole(std::int64_t number)
{
    return number;
}

struct Reading
{
    const char* Text;
    FormValue Value;
};

TEST(FormValue, ReadsEveryKind)
{
    const Reading readings[] = {
        {"True", true},
        {"fALSE", false},
        {"0", Whole(0)},
        {"1440", Whole(1440)},
        {"-20", Whole(-20)},
        {"&HFF", Whole(255)},
        {"&h7fffffff", Whole(0x7FFFFFFF)},
        {"&H8000000F", Whole(-2147483633)},
        {"&H8000000F&", Whole(-2147483633)},
        {"&HFFFFFFFF", Whole(-1)},
        {"&H100000000", Whole(0x100000000)},
        {"9223372036854775807", Whole(std::numeric_limits<std::int64_t>::max())},
        {"8.25", 8.25},
        {"-0.5", -0.5},
        {"1e3", 1000.0},
        {"\"\"", ""s},
        {"\"plain\"", "plain"s},
        {"\"a \"\"quoted\"\" word\"", "a \"quoted\" word"s},
        {"\"it's\"", "it's"s},
        {"\"one\" & Chr(13) & Chr(10) & \"two\"", "one\r\ntwo"s},
        {"chr(0)", "\0"s},
        {"\"a\"&\"b\"", "ab"s},
    };
    for (const Reading& reading : readings)
        EXPECT_EQ(ParseFormValue(reading.Text), reading.Value) << reading.Text;
}

TEST(FormValue, SaysWhatIsWrong)
{
    const std::pair<const char*, const char*> mistakes[] = {
        {"", "there is no value behind \"=\""},
        {"yes", "\"yes\" is no value: a number, True, False or a text in quotes is expected"},
        {"inf", "\"inf\" is no value: a number, True, False or a text in quotes is expected"},
        {"12px", "\"12px\" is no value: a number, True, False or a text in quotes is expected"},
        {"9223372036854775808", "the number 9223372036854775808 is too large"},
        {"1e999", "the number 1e999 is out of range"},
        {"&H", "\"&H\" is not a hexadecimal number"},
        {"&HXY", "\"&HXY\" is not a hexadecimal number"},
        {"&H10000000000000000", "the number &H10000000000000000 is too large"},
        {"\"open", "the text has no closing quote"},
        {"\"a\" b", "unexpected \"b\" behind the text"},
        {"\"a\" & 5", "a quoted text or Chr(code) must follow \"&\""},
        {"Chr(200)", "Chr takes a code from 0 to 127 in parentheses"},
        {"Chr(10", "Chr takes a code from 0 to 127 in parentheses"},
        {"Chr(", "Chr takes a code from 0 to 127 in parentheses"},
    };
    for (const auto& [text, message] : mistakes)
        try
        {
            ParseFormValue(text);
            ADD_FAILURE() << text << " was read";
        }
        catch (const std::invalid_argument& mistake)
        {
            EXPECT_STREQ(mistake.what(), message) << text;
        }
}

TEST(FormValue, WritesWhatReadsBackTheSame)
{
    const Reading writings[] = {
        {"True", true},
        {"False", false},
        {"-1", Whole(-1)},
        {"&H8000000F", Whole(-2147483633)},
        {"&H80000000", Whole(-2147483648LL)},
        {"-2147483649", Whole(-2147483649LL)},
        {"8.25", 8.25},
        {"8.0", 8.0},
        {"0.1", 0.1},
        {"1e+300", 1e300},
        {"\"\"", ""s},
        {"\"say \"\"hi\"\"\"", "say \"hi\""s},
        {"\"tab\there\"", "tab\there"s},
        {"\"one\" & Chr(13) & Chr(10) & \"two\"", "one\r\ntwo"s},
        {"Chr(10) & \"end\"", "\nend"s},
        {"\"end\" & Chr(0)", "end\0"s},
        {"\"Gr\xC3\xBC\xC3\x9F"
         "e\"",
         "Gr\xC3\xBC\xC3\x9F"
         "e"s},
    };
    for (const Reading& writing : writings)
    {
        EXPECT_EQ(FormatFormValue(writing.Value), writing.Text);
        EXPECT_EQ(ParseFormValue(FormatFormValue(writing.Value)), writing.Value) << writing.Text;
    }
}

} // namespace

} // namespace kiv::host
