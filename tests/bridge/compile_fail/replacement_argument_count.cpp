// refused: the function does not have the method's shape
#include "bridge/replace.hpp"
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"feed:at:", int(int, int)> feed_at;
};

#ifdef CORRECTED
int feed(Cat self, int food, int time) { return bridge::original<feed>(self, food, time); }
#else
int feed(Cat self, int food) { return bridge::original<feed>(self, food); }
#endif

void start() { bridge::install(bridge::replace<Cat, &Cat::feed_at, feed>()); }
