// Somebody else's library that replaces a method. Others replace the same one, with functions and variables
// of the same names, none of them hidden: METHOD is its name, and ANSWER says what this one makes of the
// `value` before.
extern "C" {
using Class = struct objc_class*;
using SEL = struct objc_selector*;
using id = struct objc_object*;
using IMP = void (*)();
Class objc_getClass(const char* name);
SEL sel_registerName(const char* name);
void MSHookMessageEx(Class, SEL, IMP replacement, IMP* original);
}

double (*original)(id, SEL) = nullptr;

double padding(id self, SEL selector) {
  const double value = original(self, selector);
  return ANSWER;
}

[[gnu::constructor]] static void load() {
  MSHookMessageEx(objc_getClass("SBIconListView"), sel_registerName(METHOD), reinterpret_cast<IMP>(padding),
                  reinterpret_cast<IMP*>(&original));
}
