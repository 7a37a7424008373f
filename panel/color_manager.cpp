// RQColorManager's class.
#include "panel/color_manager.hpp"

#include "bridge/define.hpp"

namespace tilo {
namespace {

struct Components {
  int red, green, blue;  // 0 to 255
};

constexpr Components palette[] = {
    {250, 250, 250}, {178, 209, 246}, {255, 205, 180}, {255, 238, 180}, {175, 249, 175},
    {249, 175, 216}, {249, 84, 115},  {218, 150, 243}, {125, 238, 205},
};

UIColor opaque(const Components& of) {
  const auto part = [](int level) { return static_cast<CGFloat>(level) / 255; };
  return UIColor::colorWithRed_green_blue_alpha(part(of.red), part(of.green), part(of.blue), 1);
}

UIColor darkModeBlack(Class) { return opaque({30, 30, 30}); }

NSArray colors(Class) {
  NSMutableArray all = NSMutableArray::array();
  for (const Components& entry : palette) all.addObject(opaque(entry));
  return all;
}

}  // namespace

void defineColorManager() {
  using bridge::method;
  bridge::Implementation<RQColorManager>::define<NSObject>(
      method<&RQColorManager::darkModeBlack, darkModeBlack>(), method<&RQColorManager::colors, colors>());
}

}  // namespace tilo
