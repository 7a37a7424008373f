// refused: the function does not have the method's shape
#include "bridge/define.hpp"
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"weight", double()> weight;
};

#ifdef CORRECTED
double weight(Cat) { return 4; }
#else
float weight(Cat) { return 4; }
#endif

void start() { bridge::Implementation<Cat>::define<NSObject>(bridge::method<&Cat::weight, weight>()); }
