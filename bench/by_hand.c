// The library's answers once more, as a careful person would write them by hand: in C on the class runtime,
// selectors, classes and keys looked up once, no objects made where none are asked for: an answer about
// spacing has one of the class `value` read the settings, which others may have do something else. Padding,
// insets, counts of rows and columns, the dock, and the count of pages; without named layouts, whose places
// in the list are 0 and more.
#include <float.h>
#include <limits.h>
#include <stdint.h>

typedef struct objc_object* id;
typedef struct objc_class* Class;
typedef const struct objc_selector* SEL;
typedef void (*IMP)(void);
typedef unsigned char BOOL;
typedef double CGFloat;
typedef struct {
  CGFloat x, y;
} CGPoint;

extern Class objc_getClass(const char* name);
extern Class objc_getMetaClass(const char* name);
extern Class objc_allocateClassPair(Class superclass, const char* name, unsigned long extraBytes);
extern void objc_registerClassPair(Class cls);
extern BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
extern SEL sel_registerName(const char* name);
extern IMP objc_msg_lookup(id receiver, SEL selector);
extern void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* original);
extern id CFPreferencesCopyKeyList(id domain, id user, id host);
extern id CFPreferencesCopyMultiple(id keys, id domain, id user, id host);
extern void CFPreferencesSetValue(id key, id value, id domain, id user, id host);
extern id kCFPreferencesCurrentUser, kCFPreferencesAnyHost;

__attribute__((visibility("default"))) CGFloat framing[4];

// Sends a message that answers R, with as many arguments as the name says.
#define SEND(R, receiver, selector) ((R(*)(id, SEL))objc_msg_lookup(receiver, selector))(receiver, selector)
#define SEND_1(R, receiver, selector, one) \
  ((R(*)(id, SEL, __typeof__(one)))objc_msg_lookup(receiver, selector))(receiver, selector, one)
#define SEND_2(R, receiver, selector, one, two)                                                              \
  ((R(*)(id, SEL, __typeof__(one), __typeof__(two)))objc_msg_lookup(receiver, selector))(receiver, selector, \
                                                                                         one, two)

#define SELECTORS(each)                                                                                      \
  each(objectForKey, "objectForKey:") each(isKindOfClass, "isKindOfClass:") each(doubleValue, "doubleValue") \
      each(integerValue, "integerValue") each(boolValue, "boolValue") each(subviews, "subviews")             \
          each(count, "count") each(objectAtIndex, "objectAtIndex:") each(sharedInstance, "sharedInstance")  \
              each(retain, "retain") each(release, "release") each(setValueForKey, "setValue:forKey:")       \
                  each(numberWithFloat, "numberWithFloat:") each(scannerWithString, "scannerWithString:")    \
                      each(scanDouble, "scanDouble:") each(alloc, "alloc") each(obtain, "obtainValues")
#define DECLARE(name, text) static SEL name;
SELECTORS(DECLARE)

#define CLASSES(each)                                                                               \
  each(NSNumber) each(NSString) each(NSScanner) each(SBDockIconListView) each(SBFolderIconListView) \
      each(SBRootIconListView) each(SBIconController)
#define DECLARE_CLASS(name) static Class name;
CLASSES(DECLARE_CLASS)

#define KEYS(each)                                                                                   \
  each(enabled) each(icons) each(rows) each(columns) each(custom_preset) each(vertIconPadding)       \
      each(horiIconPadding) each(sideIconInset) each(topIconInset) each(dock) each(dockIconsEnabled) \
          each(dockIcons) each(numOfPages)
#define DECLARE_KEY(name) static id key_##name;
KEYS(DECLARE_KEY)

static id domain, settings, controller;

static BOOL isKind(id object, Class cls) { return SEND_1(BOOL, object, isKindOfClass, cls); }
static id stored(id key) { return SEND_1(id, settings, objectForKey, key); }

// The number, or string that begins with one, or nothing.
static id numberIn(id object) {
  if (!object) return 0;
  double value = 0;
  if (isKind(object, NSNumber))
    value = SEND(double, object, doubleValue);
  else if (!isKind(object, NSString) ||
           !SEND_1(BOOL, SEND_1(id, (id)NSScanner, scannerWithString, object), scanDouble, &value))
    return 0;
  return value - value == 0 ? object : 0;
}

static BOOL truth(id key) {
  id object = stored(key);
  if (!object) return 0;
  if (!isKind(object, NSString)) object = numberIn(object);
  return object ? SEND(BOOL, object, boolValue) : 0;
}

