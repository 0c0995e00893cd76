#include "host/formfile/FormText.h"

namespace kiv::host
{

namespace
{

class Writer
{
public:
    explicit Writer(bool carriageReturns) : lineEnd_(carriageReturns ? "\r\n" : "\n") {}

    // With its line end, as it was read.
    void Source(std::string_view line)
    {
        // What was the end of the file may not be any more.
        if (!text_.empty() && !text_.ends_with('\n') && !line.empty())
            text_ += lineEnd_;
        text_.append(line);
    }

    void Block(const FormBlock& block, const std::string& indent)
    {
        if (block.OpeningLine.empty())
            Line(indent + Opening(block));
        else
            Source(block.OpeningLine);
        const std::string inner = IndentOfEntries(block, indent);
        for (const FormEntry& entry : block.Entries)
        {
            if (!entry.Block.empty())
                Block(entry.Block.front(), inner);
            else if (!entry.Source.empty())
                Source(entry.Source);
            else
                Line(inner + Key(entry.Key) + " = " + FormatFormValue(entry.Value));
        }
        if (block.ClosingLine.empty())
            Line(indent + (block.IsProperty ? "EndProperty" : "End"));
        else
            Source(block.ClosingLine);
    }

    std::string Take() { return std::move(text_); }

private:
    void Line(const std::string& text) { Source(text + lineEnd_); }

    // As its neighbours have it.
    static std::string IndentOfEntries(const FormBlock& block, const std::string& indent)
    {
        for (const FormEntry& entry : block.Entries)
        {
            const std::string& line = entry.Block.empty() ? entry.Source : entry.Block.front().OpeningLine;
            if (const std::size_t start = line.find_first_not_of(" \t\r\n");
                start != std::string::npos && line[start] != '\'')
                return line.substr(0, start);
        }
        return indent + "    ";
    }

    static std::string Opening(const FormBlock& block)
    {
        if (!block.IsProperty)
            return "Begin " + block.Class + " " + block.Name;
        return "BeginProperty " + block.Name + (block.Class == block.Name ? "" : " " + block.Class);
    }

    static std::string Key(const std::string& key)
    {
        const bool plain =
            key.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_") ==
            std::string::npos;
        return plain ? key : '"' + key + '"';
    }

    const char* lineEnd_;
    std::string text_;
};

} // namespace

std::string WriteForm(const FormDocument& document)
{
    Writer writer(document.CarriageReturns);
    for (const std::string& line : document.LinesBefore)
        writer.Source(line);
    writer.Block(document.Form, {});
    for (const std::string& line : document.LinesBehind)
        writer.Source(line);
    const std::string text = writer.Take();
    return document.ByteOrderMark ? std::string(ByteOrderMark) + text : text;
}

} // namespace kiv::host
