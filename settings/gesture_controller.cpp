// RQGestureController's class.
#include "settings/gesture_controller.hpp"

#include "bridge/define.hpp"
#include "panel/popup_view.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "settings/log/console_log.hpp"
#include "settings/store/configuration_manager.hpp"
#include "settings/store/presets_file.hpp"
#include "settings/store/values.hpp"

namespace tilo {

// Never destroyed: SpringBoard asks for layouts until its process ends.
[[clang::no_destroy]] constinit bridge::Strong<RQGestureController> gestController;

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
  self.rootObj.set(ConfigurationManager::sharedManager().configuration());
  self.updateConfigWithValue(static_cast<int>(Values(self.rootObj()).count(keys::customPreset)));
  consoleDebugLog("RQGestureController",
                  "got preferences from gesture "_ns.stringByAppendingString(described(self.rootObj())));
}

void showPopup(RQGestureController self) {
  bool enabled = Values(self.rootObj()).flag(keys::enabled);
  bool quick = Values(self.rootObj()).flag(keys::quick);
  UIWindow window = UIApplication::sharedApplication().keyWindow();
  bool onScreen = self.popView().isDescendantOfView(window);
  if (onScreen || !enabled || !quick) return;
  auto panel = bridge::make<RQPopupView, &NSObject::init>();
  self.popView.set(panel);
  self.popView().show(self.gestureView());
}

// A layout that is not there leaves the one in force.
void updateConfig(RQGestureController self, int position) {
  if (auto preset = presets::at(presets::load(), position)) self.currentPreset.set(preset);
}

void savePrefs(RQGestureController, NSString key, bridge::Object value) {
  ConfigurationManager::sharedManager().saveWithKey_value(key, value);
}

}  // namespace

void defineGestureController() {
  using bridge::method;
  using Face = RQGestureController;
  Controller::define<NSObject>(bridge::adopts<UIGestureRecognizerDelegate>(),
                               method<&Face::sharedInstance, sharedInstance>(),
                               method<&Face::update, update>(), method<&Face::showPopup, showPopup>(),
                               method<&Face::updateConfigWithValue, updateConfig>(),
                               method<&Face::savePrefsWithKey_value, savePrefs>(),
                               Controller::property<&Face::gestureView, &ControllerState::gestureView>(),
                               Controller::property<&Face::popView, &ControllerState::popView>(),
                               Controller::property<&Face::currentPreset, &ControllerState::currentPreset>(),
                               Controller::property<&Face::rootObj, &ControllerState::rootObj>());
}

}  // namespace tilo
