// What nearly every test of the Windows builds includes, of the system's and the libraries' own, compiled
// once. A test includes what it uses all the same: this only spares the time.
#pragma once

#include <gtest/gtest.h>

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
