// What nearly every source needs, parsed once for each target: see QuorvelTargets.cmake. Sources
// include what they use all the same.
#pragma once

#include "framework/base_types.h"

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>
