// refused: the function does not have the method's shape
#include "bridge/define.hpp"
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"feed:", void(int)> feed;
};

#ifdef CORRECTED
void feed(Cat, int) {}
#else
void feed(Cat, long) {}
#endif

void start() { bridge::Implementation<Cat>::define<NSObject>(bridge::method<&Cat::feed, feed>()); }
