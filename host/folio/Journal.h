#pragma once

#include "host/container/ControlSite.h"
#include "host/container/EventRecord.h"
#include "host/container/MessageBoxWatch.h"
#include "host/files/LogFile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kiv::host
{

// The host's log: one JSON object a line, to the terminal and to a file. Also where a script's wishes about
// events are kept: which to refuse, which it has waited for. All of it on the form's thread.
class Journal final : public SiteObserver
{
public:
    // An empty path writes to the terminal only. Throws FileError when the file cannot be written.
    // Only a script waits for events: without one they are written and forgotten.
    Journal(const std::filesystem::path& file, bool forScript);

    // Writes every event of a control that it observes.
    void OnEvent(ControlSite& site, const EventRecord& event, DISPPARAMS& raised) override;
    void Write(const ShownMessageBox& box);
    // The answer that the control holds: its Value, Text or EnumCode, whichever it has.
    void WriteAnswer(const ControlSite& site);

    // Which button closed the form, by its name.
    void WriteClosing(std::wstring_view button);
    // Throws FileError when not all could be written into the file.
    void Finish();

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

    const EventArgument* Refuse(const std::wstring& control, const EventRecord& event, DISPPARAMS& raised);
    std::vector<NamedEvent>::const_iterator FindEvent(std::wstring_view control,
                                                      std::wstring_view event) const;
    void WriteLine(const std::string& line);

    bool forScript_;
    std::optional<LogFile> file_;
    std::vector<NamedEvent> vetoes_;
    std::vector<NamedEvent> untaken_;
};

} // namespace kiv::host
