#pragma once

namespace kiv
{

// Gives back what the compiler's run-time, which is a part of this module, takes when the module is loaded
// and keeps for good: memory for throwing when there is none left, and semaphores. A program never notices, a
// module that is loaded and unloaded again and again does. The last thing that happens before the module
// goes.
void FreeCompilerRuntime() noexcept;

} // namespace kiv
