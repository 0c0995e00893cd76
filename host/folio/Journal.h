#pragma once

#include "host/container/Form.h"
#include "host/container/MessageBoxWatch.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace kiv::host
{

// The host's log: one JSON object a line, to the terminal and to a file. Also where a script's wishes about
// events are kept: which to refuse, which it has waited for. All of it on the form's thread.
class Journal
{
public:
    // An empty path writes to the terminal only. Throws std::runtime_error when the file cannot be written.
    explicit Journal(const std::filesystem::path& file);

    // Writes every event of the control from now on.
    void Follow(ControlSite& site);
    void Write(const ShownMessageBox& box);
    // The answer that the control holds: its Value, Text or EnumCode, whichever it has.
    void WriteAnswer(const ControlSite& site);

    // Sets the first Boolean by-reference argument of the next such event to True.
    void Veto(std::wstring_view control, std::wstring_view event);
    // Whether such an event came since the last one that was taken; an empty name is any event.
    bool HasEvent(std::wstring_view control, std::wstring_view event) const;
    // Takes the first one and all of the control's events before it.
    bool TakeEvent(std::wstring_view control, std::wstring_view event);

private:
    struct NamedEvent
    {
        std::wstring Control;
        std::wstring Event;
    };

    void OnEvent(ControlSite& site, const EventRecord& event, DISPPARAMS& raised);
    const EventArgument* Refuse(const std::wstring& control, const EventRecord& event, DISPPARAMS& raised);
    std::vector<NamedEvent>::const_iterator FindEvent(std::wstring_view control,
                                                      std::wstring_view event) const;
    void WriteLine(const std::string& line);

    std::ofstream file_;
    std::vector<NamedEvent> vetoes_;
    std::vector<NamedEvent> untaken_;
};

} // namespace kiv::host
