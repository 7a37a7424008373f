// The context that drawRect: draws into.
#pragma once

#include <cairo.h>

#include "simulator/coregraphics/context.hpp"

namespace sim::uikit {

/** The innermost context in force, in points of the view that draws; null outside drawing. */
cairo_t* currentContext();

/** Makes a context the current one for as long as it lives; they nest. */
class DrawingContext {
 public:
  explicit DrawingContext(cairo_t* context);
  ~DrawingContext();
  DrawingContext(const DrawingContext&) = delete;
  DrawingContext& operator=(const DrawingContext&) = delete;

 private:
  CGContext context;
};

}  // namespace sim::uikit
