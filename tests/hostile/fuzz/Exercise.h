#pragma once

#include "tests/hostile/Host.h"
#include "tests/hostile/Members.h"

#include <cstdint>
#include <vector>

namespace kiv::test
{

// The members of the control's class; looked up once.
const std::vector<Member>& MembersOfClass(Host& host);

// What a host does with a control that it has just loaded.
void ReadEveryProperty(Host& host);
void DrawOnce(Host& host);

// The control as it saves itself to a stream; nothing when it cannot.
std::vector<std::uint8_t> SavedBytes(Host& host);
// What IPersistStreamInit::Load answers to these bytes.
HRESULT LoadBytes(Host& host, const std::vector<std::uint8_t>& bytes);

} // namespace kiv::test
