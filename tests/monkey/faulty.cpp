// A library with a fault that shows when icons are edited for the second time: by FAULT it ends SpringBoard,
// or moves the icons by a point.
#include <cstdlib>
#include <string_view>

#include "bridge/runtime.hpp"

extern "C" void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* original);

namespace {

IMP setEditing, topInset;
int edited;

bool has(std::string_view fault) { return fault == std::getenv("FAULT"); }

void countEditing(id self, SEL selector, BOOL editing) {
  if (editing && ++edited == 2 && has("ends")) std::abort();
  reinterpret_cast<void (*)(id, SEL, BOOL)>(setEditing)(self, selector, editing);
}

double movedInset(id self, SEL selector) {
  return reinterpret_cast<double (*)(id, SEL)>(topInset)(self, selector) + (edited >= 2 ? 1 : 0);
}

__attribute__((constructor)) void load() {
  MSHookMessageEx(objc_getClass("SBIconController"), sel_registerName("setIsEditing:"),
                  reinterpret_cast<IMP>(countEditing), &setEditing);
  if (has("moves"))
    MSHookMessageEx(objc_getClass("SBRootIconListView"), sel_registerName("topIconInset"),
                    reinterpret_cast<IMP>(movedInset), &topInset);
}

}  // namespace
