// A library of somebody else's, who chose names for classes and methods that ours has as well, and who
// replaces a method that ours replaces. It knows the class runtime and the hooking library, and nothing of
// ours. At the end it says how many of the classes it got, and how often it was called.
#include <cstdio>
#include <cstdlib>

extern "C" {
using Class = struct objc_class*;
using SEL = struct objc_selector*;
using id = struct objc_object*;
using IMP = void (*)();
Class objc_getClass(const char* name);
Class objc_allocateClassPair(Class parent, const char* name, size_t extra);
void objc_registerClassPair(Class made);
signed char class_addMethod(Class, SEL, IMP, const char* types);
SEL sel_registerName(const char* name);
void MSHookMessageEx(Class, SEL, IMP replacement, IMP* original);
}

namespace {

const char* const names[] = {"BButton",
                             "ColorSlider",
                             "ConfigurationManager",
                             "DPHLogger",
                             "RQColorManager",
                             "RQGestureController",
                             "RQBarProgressView",
                             "RQPopupView",
                             "RQProgressHUD",
                             "value",
                             "RQRoundProgressView"};

int taken = 0, calls = 0;
double (*systemPadding)(id, SEL) = nullptr;

id nothing(id, SEL) { return ++calls, nullptr; }

double padding(id self, SEL selector) {
  ++calls;
  return systemPadding(self, selector);
}

[[gnu::constructor]] void load() {
  for (const char* name : names)
    if (Class made = objc_allocateClassPair(objc_getClass("NSObject"), name, 0)) {
      class_addMethod(made, sel_registerName("name"), reinterpret_cast<IMP>(nothing), "@@:");
      objc_registerClassPair(made);
      ++taken;
    }
  // Not so as to take them from anybody: where there is such a method already, nothing is added.
  class_addMethod(objc_getClass("NSString"), sel_registerName("fa_stringForFontAwesomeIcon:"),
                  reinterpret_cast<IMP>(nothing), "@@:Q");
  class_addMethod(objc_getClass("SBIconScrollView"), sel_registerName("swipeGesture"),
                  reinterpret_cast<IMP>(nothing), "@@:");
  IMP original = nullptr;
  MSHookMessageEx(objc_getClass("SBIconListView"), sel_registerName("verticalIconPadding"),
                  reinterpret_cast<IMP>(padding), &original);
  systemPadding = reinterpret_cast<double (*)(id, SEL)>(original);
}

[[gnu::destructor]] void tell() {
  std::fprintf(stderr, "stranger: %d classes, %s\n", taken, calls > 0 ? "called" : "never called");
}

}  // namespace
