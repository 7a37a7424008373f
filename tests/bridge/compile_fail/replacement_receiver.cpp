// refused: a class method's function takes a Class, any other a handle
#include "bridge/replace.hpp"
#include "platform/foundation/object.hpp"

struct Cat : bridge::Face<"Cat", NSObject> {
  MESSAGE Method<"age", int()> age;
};

#ifdef CORRECTED
int age(Cat self) { return bridge::original<age>(self); }
#else
int age(Class self) { return bridge::original<age>(self); }
#endif

void start() { bridge::install(bridge::replace<Cat, &Cat::age, age>()); }
