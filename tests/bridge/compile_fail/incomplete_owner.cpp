// refused: include the result's own header
#include "platform/foundation/object.hpp"

struct Kitten;

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"newKitten", Kitten()> newKitten;
};

#ifdef CORRECTED
struct Kitten : bridge::Face<"Kitten", Cat> {};
#endif

void litter(Cat cat) { (void)cat.newKitten(); }
