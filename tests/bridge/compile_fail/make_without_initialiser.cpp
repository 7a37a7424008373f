// refused: make wants an initialiser
#include "platform/foundation/string.hpp"

void start() {
#ifdef CORRECTED
  auto object = bridge::make<NSObject, &NSObject::init>();
#else
  auto object = bridge::make<NSObject, &NSObject::description>();
#endif
}
