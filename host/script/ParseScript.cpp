#include "host/script/Script.h"

#include <charconv>
#include <stdexcept>

namespace kiv::host
{

namespace
{

std::string_view Trim(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t\r");
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(" \t\r") - start + 1);
}

// One line of a script, taken apart from the left. Throws std::invalid_argument.
class Line
{
public:
    explicit Line(std::string_view text) : rest_(Trim(text)) {}

    bool AtEnd() const { return rest_.empty() || rest_.front() == '\''; }

    std::string Word(std::string_view what)
    {
        if (AtEnd())
            Missing(what);
        const std::size_t end = std::min(rest_.find_first_of(" \t"), rest_.size());
        const std::string word(rest_.substr(0, end));
        rest_ = Trim(rest_.substr(end));
        return word;
    }

    // Takes the word only if it is the one.
    bool Take(std::string_view wanted)
    {
        const Line before = *this;
        if (!AtEnd() && SameFormName(Word({}), wanted))
            return true;
        *this = before;
        return false;
    }

    bool AtQuote() const { return rest_.starts_with('"'); }

    std::string Quoted(std::string_view what)
    {
        if (!AtQuote())
            Missing(what);
        return std::get<std::string>(ParseFormValue(TakeValue(false)));
    }

    ScriptValue Value(bool inList = false)
    {
        const std::string_view text = Trim(TakeValue(inList));
        if (SameFormName(text, "Null"))
            return std::nullopt;
        return ParseFormValue(text);
    }

    // "item.member"
    void Member(ScriptStep& step)
    {
        const std::size_t end = std::min(rest_.find_first_of(" \t=("), rest_.size());
        const std::string_view both = rest_.substr(0, end);
        const std::size_t dot = both.find('.');
        if (dot == 0 || dot == std::string_view::npos || dot + 1 == both.size())
            Missing("<name>.<member>");
        step.Item = both.substr(0, dot);
        step.Member = both.substr(dot + 1);
        rest_ = Trim(rest_.substr(end));
    }

    void Assignment(ScriptStep& step)
    {
        Member(step);
        if (rest_.starts_with('('))
            Index(step);
        if (!rest_.starts_with('='))
            Missing("\"= value\"");
        rest_ = Trim(rest_.substr(1));
        step.Values.push_back(Value());
    }

    // "(value)"
    void Index(ScriptStep& step)
    {
        const std::size_t end = rest_.find(')');
        if (end == std::string_view::npos)
            Missing("\")\"");
        step.Index = ParseFormValue(Trim(rest_.substr(1, end - 1)));
        rest_ = Trim(rest_.substr(end + 1));
    }

    void Arguments(ScriptStep& step)
    {
        while (!AtEnd())
        {
            step.Values.push_back(Value(true));
            if (!rest_.starts_with(','))
                continue;
            rest_ = Trim(rest_.substr(1));
            if (AtEnd())
                Missing("an argument");
        }
    }

    void Spot(ScriptSpot& spot)
    {
        if (AtEnd() || Take("middle"))
            return;
        if (Take("left"))
            spot.Where = ScriptSpot::Place::Left;
        else if (Take("right"))
            spot.Where = ScriptSpot::Place::Right;
        else
            Point(spot, Word({}));
    }

    void End() const
    {
        if (!AtEnd())
            throw std::invalid_argument("unexpected \"" + std::string(rest_) + "\"");
    }

private:
    [[noreturn]] static void Missing(std::string_view what)
    {
        throw std::invalid_argument(std::string(what) + " is expected");
    }

    static void Point(ScriptSpot& spot, const std::string& text)
    {
        const char* const end = text.data() + text.size();
        spot.Where = ScriptSpot::Place::Point;
        const auto x = std::from_chars(text.data(), end, spot.X);
        if (x.ec == std::errc() && x.ptr != end && *x.ptr == ',')
            if (const auto y = std::from_chars(x.ptr + 1, end, spot.Y); y.ec == std::errc() && y.ptr == end)
                return;
        Missing("left, middle, right or <x>,<y>");
    }

    // Up to a comment (or a comma, in a list) that is outside quotes.
    std::string_view TakeValue(bool inList)
    {
        bool quoted = false;
        std::size_t end = 0;
        for (; end < rest_.size(); ++end)
        {
            if (rest_[end] == '"')
                quoted = !quoted;
            else if (!quoted && (rest_[end] == '\'' || (inList && rest_[end] == ',')))
                break;
            // A text that more words follow ends with its quote.
            if (!inList && !quoted && rest_[end] == '"' && end + 1 < rest_.size() && rest_[end + 1] == ' ' &&
                Trim(rest_.substr(end + 1)).front() != '&')
            {
                ++end;
                break;
            }
        }
        const std::string_view value = Trim(rest_.substr(0, end));
        rest_ = Trim(rest_.substr(end));
        return value;
    }

