// The context that drawRect: draws into.
#include "simulator/uikit/drawing/drawing_context.hpp"

#include <vector>

#include "simulator/runtime/export.hpp"

namespace sim::uikit {
namespace {

// Each thread draws into contexts of its own. The last one is the current one.
std::vector<CGContextRef>& contexts() {
  thread_local std::vector<CGContextRef> stack;
  return stack;
}

}  // namespace

cairo_t* currentContext() { return contexts().empty() ? nullptr : contexts().back()->cairo; }

DrawingContext::DrawingContext(cairo_t* of) : context(of) { contexts().push_back(&context); }
DrawingContext::~DrawingContext() { contexts().pop_back(); }

}  // namespace sim::uikit

using sim::uikit::contexts;

SIMULATOR_EXPORT CGContextRef UIGraphicsGetCurrentContext() {
  return contexts().empty() ? nullptr : contexts().back();
}

SIMULATOR_EXPORT void UIGraphicsPushContext(CGContextRef context) { contexts().push_back(context); }

SIMULATOR_EXPORT void UIGraphicsPopContext() {
  if (!contexts().empty()) contexts().pop_back();
}
