#include "host/formfile/FormText.h"

#include <algorithm>
#include <set>

namespace kiv::host
{

namespace
{

// Deep enough for any form; keeps hostile input from exhausting the stack when the tree is walked.
constexpr std::size_t DeepestNesting = 64;

// Old editors and copy commands end a text with this character (Ctrl+Z).
constexpr std::string_view EndOfText = "\x1A";

std::string Message(std::string_view file, int line, std::string_view what)
{
    std::string message(file);
    if (line > 0)
        message += ":" + std::to_string(line);
    message += ": ";
    return message.append(what);
}

std::string_view Trim(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(" \t");
    if (start == std::string_view::npos)
        return {};
    return text.substr(start, text.find_last_not_of(" \t") - start + 1);
}

std::string_view WithoutEnd(std::string_view line)
{
    if (line.ends_with('\n'))
        line.remove_suffix(1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

// Without the comment that starts with an apostrophe outside quotes.
std::string_view WithoutComment(std::string_view line)
{
    bool quoted = false;
    for (std::size_t at = 0; at < line.size(); ++at)
    {
        if (line[at] == '"')
            quoted = !quoted;
        else if (line[at] == '\'' && !quoted)
            return Trim(line.substr(0, at));
    }
    return Trim(line);
}

std::string_view TakeWord(std::string_view& text)
{
    const std::string_view word = text.substr(0, text.find_first_of(" \t"));
    text = Trim(text.substr(word.size()));
    return word;
}

bool IsNameCharacter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_';
}

bool IsName(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), IsNameCharacter);
}

bool IsClassName(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char character) {
        return IsNameCharacter(character) || character == '.' || character == '-';
    });
}

bool IsUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();)
    {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t more = lead < 0x80 ? 0 : lead >= 0xC2 && lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
        if ((lead >= 0x80 && lead < 0xC2) || lead > 0xF4 || at + more >= text.size())
            return false;
        for (std::size_t next = 1; next <= more; ++next)
            if ((static_cast<unsigned char>(text[at + next]) & 0xC0) != 0x80)
                return false;
        at += more + 1;
    }
    return true;
}

class Reader
{
public:
    explicit Reader(std::string_view file) : file_(file) {}

    FormDocument Read(std::string_view text)
    {
        document_.ByteOrderMark = text.starts_with(ByteOrderMark);
        if (document_.ByteOrderMark)
            text.remove_prefix(ByteOrderMark.size());
        if (!IsUtf8(text))
            Refuse(0, "is not a text in UTF-8");
        document_.CarriageReturns = text.find("\r\n") != std::string_view::npos;
        while (!text.empty())
        {
            const std::size_t end = std::min(text.find('\n'), text.size() - 1);
            const std::string_view line = text.substr(0, end + 1);
            text.remove_prefix(line.size());
            ++line_;
            ReadLine(line, text.empty());
        }
        if (!open_.empty())
            Refuse(open_.back()->Line, Opening(*open_.back()) + " has no " + Closing(*open_.back()));
        if (document_.Form.Line == 0)
            Refuse(0, "holds no form: \"Begin Form <name>\" is missing");
        return std::move(document_);
    }

private:
    static std::string Closing(const FormBlock& block) { return block.IsProperty ? "EndProperty" : "End"; }
    static std::string Opening(const FormBlock& block)
    {
        return block.IsProperty ? "BeginProperty " + block.Name : "Begin " + block.Class + " " + block.Name;
    }

    static bool IsContainer(const FormBlock& block)
    {
        return SameFormName(block.Class, "Form") || SameFormName(block.Class, "Frame");
    }

    [[noreturn]] void Refuse(int line, std::string_view what) const { throw FormError(file_, line, what); }

    void ReadLine(std::string_view line, bool isLast)
    {
        if (line.find('\0') != std::string_view::npos)
            Refuse(line_, "holds a character with the code 0, which no text does");
        const std::string_view content = WithoutComment(WithoutEnd(line));
        std::string_view rest = content;
        const std::string_view word = TakeWord(rest);
        if (content.empty() || (isLast && content == EndOfText))
            Keep(line);
        else if (rest.starts_with('=')) // whatever the key is called
            ReadValue(line, content);
        else if (SameFormName(word, "Begin"))
            Open(line, rest, false);
        else if (SameFormName(word, "BeginProperty"))
            Open(line, rest, true);
        else if (SameFormName(word, "End") || SameFormName(word, "EndProperty"))
            Close(line, word, rest);
        else
            ReadValue(line, content);
    }

    // A comment or an empty line.
    void Keep(std::string_view line)
    {
        if (!open_.empty())
            AddEntry(line);
        else
            (document_.Form.Line == 0 ? document_.LinesBefore : document_.LinesBehind).emplace_back(line);
    }

    FormEntry& AddEntry(std::string_view line)
    {
        FormEntry& entry = open_.back()->Entries.emplace_back();
        entry.Source = line;
        entry.Line = line_;
        return entry;
    }

