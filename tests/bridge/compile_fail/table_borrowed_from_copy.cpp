// refused: the function does not have the method's shape
#include "bridge/define.hpp"
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"copy", Cat()> copy;
};

// A copy belongs to whoever asked for it.
#ifdef CORRECTED
bridge::Strong<Cat> copied(Cat self) { return bridge::retained(self); }
#else
Cat copied(Cat self) { return self; }
#endif

void start() { bridge::Implementation<Cat>::define<NSObject>(bridge::method<&Cat::copy, copied>()); }
