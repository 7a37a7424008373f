// What layers show of their own: contents that look alike are one.
#pragma once

#include <cstdint>

#include "platform/coregraphics/geometry.hpp"
#include "simulator/quartz/surface.hpp"

namespace sim {

/** Another one for every other content, over all layers. */
std::uint64_t nextContentId();

/** A picture that is not painted on any more, and its id. */
struct Content {
  Surface image;
  std::uint64_t id;
};

/**
 * The content of that picture, which covers so many points, with so many pixels to each: the same as before
 * when one just like it was shown lately. A panel that is made anew looks like the one before, and what was
 * painted of that one is still good.
 */
Content contentOf(Surface image, CGSize points, double pixelsPerPoint);

}  // namespace sim
