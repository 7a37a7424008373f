// RQGestureController's class.
#include "settings/gesture_controller.hpp"

#include "bridge/define.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/number.hpp"
#include "platform/uikit/application.hpp"
#include "settings/configuration_manager.hpp"
#include "settings/console_log.hpp"
#include "settings/presets_file.hpp"

namespace tilo {
namespace {

struct ControllerState {
  bridge::Strong<UIView> gestureView;
  bridge::Strong<RQPopupView> popView;
  bridge::Strong<NSDictionary> currentPreset;
  bridge::Strong<NSMutableDictionary> rootObj;
};

using Controller = bridge::Implementation<RQGestureController, ControllerState>;

RQGestureController sharedInstance(Class) {
  static constinit long once = 0;
  static constinit id shared = nullptr;
  dispatch::once(once, [](void*) {
    shared = bridge::make<RQGestureController, &NSObject::init>().leak();
    bridge::as<RQGestureController>(shared).update();
  });
  return bridge::as<RQGestureController>(shared);
}

void update(RQGestureController self) {
  self.setRootObj(ConfigurationManager::sharedManager().configuration());
  NSNumber selected = bridge::as<NSNumber>(self.rootObj().objectForKey("custom_preset"_ns));
  self.updateConfigWithValue(static_cast<int>(selected.integerValue()));
  consoleDebugLog("RQGestureController",
                  "got preferences from gesture "_ns.stringByAppendingString(described(self.rootObj())));
}

void showPopup(RQGestureController self) {
  bool enabled = bridge::as<NSNumber>(self.rootObj().objectForKey("enabled"_ns)).boolValue();
  bool quick = bridge::as<NSNumber>(self.rootObj().objectForKey("quick"_ns)).boolValue();
  UIWindow window = UIApplication::sharedApplication().keyWindow();
  bool onScreen = self.popView().isDescendantOfView(window);
  if (onScreen || !enabled || !quick) return;
  auto panel = bridge::make<RQPopupView, &NSObject::init>();
  self.setPopView(panel);
  self.popView().show(self.gestureView());
}

void updateConfig(RQGestureController self, int position) {
  auto presets = presets::renumbered(presets::load());
  for (NSUInteger i = 0; i < presets->count(); ++i) {
    NSDictionary preset = bridge::as<NSDictionary>(presets->objectAtIndex(i));
    if (bridge::as<NSNumber>(preset.objectForKey("value"_ns)).intValue() == position)
      self.setCurrentPreset(preset);
  }
}

void savePrefs(RQGestureController, NSString key, bridge::Object value) {
  ConfigurationManager::sharedManager().saveWithKey_value(key, value);
}

}  // namespace

void defineGestureController() {
  using bridge::method;
  using Face = RQGestureController;
  Controller::define<NSObject>(
      method<&Face::sharedInstance, sharedInstance>(), method<&Face::update, update>(),
      method<&Face::showPopup, showPopup>(), method<&Face::updateConfigWithValue, updateConfig>(),
      method<&Face::savePrefsWithKey_value, savePrefs>(),
      Controller::property<&Face::gestureView, &Face::setGestureView, &ControllerState::gestureView>(),
      Controller::property<&Face::popView, &Face::setPopView, &ControllerState::popView>(),
      Controller::property<&Face::currentPreset, &Face::setCurrentPreset, &ControllerState::currentPreset>(),
      Controller::property<&Face::rootObj, &Face::setRootObj, &ControllerState::rootObj>());
}

}  // namespace tilo
