#pragma once

#include "host/container/Form.h"

#include <functional>

namespace kiv::test
{

// The messages of the calling thread, handled as its form's own loop does it: those that are waiting, or all
// until the condition holds (true) or the time is over (false).
void PumpPending(host::Form& form);
bool PumpUntil(host::Form& form, const std::function<bool()>& condition, DWORD timeoutMs = 5000);

} // namespace kiv::test
