// The context that drawRect: draws into.
#include "simulator/uikit/drawing_context.hpp"

#include <utility>

namespace sim::uikit {
namespace {

constinit cairo_t* current = nullptr;

}  // namespace

cairo_t* currentContext() { return current; }

DrawingContext::DrawingContext(cairo_t* context) : outer(std::exchange(current, context)) {}
DrawingContext::~DrawingContext() { current = outer; }

}  // namespace sim::uikit
