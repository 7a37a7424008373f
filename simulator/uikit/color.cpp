// UIColor.
#include "simulator/uikit/color.hpp"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "bridge/define.hpp"

namespace sim::uikit {
namespace {

struct ColorState {
  Color color;
};

using ColorClass = bridge::Implementation<UIColor, ColorState>;

struct Comparable : bridge::Face<"NSObject", bridge::Object> {
  MESSAGE Method<"isEqual:", BOOL(bridge::Object)> isEqual;
  MESSAGE Method<"hash", NSUInteger()> hash;
};

Color clamped(double red, double green, double blue, double alpha) {
  auto unit = [](double component) { return std::clamp(component, 0.0, 1.0); };
  return {unit(red), unit(green), unit(blue), unit(alpha)};
}

bridge::Strong<UIColor> initialised(UIColor self, const Color& color) {
  auto made = bridge::adopt<UIColor>(ColorClass::super<&NSObject::init>(self).leak());
  ColorClass::state(made).color = color;
  return made;
}

bridge::Strong<UIColor> initWithRed(UIColor self, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return initialised(self, clamped(red, green, blue, alpha));
}

bridge::Strong<UIColor> initWithWhite(UIColor self, CGFloat white, CGFloat alpha) {
  return initialised(self, clamped(white, white, white, alpha));
}

UIColor colorWithRed(Class, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return makeColor(clamped(red, green, blue, alpha)).autoreleased();
}

UIColor colorWithWhite(Class, CGFloat white, CGFloat alpha) {
  return makeColor(clamped(white, white, white, alpha)).autoreleased();
}

UIColor colorWithAlphaComponent(UIColor self, CGFloat alpha) {
  const Color& color = ColorClass::state(self).color;
  return makeColor(clamped(color.red, color.green, color.blue, alpha)).autoreleased();
}

BOOL getComponents(UIColor self, CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) {
  const Color& color = ColorClass::state(self).color;
  if (red) *red = color.red;
  if (green) *green = color.green;
  if (blue) *blue = color.blue;
  if (alpha) *alpha = color.alpha;
  return YES;
}

BOOL isEqual(UIColor self, bridge::Object other) {
  return bridge::isKindOf<UIColor>(other) && colorOf(self) == colorOf(bridge::as<UIColor>(other));
}

NSUInteger hash(UIColor self) {
  const Color& color = ColorClass::state(self).color;
  std::uint64_t mixed = 0;
  // Adding zero makes equal hashes of the two zeros, which are equal.
  for (double component : {color.red, color.green, color.blue, color.alpha})
    mixed = mixed * 1099511628211u + std::bit_cast<std::uint64_t>(component + 0.0);
  return mixed;
}

// A named colour is one object for the life of the process. `Alpha` and the others are thousandths.
template <int Red, int Green, int Blue, int Alpha = 1000>
UIColor named(Class) {
  static const id color = makeColor({Red / 1000.0, Green / 1000.0, Blue / 1000.0, Alpha / 1000.0}).leak();
  return bridge::as<UIColor>(color);
}

template <int Numerator, int Denominator>
UIColor gray(Class) {
  constexpr double white = static_cast<double>(Numerator) / Denominator;
  static const id color = makeColor({white, white, white, 1}).leak();
  return bridge::as<UIColor>(color);
}

}  // namespace

Color colorOf(UIColor color) { return color ? ColorClass::state(color).color : clearColor; }

bridge::Strong<UIColor> makeColor(const Color& color) {
  auto made = bridge::make<UIColor, &NSObject::init>();
  ColorClass::state(made).color = color;
  return made;
}

void defineColor() {
  using bridge::method;
  ColorClass::define<NSObject>(
      method<&UIColor::initWithRed_green_blue_alpha, initWithRed>(),
      method<&UIColor::initWithWhite_alpha, initWithWhite>(),
      method<&UIColor::colorWithRed_green_blue_alpha, colorWithRed>(),
      method<&UIColor::colorWithWhite_alpha, colorWithWhite>(),
      method<&UIColor::colorWithAlphaComponent, colorWithAlphaComponent>(),
      method<&UIColor::getRed_green_blue_alpha, getComponents>(), method<&Comparable::isEqual, isEqual>(),
      method<&Comparable::hash, hash>(),
      // Apple's values, as the platform's reference gives them.
      method<&UIColor::blackColor, gray<0, 1>>(), method<&UIColor::darkGrayColor, gray<1, 3>>(),
      method<&UIColor::lightGrayColor, gray<2, 3>>(), method<&UIColor::whiteColor, gray<1, 1>>(),
      method<&UIColor::grayColor, gray<1, 2>>(), method<&UIColor::redColor, named<1000, 0, 0>>(),
      method<&UIColor::greenColor, named<0, 1000, 0>>(), method<&UIColor::blueColor, named<0, 0, 1000>>(),
      method<&UIColor::cyanColor, named<0, 1000, 1000>>(),
      method<&UIColor::yellowColor, named<1000, 1000, 0>>(),
      method<&UIColor::magentaColor, named<1000, 0, 1000>>(),
      method<&UIColor::orangeColor, named<1000, 500, 0>>(),
      method<&UIColor::purpleColor, named<500, 0, 500>>(),
      method<&UIColor::brownColor, named<600, 400, 200>>(),
      method<&UIColor::clearColor, named<0, 0, 0, 0>>());
}

}  // namespace sim::uikit
