// Fingers that pages have on the glass.
#pragma once

#include <cstdint>
#include <map>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/json/json.hpp"

namespace sim::serve {

class PageFingers {
 public:
  /** What a page's message says of a finger; throws UsageError or JsonError for what is wrong with it. */
  void obey(std::uint32_t page, const Json& message);
  /** A page has gone: its fingers leave the glass where they were. */
  void lift(std::uint32_t page);

 private:
  std::map<std::uint32_t, std::map<int, CGPoint>> down;  // by page, and by the page's numbers
};

}  // namespace sim::serve
