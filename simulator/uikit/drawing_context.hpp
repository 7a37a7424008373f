// The context that drawRect: draws into.
#pragma once

#include <cairo.h>

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
  cairo_t* outer;
};

}  // namespace sim::uikit