static float number(id key) {
  id object = numberIn(stored(key));
  if (!object) return 0;
  double value = SEND(double, object, doubleValue);
  return value > FLT_MAX ? FLT_MAX : value < -FLT_MAX ? -FLT_MAX : (float)value;
}

static long integer(id key, long absent) {
  id object = numberIn(stored(key));
  return object ? SEND(long, object, integerValue) : absent;
}

static BOOL isDockOrFolder(id list) {
  return isKind(list, SBDockIconListView) || isKind(list, SBFolderIconListView);
}

// Spacing.

typedef CGFloat (*Length)(id, SEL);
static Length systemVertical, systemHorizontal, systemSide, systemTop;

static Class valueClass;

static void obtainValues(id self, SEL selector) {
  (void)self, (void)selector;
  framing[0] = number(key_vertIconPadding);
  framing[1] = number(key_horiIconPadding);
  framing[2] = number(key_sideIconInset);
  framing[3] = number(key_topIconInset);
}

static CGFloat spacing(id self, SEL selector, Length system, int place) {
  id made = SEND(id, (id)valueClass, alloc);
  SEND(void, made, obtain);
  SEND(void, made, release);
  long layout = integer(key_custom_preset, 0);
  if (!truth(key_enabled) || layout >= 0 || isDockOrFolder(self)) return system(self, selector);
  CGFloat length = framing[place];
  return length > 1e6 ? 1e6 : length < -1e6 ? -1e6 : length;
}

static CGFloat verticalIconPadding(id self, SEL selector) {
  return spacing(self, selector, systemVertical, 0);
}

static CGFloat horizontalIconPadding(id self, SEL selector) {
  id now = SEND(id, (id)SBIconController, sharedInstance);
  if (now != controller) {
    SEND(id, now, retain);
    if (controller) SEND(void, controller, release);
    controller = now;
  }
  return spacing(self, selector, systemHorizontal, 1);
}

static CGFloat systemInset;

static CGFloat sideIconInset(id self, SEL selector) {
  systemInset = systemSide(self, selector);
  return spacing(self, selector, systemSide, 2);
}

static CGFloat topIconInset(id self, SEL selector) { return spacing(self, selector, systemTop, 3); }

// Counts.

typedef unsigned long (*Count)(id, SEL);
typedef unsigned long (*CountFor)(id, SEL, long);
static Count systemRowsForSpacing, systemRows, systemColumns;
static CountFor systemRowsFor, systemColumnsFor;

static unsigned long gridCount(id list, id key, unsigned long system) {
  if (!truth(key_icons) || !truth(key_enabled)) return system;
  long own = integer(key, LONG_MIN);
  return own == LONG_MIN || isDockOrFolder(list) ? system : (unsigned long)(long)(int32_t)own;
}

#define REPLACE_COUNT(name, system, key)                                               \
  static unsigned long name(id self, SEL selector) {                                   \
    unsigned long answer = system(self, selector);                                     \
    return isKind(self, SBFolderIconListView) ? answer : gridCount(self, key, answer); \
  }
REPLACE_COUNT(rowsForSpacing, systemRowsForSpacing, key_rows)
REPLACE_COUNT(rowsNow, systemRows, key_rows)
REPLACE_COUNT(columnsNow, systemColumns, key_columns)

static unsigned long rowsFor(id self, SEL selector, long orientation) {
  return gridCount(self, key_rows, systemRowsFor(self, selector, orientation));
}
static unsigned long columnsFor(id self, SEL selector, long orientation) {
  return gridCount(self, key_columns, systemColumnsFor(self, selector, orientation));
}
static unsigned long folderRowsFor(id self, SEL selector, long orientation) {
  (void)self, (void)selector, (void)orientation;
  return 3;
}

// The dock.

static Count systemInRow, systemMostIcons;
static CountFor systemDockRows, systemVisibleRows;
static CGFloat (*systemHeight)(id, SEL);

