// refused: initialisers are sent by make
#include "platform/foundation/object.hpp"

bridge::Strong<NSObject> start(NSObject object) {
#ifdef CORRECTED
  (void)object;
  return bridge::make<NSObject, &NSObject::init>();
#else
  return object.init();
#endif
}
