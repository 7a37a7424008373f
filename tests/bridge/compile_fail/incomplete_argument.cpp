// refused: include the type's own header
#include "platform/foundation/object.hpp"

struct Kitten;

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"feed:", void(Kitten)> feed;
};

#ifdef CORRECTED
struct Kitten : bridge::Face<"Kitten", Cat> {};
#endif

void feed(Cat cat, Kitten& kitten) { cat.feed(kitten); }
