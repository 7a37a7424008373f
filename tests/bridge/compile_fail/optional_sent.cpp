// refused: does not provide a call operator
#include "platform/foundation/object.hpp"

struct Dock : bridge::Face<"Dock", NSObject> {
  MESSAGE OptionalMethod<"setSpacing:", void(double)> setSpacing;
};

void space(Dock dock) {
#ifdef CORRECTED
  dock.setSpacing.ifAnswered(10);
#else
  dock.setSpacing(10);
#endif
}
