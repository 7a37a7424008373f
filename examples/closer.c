// Rows of icons at half the distance, in plain C: nothing but the class runtime and the hooking library.
typedef struct objc_object* id;
typedef struct objc_class* Class;
typedef struct objc_selector* SEL;
typedef void (*IMP)(void);
#if defined(__APPLE__) && !defined(__LP64__)
typedef float CGFloat;
#else
typedef double CGFloat;
#endif

extern Class objc_getClass(const char* name);
extern SEL sel_registerName(const char* name);
extern void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* original);

static CGFloat (*original)(id self, SEL selector);

static CGFloat halfThePadding(id self, SEL selector) { return original(self, selector) / 2; }

__attribute__((constructor)) static void load(void) {
  MSHookMessageEx(objc_getClass("SBIconListView"), sel_registerName("verticalIconPadding"),
                  (IMP)halfThePadding, (IMP*)&original);
}