    std::string_view rest_;
};

void ReadKeys(Line& line, ScriptStep& step)
{
    step.Verb = ScriptVerb::Keys;
    do
    {
        const std::string word = line.Word("a key");
        const std::optional<KeyChord> chord = ParseKeyChord(word);
        if (!chord)
            throw std::invalid_argument("\"" + word + "\" is no key");
        step.Keys.push_back(*chord);
    } while (!line.AtEnd());
}

void ReadExpectation(Line& line, ScriptStep& step)
{
    if (line.Take("focus"))
    {
        step.Verb = ScriptVerb::ExpectFocus;
        step.Item = line.Word("a name");
    }
    else if (line.Take("selected"))
    {
        step.Verb = ScriptVerb::ExpectSelected;
        step.Item = line.Word("a name");
    }
    else if (line.Take("event"))
    {
        step.Verb = ScriptVerb::ExpectEvent;
        step.Item = line.Word("a name");
        step.Member = line.Word("an event");
    }
    else if (line.Take("no"))
    {
        if (line.Take("window"))
            step.Verb = ScriptVerb::ExpectNoWindow;
        else if (line.Take("item"))
            step.Verb = ScriptVerb::ExpectNoListItem;
        else if (line.Take("event"))
        {
            step.Verb = ScriptVerb::ExpectNoEvent;
            step.Item = line.Word("a name");
            if (!line.AtEnd())
                step.Member = line.Word("an event");
        }
        else
            throw std::invalid_argument("\"no event\", \"no window\" or \"no item\" is expected");
    }
    else if (line.Take("window"))
    {
        step.Verb = ScriptVerb::ExpectWindow;
        step.Text = line.Quoted("the window's caption in quotes");
    }
    else if (line.Take("item"))
    {
        step.Verb = ScriptVerb::ExpectListItem;
        step.Text = line.Quoted("a text in quotes");
    }
    else
    {
        step.Verb = ScriptVerb::ExpectValue;
        line.Assignment(step);
    }
}

void ReadClick(Line& line, ScriptStep& step, ScriptVerb verb)
{
    step.Verb = verb;
    const std::string word = line.Word("a name");
    if (line.AtQuote() && SameFormName(word, "item"))
        step.Part = ScriptPart::ListItem;
    else if (line.AtQuote() && SameFormName(word, "button"))
        step.Part = ScriptPart::Button;
    else
    {
        step.Item = word;
        line.Spot(step.Spot);
        return;
    }
    step.Text = line.Quoted("a text in quotes");
}

void ReadStep(Line& line, ScriptStep& step)
{
    if (line.Take("focus"))
    {
        step.Verb = ScriptVerb::Focus;
        step.Item = line.Word("a name");
    }
    else if (line.Take("key") || line.Take("keys"))
        ReadKeys(line, step);
    else if (line.Take("type"))
    {
        step.Verb = ScriptVerb::Type;
        step.Text = line.Quoted("a text in quotes");
    }
    else if (line.Take("clipboard"))
    {
        step.Verb = ScriptVerb::Clipboard;
        step.Text = line.Quoted("a text in quotes");
    }
    else if (line.Take("click"))
        ReadClick(line, step, ScriptVerb::Click);
    else if (line.Take("rightclick"))
        ReadClick(line, step, ScriptVerb::RightClick);
    else if (line.Take("doubleclick"))
        ReadClick(line, step, ScriptVerb::DoubleClick);
    else if (line.Take("press"))
        ReadClick(line, step, ScriptVerb::Press);
    else if (line.Take("release"))
        step.Verb = ScriptVerb::Release;
    else if (line.Take("expect"))
        ReadExpectation(line, step);
    else if (line.Take("answer"))
    {
        if (!line.Take("messagebox"))
            throw std::invalid_argument("\"messagebox\" is expected");
        step.Verb = ScriptVerb::AnswerMessageBox;
        step.Text = line.Quoted("the message's text in quotes");
        if (!line.AtEnd())
            step.Member = line.Word("a button");
    }
    else if (line.Take("veto"))
    {
        step.Verb = ScriptVerb::Veto;
        step.Item = line.Word("a name");
        step.Member = line.Word("an event");
    }
    else if (line.Take("set"))
    {
        step.Verb = ScriptVerb::Set;
        line.Assignment(step);
    }
    else if (line.Take("call"))
    {
        step.Verb = ScriptVerb::Call;
        line.Member(step);
        line.Arguments(step);
    }
    else if (line.Take("shot"))
        step.Verb = ScriptVerb::Shot;
    else if (line.Take("close"))
    {
        if (line.Take("database"))
            step.Verb = ScriptVerb::CloseDatabase;
    }
    else
        throw std::invalid_argument("\"" + line.Word({}) + "\" is no step");
    line.End();
}

} // namespace

Script ParseScript(std::string_view text, std::string_view file)
{
    Script script;
    script.File = file;
    bool answers = false;
    int number = 0;
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    while (!text.empty())
    {
        const std::size_t end = std::min(text.find('\n'), text.size());
        Line line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        ++number;
        if (line.AtEnd())
            continue;
        ScriptStep step;
        step.Line = number;
        try
        {
            if (!answers && line.Take("answers"))
            {
                line.End();
                answers = true;
                continue;
            }
            if (answers)
            {
                step.Verb = ScriptVerb::ExpectValue;
                line.Assignment(step);
                line.End();
            }
            else
            {
                ReadStep(line, step);
            }
        }
        catch (const std::invalid_argument& mistake)
        {
            throw FormError(file, number, mistake.what());
        }
        (answers ? script.Answers : script.Steps).push_back(std::move(step));
    }
    return script;
}

std::string FormatScriptValue(const ScriptValue& value)
{
    return value ? FormatFormValue(*value) : "Null";
}

} // namespace kiv::host
