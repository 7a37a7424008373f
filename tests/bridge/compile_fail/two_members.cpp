// refused: a face may not carry two members for the same selector
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"age", int()> age;
#ifndef CORRECTED
  MESSAGE Method<"age", int()> years;
#endif
  MESSAGE Method<"mother", Cat()> mother;
};

Cat grandmother(Cat cat) { return cat.mother().mother(); }
