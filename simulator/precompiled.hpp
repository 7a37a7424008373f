// What nearly every source of the simulator and of the tests includes, compiled once. Only what hardly ever
// changes belongs here: a change compiles everything anew. Sources include what they use all the same.
#pragma once

#include <cairo.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <numbers>
#include <optional>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "platform/precompiled.hpp"
#include "simulator/json/json.hpp"
#include "simulator/quartz/layer.hpp"