static unsigned long dockCount(void) {
  id object = stored(key_dockIcons);
  if (!object) return 4;
  object = numberIn(object);
  return object ? (unsigned long)(long)(int32_t)SEND(long, object, integerValue) : 0;
}
static unsigned long inRow(id self, SEL selector) {
  return truth(key_dockIconsEnabled) ? dockCount() : systemInRow(self, selector);
}
static unsigned long mostIcons(id self, SEL selector) {
  return truth(key_dockIconsEnabled) ? dockCount() : systemMostIcons(self, selector);
}
static unsigned long dockRows(id self, SEL selector, long orientation) {
  return truth(key_dockIconsEnabled) ? dockCount() : systemDockRows(self, selector, orientation);
}
static unsigned long visibleRows(id self, SEL selector, long orientation) {
  return truth(key_dockIconsEnabled) ? dockCount() : systemVisibleRows(self, selector, orientation);
}
static CGFloat dockHeight(id self, SEL selector) {
  return truth(key_dock) ? 0 : systemHeight(self, selector);
}

// Pages.

static void (*systemScroll)(id, SEL, CGPoint);

static void scroll(id self, SEL selector, CGPoint offset) {
  id views = SEND(id, self, subviews);
  unsigned long all = SEND(unsigned long, views, count);
  int pages = 0;
  for (unsigned long i = 0; i < all; ++i)
    pages += isKind(SEND_1(id, views, objectAtIndex, i), SBRootIconListView);
  id value = SEND_1(id, (id)NSNumber, numberWithFloat, (float)pages);
  CFPreferencesSetValue(key_numOfPages, value, domain, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  SEND_2(void, settings, setValueForKey, value, key_numOfPages);
  systemScroll(self, selector, offset);
}

static id string(const char* text) {
  id made = SEND(id, (id)NSString, alloc);
  return SEND_1(id, made, sel_registerName("initWithUTF8String:"), text);
}

__attribute__((constructor)) static void load(void) {
#define REGISTER(name, text) name = sel_registerName(text);
  SELECTORS(REGISTER)
#define FIND(name) name = objc_getClass(#name);
  CLASSES(FIND)
#define MAKE(name) key_##name = string(#name);
  KEYS(MAKE)
  valueClass = objc_allocateClassPair(objc_getClass("NSObject"), "value", 0);
  class_addMethod(valueClass, obtain, (IMP)obtainValues, "v@:");
  objc_registerClassPair(valueClass);
  domain = string("com.wexor.tilo");
  id pool = SEND(id, SEND(id, (id)objc_getClass("NSAutoreleasePool"), sel_registerName("alloc")),
                 sel_registerName("init"));
  id keys = CFPreferencesCopyKeyList(domain, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  id values = CFPreferencesCopyMultiple(keys, domain, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  settings = SEND(id, values, sel_registerName("mutableCopy"));
  SEND(void, pool, sel_registerName("drain"));

#define REPLACE(cls, name, function, system) \
  MSHookMessageEx(cls, sel_registerName(name), (IMP)function, (IMP*)&system)
  Class list = objc_getClass("SBIconListView"), lists = objc_getMetaClass("SBIconListView");
  Class docks = objc_getMetaClass("SBDockIconListView");
  static CountFor systemFolderRows;
  REPLACE(list, "verticalIconPadding", verticalIconPadding, systemVertical);
  REPLACE(list, "horizontalIconPadding", horizontalIconPadding, systemHorizontal);
  REPLACE(SBRootIconListView, "sideIconInset", sideIconInset, systemSide);
  REPLACE(SBRootIconListView, "topIconInset", topIconInset, systemTop);
  REPLACE(list, "iconRowsForSpacingCalculation", rowsForSpacing, systemRowsForSpacing);
  REPLACE(list, "iconRowsForCurrentOrientation", rowsNow, systemRows);
  REPLACE(list, "iconColumnsForCurrentOrientation", columnsNow, systemColumns);
  REPLACE(lists, "iconRowsForInterfaceOrientation:", rowsFor, systemRowsFor);
  REPLACE(lists, "iconColumnsForInterfaceOrientation:", columnsFor, systemColumnsFor);
  REPLACE(objc_getMetaClass("SBFolderIconListView"), "iconRowsForInterfaceOrientation:", folderRowsFor,
          systemFolderRows);
  REPLACE(SBDockIconListView, "iconsInRowForSpacingCalculation", inRow, systemInRow);
  REPLACE(docks, "maxIcons", mostIcons, systemMostIcons);
  REPLACE(docks, "iconRowsForInterfaceOrientation:", dockRows, systemDockRows);
  REPLACE(docks, "maxVisibleIconRowsInterfaceOrientation:", visibleRows, systemVisibleRows);
  REPLACE(objc_getMetaClass("SBDockView"), "defaultHeight", dockHeight, systemHeight);
  REPLACE(objc_getClass("SBIconScrollView"), "setContentOffset:", scroll, systemScroll);
}