    void Open(std::string_view line, std::string_view rest, bool isProperty)
    {
        FormBlock block;
        block.IsProperty = isProperty;
        block.Line = line_;
        block.OpeningLine = line;
        if (isProperty)
        {
            block.Name = TakeWord(rest);
            block.Class = rest.empty() ? block.Name : std::string(TakeWord(rest));
        }
        else
        {
            block.Class = TakeWord(rest);
            block.Name = TakeWord(rest);
        }
        if (!IsClassName(block.Class) || !IsName(block.Name) || !rest.empty())
            Refuse(line_, isProperty ? "\"BeginProperty <name> [<class>]\" is expected"
                                     : "\"Begin <class> <name>\" is expected");
        if (open_.size() >= DeepestNesting)
            Refuse(line_, "the blocks are nested too deeply");

        if (!open_.empty())
            return Nest(std::move(block));
        if (document_.Form.Line != 0)
            Refuse(line_, "only one form can be in a file, and it ends above");
        if (isProperty || !SameFormName(block.Class, "Form"))
            Refuse(line_, "a file starts with \"Begin Form <name>\"");
        names_.insert(LowerCase(block.Name));
        document_.Form = std::move(block);
        open_.push_back(&document_.Form);
    }

    void Nest(FormBlock block)
    {
        FormBlock& parent = *open_.back();
        if (parent.IsProperty && !block.IsProperty)
            Refuse(line_, "a control cannot stand inside " + Opening(parent));
        if (!block.IsProperty && !IsContainer(parent))
            Refuse(line_, block.Name + " cannot stand inside " + Opening(parent) + " of line " +
                              std::to_string(parent.Line) +
                              ": only a form or a frame holds others (is an End missing?)");
        if (block.IsProperty && (parent.Find(block.Name) || parent.FindProperty(block.Name)))
            Refuse(line_, block.Name + " is set twice in " + Opening(parent));
        if (!block.IsProperty && !names_.insert(LowerCase(block.Name)).second)
            Refuse(line_, "the name " + block.Name + " is taken already");
        FormEntry& entry = AddEntry({});
        entry.Block.push_back(std::move(block));
        // Entries of a block that is open do not move: only the innermost one grows.
        open_.push_back(&entry.Block.front());
    }

    void Close(std::string_view line, std::string_view word, std::string_view rest)
    {
        if (!rest.empty())
            Refuse(line_, "unexpected \"" + std::string(rest) + "\" behind " + std::string(word));
        if (open_.empty())
            Refuse(line_, std::string(word) + " without a block that it could end");
        FormBlock& block = *open_.back();
        if (!SameFormName(word, Closing(block)))
            Refuse(line_, Opening(block) + " in line " + std::to_string(block.Line) + " needs " +
                              Closing(block) + ", not " + std::string(word));
        block.ClosingLine = line;
        open_.pop_back();
    }

    void ReadValue(std::string_view line, std::string_view content)
    {
        if (open_.empty())
            Refuse(line_, "only comments can stand outside the form");
        const std::string key = TakeKey(content); // which leaves the value
        FormBlock& block = *open_.back();
        if (block.Find(key) || block.FindProperty(key))
            Refuse(line_, key + " is set twice in " + Opening(block));
        try
        {
            FormValue value = ParseFormValue(content);
            FormEntry& entry = AddEntry(line);
            entry.Key = key;
            entry.Value = std::move(value);
            entry.ValueAt = static_cast<std::size_t>(content.data() - line.data());
            entry.ValueLength = content.size();
        }
        catch (const std::invalid_argument& mistake)
        {
            Refuse(line_, key + ": " + mistake.what());
        }
    }

    // Leaves in content what stands behind "=". A key that is no plain name is in quotes.
    std::string TakeKey(std::string_view& content)
    {
        const std::string_view whole = content;
        std::string key;
        const std::size_t start = content.starts_with('"') ? content.find('"', 1) : 0;
        const std::size_t equals = start == std::string_view::npos ? start : content.find('=', start);
        if (equals == std::string_view::npos)
            Refuse(line_, "\"" + std::string(whole) + "\" is not understood: \"Key = value\" is expected");
        const std::string_view written = Trim(content.substr(0, equals));
        content = Trim(content.substr(equals + 1));
        if (IsName(written))
            return std::string(written);
        if (written.size() > 2 && written.starts_with('"') && written.find('"', 1) == written.size() - 1)
            return std::string(written.substr(1, written.size() - 2));
        Refuse(line_, "\"" + std::string(written) + "\" cannot be a key");
    }

    static std::string LowerCase(std::string text)
    {
        for (char& letter : text)
            if (letter >= 'A' && letter <= 'Z')
                letter = static_cast<char>(letter - 'A' + 'a');
        return text;
    }

    std::string_view file_;
    int line_ = 0;
    FormDocument document_;
    std::vector<FormBlock*> open_;
    std::set<std::string> names_;
};

} // namespace

FormError::FormError(std::string_view file, int line, std::string_view what) :
    std::runtime_error(Message(file, line, what))
{
}

FormDocument ParseForm(std::string_view text, std::string_view file)
{
    return Reader(file).Read(text);
}

} // namespace kiv::host
