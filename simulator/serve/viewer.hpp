// A page that looks at the screen: what it has been shown, and what it is to be shown next.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "simulator/quartz/region.hpp"
#include "simulator/quartz/surface.hpp"
#include "simulator/serve/frame.hpp"

namespace sim::serve {

/** It is never sent more than it has drawn, but for a frame or two on the way. */
class Viewer {
 public:
  bool isReady() const { return sent - drawn < 2; }
  /** It has a likeness of some of it alone. */
  bool isInexact() const { return inexact.any(); }
  void hasDrawn(double frame);
  /** Where the screen may have changed. */
  void miss(const Region& damage);

  struct Next {
    bool isChange;  // and not what it has had a likeness of
    std::optional<std::string> message;
  };
  /** What it is sent so that it has that picture. What moves may be a likeness. */
  Next show(const Surface& picture, bool moving);

 private:
  Surface shown;  // what it was sent last; none at first
  Region unseen;  // where the screen may have changed since
  Tiles inexact;
  std::uint32_t sent = 0, drawn = 0;
};

}  // namespace sim::serve
