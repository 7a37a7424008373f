// A string class whose instances lie in the image: never retained, never freed. Foundation does all but two
// of a string's methods by these two.
#include "device/loader/constant_string.hpp"

#include <cstdint>

#include "bridge/runtime.hpp"

namespace device::loader {
namespace {

struct ConstantString {
  void* isa;
  int flags;
  const char* bytes;  // ASCII
  long length;
};

const ConstantString& of(id self) { return *reinterpret_cast<const ConstantString*>(self); }

NSUInteger length(id self, SEL) { return static_cast<NSUInteger>(of(self).length); }
uint32_t characterAtIndex(id self, SEL, NSUInteger index) {
  return static_cast<uint8_t>(of(self).bytes[index]);
}
const char* UTF8String(id self, SEL) { return of(self).bytes; }
id itself(id self, SEL) { return self; }
id itselfFor(id self, SEL, void*) { return self; }
void nothing(id, SEL) {}

Class define() {
  Class made = objc_allocateClassPair(objc_getClass("NSString"), "__NSCFConstantString", 0);
  auto add = [made](const char* selector, auto function, const char* types) {
    class_addMethod(made, sel_registerName(selector), reinterpret_cast<IMP>(function), types);
  };
  constexpr bool wide = sizeof(NSUInteger) == 8;
  add("length", length, wide ? "Q@:" : "I@:");
  add("characterAtIndex:", characterAtIndex, wide ? "S@:Q" : "S@:I");
  add("UTF8String", UTF8String, "r*@:");
  add("retain", itself, "@@:");
  add("autorelease", itself, "@@:");
  add("copyWithZone:", itselfFor, "@@:^v");
  add("release", nothing, "v@:");
  objc_registerClassPair(made);
  return made;
}

}  // namespace

void* constantStringClass() {
  static Class const made = define();
  return made;
}

}  // namespace device::loader
