// refused: a class method's function takes a Class, any other a handle
#include "bridge/define.hpp"
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
  static constexpr bridge::ClassMethod<"Cat", "legs", int()> legs{};
};

#ifdef CORRECTED
int legs(Class) { return 4; }
#else
int legs(Cat) { return 4; }
#endif

void start() { bridge::Implementation<Cat>::define<NSObject>(bridge::method<&Cat::legs, legs>()); }
