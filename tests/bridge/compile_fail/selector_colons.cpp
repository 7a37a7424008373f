// refused: the selector's colons do not match its arguments
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
#ifdef CORRECTED
  MESSAGE Method<"feed:at:", void(int, int)> feed_at;
#else
  MESSAGE Method<"feed:at:", void(int)> feed_at;
#endif
};

void feed(Cat cat) {
#ifdef CORRECTED
  cat.feed_at(1, 2);
#else
  cat.feed_at(1);
#endif
}
