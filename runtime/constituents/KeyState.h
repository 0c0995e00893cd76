#pragma once

namespace kiv
{

// The bits of Shift in the events of forms, and of a container's key modifiers.
constexpr short ShiftHeld = 1;
constexpr short ControlHeld = 2;
constexpr short AltHeld = 4;

// Which of the three are down, for the message being handled.
short ShiftState();

} // namespace kiv
