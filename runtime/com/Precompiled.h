// What nearly every source of the Windows builds includes, of the system's and the standard library's,
// compiled once. A source includes what it uses all the same: this only spares the time.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
