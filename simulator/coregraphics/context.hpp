// CGContext: cairo's context, with the colours and the shadow that it does not keep.
#pragma once

#include <cairo.h>

#include <functional>
#include <vector>

#include "platform/coregraphics/context.hpp"
#include "simulator/quartz/color.hpp"

struct CGContext {
  struct State {
    sim::Color fill = sim::blackColor, stroke = sim::blackColor;
    sim::Color shadow = sim::clearColor;
    CGSize shadowOffset{};  // points
    CGFloat shadowBlur = 0;
  };

  /** Draws through `context`, which must outlive this, from its present state on. */
  explicit CGContext(cairo_t* context);

  State& state() { return states.back(); }

  cairo_t* cairo;
  std::vector<State> states{1};  // the last one is in force
};

namespace sim {

/**
 * Lets `draw` draw the context's path, or whatever it likes, and before that its shadow, for which it is
 * called once more with a context of the same path and line. What the clip keeps away casts its shadow too.
 */
void drawWithShadow(CGContext& context, const std::function<void(cairo_t*)>& draw);

}  // namespace sim
