// refused: no viable conversion from 'Strong<NSObject>' to 'Strong<NSString>'
#include "platform/foundation/string.hpp"

void start(bridge::Strong<NSObject> object) {
#ifdef CORRECTED
  bridge::Strong<NSString> text = bridge::adopt<NSString>(object.leak());
#else
  bridge::Strong<NSString> text = object;
#endif
}
