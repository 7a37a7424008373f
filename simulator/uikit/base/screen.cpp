// UIScreen.
#include "platform/uikit/screen.hpp"

#include "bridge/define.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim::uikit {
namespace {

UIScreen mainScreen(Class) {
  static const id screen = bridge::make<UIScreen, &NSObject::init>().leak();
  return bridge::as<UIScreen>(screen);
}

CGRect bounds(UIScreen) { return {{}, screenSize()}; }
CGRect nativeBounds(UIScreen) { return {{}, configuration().nativeSize}; }
CGFloat scale(UIScreen) { return configuration().scale; }

}  // namespace

void defineScreen() {
  using bridge::method;
  bridge::Implementation<UIScreen>::define<NSObject>(
      method<&UIScreen::mainScreen, mainScreen>(), method<&UIScreen::bounds, bounds>(),
      method<&UIScreen::nativeBounds, nativeBounds>(), method<&UIScreen::scale, scale>());
}

}  // namespace sim::uikit
