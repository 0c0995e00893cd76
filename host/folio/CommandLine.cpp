#include "host/folio/CommandLine.h"

#include <charconv>

namespace kiv::host
{

const char* const UsageText = R"(FolioHost shows a form file with its controls.

  FolioHost [options] FORM

  --design           show the form as a designer would: nothing answers, a click selects, a drag moves
  --database SOURCE  give this database to the controls: an SQLite file, or an ODBC connection string
  --save FILE        when the form is closed, write it into FILE (not when it is cancelled, or the script fails)
  --script FILE      play FILE with real keys and mouse clicks, then close the form
  --log FILE         write events, message boxes and answers into FILE, as on the terminal
  --shot FILE.png    when the form is closed or the script says so, draw a picture of its window into FILE.png
  --spoken FILE      write into FILE what a screen reader would say as the focus goes from one to the next
  --timeout SECONDS  give up after that time (with --script 120, otherwise never)
  --themed           draw it as the user's theme has it, instead of as Windows always did
  --points SIZE      show the form in a font of that size, and everything on it larger in proportion (not to be saved)
  --patience SECONDS how long what a script expects may take to come true (5)
  --help, -h, /?     this text

The exit status is 0 when all that the script expects came to pass, 1 when it did not, 2 when a file or an
option is wrong.
)";

namespace
{

constexpr unsigned ScriptTimeoutSeconds = 120;

std::filesystem::path FromUtf8(const std::string& text)
{
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

unsigned ReadSeconds(const std::string& option, const std::string& text)
{
    unsigned seconds = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, seconds);
    if (error != std::errc() || stop != end || seconds == 0 || seconds > 86400)
        throw UsageError(option + " takes a number of seconds, not \"" + text + "\"");
    return seconds;
}

double ReadPoints(const std::string& text)
{
    double points = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, points);
    if (error != std::errc() || stop != end || !(points >= 6 && points <= 72))
        throw UsageError("--points takes a size from 6 to 72, not \"" + text + "\"");
    return points;
}

struct NamedFile
{
    const char* Option; // empty: the form
    const std::filesystem::path& Path;
};

bool SameFile(const std::filesystem::path& one, const std::filesystem::path& other)
{
    std::error_code error;
    if (std::filesystem::equivalent(one, other, error))
        return true;
    return std::filesystem::absolute(one, error).lexically_normal() ==
           std::filesystem::absolute(other, error).lexically_normal();
}

std::string NameOf(const NamedFile& file)
{
    return *file.Option ? file.Option : "the form";
}

// Nothing that is read may be written over, but for a form that is saved in its place.
void CheckFiles(const CommandLine& line)
{
    const std::filesystem::path database =
        line.Database.find('=') == std::string::npos ? FromUtf8(line.Database) : std::filesystem::path();
    const NamedFile inputs[] = {{"", line.Form}, {"--script", line.Script}, {"--database", database}};
    const NamedFile outputs[] = {
        {"--save", line.Save}, {"--log", line.Log}, {"--shot", line.Shot}, {"--spoken", line.Spoken}};
    for (const NamedFile& output : outputs)
    {
        const auto refuse = [&](const NamedFile& other) {
            if (!output.Path.empty() && !other.Path.empty() && SameFile(output.Path, other.Path))
                throw UsageError(std::string(output.Option) + " would write over " + NameOf(other) + ", " +
                                 other.Path.string());
        };
        for (const NamedFile& input : inputs)
            if (&output.Path != &line.Save || &input.Path != &line.Form)
                refuse(input);
        for (const NamedFile* other = outputs; other != &output; ++other)
            refuse(*other);
    }
    const std::string extension = line.Shot.extension().string();
    if (!line.Shot.empty() && extension != ".png" && extension != ".PNG")
        throw UsageError("--shot takes a file whose name ends with .png, not " + line.Shot.string());
}

} // namespace

CommandLine ReadCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (std::size_t at = 0; at < arguments.size(); ++at)
    {
        const std::string& argument = arguments[at];
        const auto value = [&]() -> const std::string& {
            if (at + 1 == arguments.size())
                throw UsageError(argument + " needs a value");
            return arguments[++at];
        };
        if (argument == "--help" || argument == "-h" || argument == "/?" || argument == "-?")
            line.Help = true;
        else if (argument == "--design")
            line.Design = true;
        else if (argument == "--themed")
            line.Themed = true;
        else if (argument == "--points")
            line.Points = ReadPoints(value());
        else if (argument == "--script")
            line.Script = FromUtf8(value());
        else if (argument == "--log")
            line.Log = FromUtf8(value());
        else if (argument == "--shot")
            line.Shot = FromUtf8(value());
        else if (argument == "--save")
            line.Save = FromUtf8(value());
        else if (argument == "--spoken")
            line.Spoken = FromUtf8(value());
        else if (argument == "--database")
            line.Database = value();
        else if (argument == "--timeout")
            line.TimeoutSeconds = ReadSeconds(argument, value());
        else if (argument == "--patience")
            line.PatienceSeconds = ReadSeconds(argument, value());
        else if (argument.starts_with("-"))
            throw UsageError("there is no option " + argument);
        else if (line.Form.empty())
            line.Form = FromUtf8(argument);
        else
            throw UsageError("only one form can be shown, \"" + argument + "\" is one too many");
    }
    if (!line.Help && line.Form.empty())
        throw UsageError("which form is to be shown?");
    if (!line.Help)
        CheckFiles(line);
    if (line.Points != 0 && !line.Save.empty())
        throw UsageError("--save does not go with --points: the form is larger than its file says");
    if (line.TimeoutSeconds == 0 && !line.Script.empty())
        line.TimeoutSeconds = ScriptTimeoutSeconds;
    return line;
}

} // namespace kiv::host
