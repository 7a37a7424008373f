// A library with a fault that shows when icons are edited for the second time: by FAULT it ends SpringBoard, or moves the
// icons by a point.
#include <stdlib.h>
#include <string.h>

typedef struct objc_object* id;
typedef struct objc_class* Class;
typedef struct objc_selector* SEL;
typedef void (*IMP)(void);

extern Class objc_getClass(const char* name);
extern SEL sel_registerName(const char* name);
extern void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* original);

static void (*setEditing)(id, SEL, signed char);
static double (*topInset)(id, SEL);
static int edited;

static void countEditing(id self, SEL selector, signed char editing) {
  if (editing && ++edited == 2 && strcmp(getenv("FAULT"), "ends") == 0) abort();
  setEditing(self, selector, editing);
}

static double movedInset(id self, SEL selector) { return topInset(self, selector) + (edited >= 2); }

__attribute__((constructor)) static void load(void) {
  MSHookMessageEx(objc_getClass("SBIconController"), sel_registerName("setIsEditing:"), (IMP)countEditing,
                  (IMP*)&setEditing);
  if (strcmp(getenv("FAULT"), "moves") == 0)
    MSHookMessageEx(objc_getClass("SBIconListView"), sel_registerName("topIconInset"), (IMP)movedInset, (IMP*)&topInset);
}
