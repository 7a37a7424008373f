// refused: a state without members has no place
#include "bridge/define.hpp"
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {};

struct CatState {
#ifdef CORRECTED
  int lives = 9;
#endif
};

void start() { bridge::Implementation<Cat, CatState>::define<NSObject>(); }
