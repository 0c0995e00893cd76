#pragma once

namespace kiv
{

// Which of Shift (1), Ctrl (2) and Alt (4) are down, for the message being handled: the bits of Shift in the
// events of forms, and of a container's key modifiers.
short ShiftState();

} // namespace kiv
