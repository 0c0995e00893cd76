#include "host/formfile/FormText.h"

namespace kiv::host
{

namespace
{

class Writer
{
public:
    explicit Writer(bool carriageReturns) : lineEnd_(carriageReturns ? "\r\n" : "\n") {}

    void Line(std::string_view text) { text_.append(text).append(lineEnd_); }

    void Block(const FormBlock& block, std::size_t depth)
    {
        const std::string indent(4 * depth, ' ');
        Line(block.OpeningLine.empty() ? indent + Opening(block) : block.OpeningLine);
        for (const FormEntry& entry : block.Entries)
        {
            if (!entry.Block.empty())
                Block(entry.Block.front(), depth + 1);
            else if (entry.Key.empty() || !entry.Source.empty())
                Line(entry.Source);
            else
                Line(indent + "    " + Key(entry.Key) + " = " + FormatFormValue(entry.Value));
        }
        Line(block.ClosingLine.empty() ? indent + (block.IsProperty ? "EndProperty" : "End")
                                       : block.ClosingLine);
    }

    std::string Take() { return std::move(text_); }

private:
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
        writer.Line(line);
    writer.Block(document.Form, 0);
    for (const std::string& line : document.LinesBehind)
        writer.Line(line);
    return writer.Take();
}

} // namespace kiv::host
