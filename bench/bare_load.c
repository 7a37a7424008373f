// What the library does to SpringBoard and to the disk while it is loaded, and nothing else: the same methods
// installed by the same hooking function, each replaced by itself, and the same files looked for, read and
// written through Foundation. With LABELS_ALONE it hides icon labels and
// does no more.
#include <stddef.h>

typedef struct objc_object* id;
typedef struct objc_class* Class;
typedef const struct objc_selector* SEL;
typedef void (*IMP)(void);
typedef unsigned char BOOL;

extern Class objc_getClass(const char* name);
extern Class objc_getMetaClass(const char* name);
extern IMP class_getMethodImplementation(Class cls, SEL selector);
extern BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
extern SEL sel_registerName(const char* name);
extern IMP objc_msg_lookup(id receiver, SEL selector);
extern void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* original);
extern void* dlopen(const char* path, int mode);
extern BOOL CFPreferencesSynchronize(id domain, id user, id host);
extern id CFPreferencesCopyKeyList(id domain, id user, id host);
extern id CFPreferencesCopyMultiple(id keys, id domain, id user, id host);
extern id kCFPreferencesCurrentUser, kCFPreferencesAnyHost;

#define FUNCTION(R, receiver, name) ((R(*)(id, SEL, ...))objc_msg_lookup((id)(receiver), sel_registerName(name)))
#define SEND(R, receiver, name) FUNCTION(R, receiver, name)((id)(receiver), sel_registerName(name))
#define SEND_WITH(R, receiver, name, ...) \
  FUNCTION(R, receiver, name)((id)(receiver), sel_registerName(name), __VA_ARGS__)
#define CLASS(name) ((id)objc_getClass(name))

static id string(const char* text) { return SEND_WITH(id, CLASS("NSString"), "stringWithUTF8String:", text); }

// The hooks.

static const struct {
  const char* className;
  const char* method;  // "-name:", "+name:"
  const char* types;   // of one that is added
} rows[] = {
    {"SBIconImageView", "-layoutSubviews", 0},
    {"SBIconImageView", "+cornerRadius", 0},
    {"SBIconImageView", "-showsSquareCorners", 0},
    {"SBIconListView", "-iconRowsForSpacingCalculation", 0},
    {"SBIconListView", "-iconRowsForCurrentOrientation", 0},
    {"SBIconListView", "-iconColumnsForCurrentOrientation", 0},
    {"SBIconListView", "+iconRowsForInterfaceOrientation:", 0},
    {"SBIconListView", "+iconColumnsForInterfaceOrientation:", 0},
    {"SBIconListView", "-verticalIconPadding", 0},
    {"SBIconListView", "-horizontalIconPadding", 0},
    {"SBFolderIconListView", "+iconRowsForInterfaceOrientation:", 0},
    {"SBRootIconListView", "-sideIconInset", 0},
    {"SBRootIconListView", "-topIconInset", 0},
    {"SBIconLabelImageParameters", "-shadowColor", 0},
    {"SBIconLabelImageParameters", "-textColor", 0},
    {"SBUIController", "-activateApplicationAnimated:", 0},
    {"SBIconListPageControl", "-_setIndicatorImage:toEnabled:index:", 0},
    {"SBIconListPageControl", "-_setIndicatorImage:toEnabled:", 0},
    {"SBIconLabelImage", "+_rectWithDrawing:inRect:fromParameters:", 0},
    {"SBIconScrollView", "-listCellPreferencesUpdated:withUserInfo:", "v@:@@"},
    {"SBIconScrollView", "-preferencesUpdated:withUserInfo:", "v@:@@"},
    {"SBIconScrollView", "-layout:", "v@:@"},
    {"SBIconScrollView", "-setContentOffset:", 0},
    {"SBIconScrollView", "-dealloc", 0},
    {"SBIconScrollView", "-swipe:", "v@:@"},
    {"SBIconScrollView", "-init", 0},
    {"SBIconScrollView", "-touchesEnded:withEvent:", 0},
    {"SBIconScrollView", "-touchesMoved:withEvent:", 0},
    {"SBIconScrollView", "-swipeGesture", "@@:"},
    {"SBIconScrollView", "-setSwipeGesture:", "v@:@"},
    {"SBIconScrollView", "-tapGesture", "@@:"},
    {"SBIconScrollView", "-setTapGesture:", "v@:@"},
    {"SBDockIconListView", "+isDockIconsEnabled", "B@:"},
    {"SBDockIconListView", "+numberOfDockIcons", "i@:"},
    {"SBDockIconListView", "-layoutSubviews", 0},
    {"SBDockIconListView", "-effectiveSpacing", 0},
    {"SBDockIconListView", "-iconAtPoint:index:proposedOrder:grabbedIcon:", 0},
    {"SBDockIconListView", "-iconsInRowForSpacingCalculation", 0},
    {"SBDockIconListView", "+maxIcons", 0},
    {"SBDockIconListView", "+iconRowsForInterfaceOrientation:", 0},
    {"SBDockIconListView", "+maxVisibleIconRowsInterfaceOrientation:", 0},
    {"SBIconController", "-init", 0},
    {"SBIconController", "-viewDidAppear:", 0},
    {"SBIconController", "-didRotateFromInterfaceOrientation:", 0},
    {"SBDockView", "+defaultHeight", 0},
    {"SBDockView", "-setBackgroundAlpha:", 0},
};

