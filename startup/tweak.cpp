// What runs when the loader loads the library into SpringBoard: two routines, in this order, and nothing
// else.
#include "bridge/define.hpp"
#include "controls/button.hpp"
#include "controls/progress_hud.hpp"
#include "panel/color_manager.hpp"
#include "panel/popup_view.hpp"
#include "panel/resource_bundle.hpp"
#include "platform/iconsupport/icon_support.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/log/console_log.hpp"
#include "settings/log/logger.hpp"
#include "settings/store/configuration_manager.hpp"
#include "settings/store/restoration.hpp"
#include "settings/store/values.hpp"
#include "startup/defaults.hpp"
#include "startup/grid/geometry.hpp"
#include "startup/method_table.hpp"

extern "C" void* dlopen(const char* path, int mode);

namespace {

using namespace tilo;

constexpr int bindNow = 2;  // RTLD_NOW, the same everywhere

// Of two copies in one process, as two loaders load them, the second leaves everything to the first.
bool inert;

void defineClasses() {
  defineLogger();
  defineConfigurationManager();
  defineGestureController();
  defineValue();
  defineButton();
  defineColorManager();
  addResourceBundle();
  defineColorSlider();
  defineProgressHUD();
  definePopupView();
}

// Tells IconSupport, where it is installed, that the icon layout is extended.
void registerWithIconSupport() {
  dlopen("/Library/MobileSubstrate/DynamicLibraries/IconSupport.dylib", bindNow);
  ISIconSupport::sharedInstance().addExtension("Tilo"_ns);
}

__attribute__((constructor)) void constructTweak() {
  bridge::Pool pool;
  inert = !bridge::claim("tilo3.loaded");
  if (inert) return;
  defineClasses();
  registerWithIconSupport();
  restoration::finish();
  seedPreferences();
  rootObj = bridge::retained(ConfigurationManager::sharedManager().configuration());
  consoleDebugLog("Tweak", "got preferences "_ns.stringByAppendingString(described(rootObj.get())));
  installMethods();
}

// The initialiser of `gestController`: the hooks can count on it from the first layout on.
__attribute__((constructor)) void initialiseGestureController() {
  if (inert) return;
  bridge::Pool pool;
  gestController = bridge::retained(RQGestureController::sharedInstance());
}

}  // namespace
