// A library of somebody else's: a dock of six icons. It knows the class runtime and the hooking library, and
// nothing of ours.
extern "C" {
using Class = struct objc_class*;
struct objc_object;
using SEL = struct objc_selector*;
using IMP = void (*)();
Class objc_getMetaClass(const char* name);
SEL sel_registerName(const char* name);
void MSHookMessageEx(Class, SEL, IMP replacement, IMP* original);
}

namespace {

unsigned long six(objc_object*, SEL) { return 6; }

[[gnu::constructor]] void load() {
  IMP original = nullptr;
  MSHookMessageEx(objc_getMetaClass("SBDockIconListView"), sel_registerName("maxIcons"),
                  reinterpret_cast<IMP>(six), &original);
}

}  // namespace