static void nothing(void) {}

// As the settings of a first start have it, labels are out of sight. To draw them takes longer than all else.
typedef struct {
  double x, y, width, height;
} Rect;
static Rect labelRect(id self, SEL selector, BOOL drawing, Rect rect, id parameters) {
  (void)self, (void)selector, (void)drawing, (void)rect, (void)parameters;
  return (Rect){0, 0, 0, 0};
}
static id textColor(id self, SEL selector) {
  (void)self, (void)selector;
  return SEND(id, CLASS("UIColor"), "clearColor");
}

static IMP inPlaceOf(Class cls, SEL selector) {
  if (selector == sel_registerName("_rectWithDrawing:inRect:fromParameters:")) return (IMP)labelRect;
  if (selector == sel_registerName("textColor")) return (IMP)textColor;
  if (LABELS_ALONE) return 0;
  return class_getMethodImplementation(cls, selector);
}

static void installMethods(void) {
  for (size_t i = 0; i < sizeof rows / sizeof *rows; ++i) {
    const char* name = rows[i].method + 1;
    Class cls = *rows[i].method == '+' ? objc_getMetaClass(rows[i].className) : objc_getClass(rows[i].className);
    SEL selector = sel_registerName(name);
    static IMP previous[sizeof rows / sizeof *rows];
    const IMP implementation = inPlaceOf(cls, selector);
    if (!implementation) continue;
    if (rows[i].types)
      class_addMethod(cls, selector, nothing, rows[i].types);
    else
      MSHookMessageEx(cls, selector, implementation, &previous[i]);
  }
}

// The files.

#define PREFERENCES "/var/mobile/Library/Preferences/com.wexor.tilo.plist"
#define FOLDER "/var/mobile/Documents/com.wexor.tilo3/"

static BOOL exists(const char* file) {
  return SEND_WITH(BOOL, SEND(id, CLASS("NSFileManager"), "defaultManager"), "fileExistsAtPath:", string(file));
}

static void writeDefaults(void) {
  static const char* const names[] = {
      "qsBackgroundColor", "isDarkMode", "dockIcons",       "dockIconsEnabled", "forceTouch",
      "twoFinger",         "dock",       "numOfPages",      "columns",          "rows",
      "enabled",           "icons",      "labels",          "page",             "preset",
      "quick",             "vertIconPadding", "horiIconPadding", "sideIconInset", "topIconInset"};
  id values = SEND(id, CLASS("NSMutableDictionary"), "dictionary");
  for (size_t i = 0; i < sizeof names / sizeof *names; ++i)
    SEND_WITH(void, values, "setObject:forKey:", SEND_WITH(id, CLASS("NSNumber"), "numberWithInt:", 1), string(names[i]));
  SEND_WITH(BOOL, values, "writeToFile:atomically:", string(PREFERENCES), 1);
}

static id readPreferences(void) {
  id domain = string("com.wexor.tilo");
  CFPreferencesSynchronize(domain, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  id keys = CFPreferencesCopyKeyList(domain, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  id values = CFPreferencesCopyMultiple(keys, domain, kCFPreferencesCurrentUser, kCFPreferencesAnyHost);
  return SEND(id, values, "mutableCopy");
}

static id readLayouts(void) {
  id path = string(FOLDER "custom/config.json");
  id data = SEND_WITH(id, CLASS("NSData"), "dataWithContentsOfFile:", path);
  if (!data && !exists(FOLDER "custom/config.json")) {
    static const char empty[] = "{\"configurations\":[]}";
    SEND_WITH(BOOL, SEND(id, CLASS("NSFileManager"), "defaultManager"),
         "createDirectoryAtPath:withIntermediateDirectories:attributes:error:", string(FOLDER "custom/"), 1,
         (id)0, (id*)0);
    data = SEND_WITH(id, CLASS("NSData"), "dataWithBytes:length:", empty, sizeof empty - 1);
    SEND_WITH(BOOL, data, "writeToFile:atomically:", path, 1);
  }
  return SEND_WITH(id, CLASS("NSJSONSerialization"), "JSONObjectWithData:options:error:", data, 0UL, (id*)0);
}

// The centre by which the settings tell of changes has a socket on the disk.
static void serveMessages(void) {
  id center = SEND_WITH(id, CLASS("CPDistributedMessagingCenter"), "centerNamed:",
                        string("com.wexor.tilo3.preferences.updated"));
  SEND(void, center, "runServerOnCurrentThread");
}

static void useFiles(void) {
  dlopen("/Library/MobileSubstrate/DynamicLibraries/IconSupport.dylib", 2);
  if (exists(FOLDER "restoring.plist")) return;
  if (!exists(PREFERENCES)) writeDefaults();
  readPreferences();
  readLayouts();
  serveMessages();
}

__attribute__((constructor)) static void load(void) {
  id pool = SEND(id, SEND(id, CLASS("NSAutoreleasePool"), "alloc"), "init");
  if (!LABELS_ALONE) useFiles();
  installMethods();
  SEND(void, pool, "drain");
}
