// refused: the function does not have the method's shape
#include "bridge/replace.hpp"
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"isAwake", BOOL()> isAwake;
};

#ifdef CORRECTED
BOOL awake(Cat) { return YES; }
#else
int awake(Cat) { return 1; }
#endif

void start() { bridge::install(bridge::add<Cat, &Cat::isAwake, awake>("B@:")); }
