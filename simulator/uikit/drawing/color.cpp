// UIColor and CGColor.
#include "simulator/uikit/drawing/color.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "bridge/define.hpp"
#include "platform/coregraphics/context.hpp"
#include "simulator/uikit/base/coding.hpp"
#include "simulator/uikit/base/configuration.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr int firstVersionWithExtendedRange = 10;

struct ColorState {
  CGColor color;
};

using ColorClass = bridge::Implementation<UIColor, ColorState>;

struct Comparable : bridge::Face<"NSObject", bridge::Object> {
  MESSAGE Method<"hash", NSUInteger()> hash;
};

struct CodedColor : bridge::Face<"UIColor", UIColor> {
  MESSAGE Method<"initWithCoder:", UIColor(NSCoder)> initWithCoder;
};

struct HueColor {
  double hue, saturation, brightness;
};

NSString componentKey(std::size_t index) {
  const NSString keys[] = {"UIColor0"_ns, "UIColor1"_ns, "UIColor2"_ns, "UIColor3"_ns};
  return keys[index];
}

double unit(double component) { return std::clamp(component, 0.0, 1.0); }

// What is linked for system 10 or later, as SpringBoard is with its system, has colours beyond the screen's.
double level(double component) {
  return std::atoi(configuration().systemVersion.c_str()) >= firstVersionWithExtendedRange ? component
                                                                                           : unit(component);
}

CGColor colored(double red, double green, double blue, double alpha) {
  return {{level(red), level(green), level(blue), unit(alpha)}, false};
}

CGColor grey(double white, double alpha) { return {{level(white), unit(alpha)}, true}; }

CGColor fromHue(double hue, double saturation, double brightness, double alpha) {
  const double sector = unit(hue) * 6;
  const double value = unit(brightness);
  auto component = [&](double shift) {
    const double place = std::fmod(sector + shift, 6);
    return value - value * unit(saturation) * std::max(0.0, std::min({place, 4 - place, 1.0}));
  };
  return colored(component(5), component(3), component(1), alpha);
}

HueColor toHue(const Color& color) {
  const double most = std::max({color.red, color.green, color.blue});
  const double range = most - std::min({color.red, color.green, color.blue});
  if (range == 0) return {0, 0, most};
  double sector;
  if (most == color.red)
    sector = (color.green - color.blue) / range;
  else if (most == color.green)
    sector = 2 + (color.blue - color.red) / range;
  else
    sector = 4 + (color.red - color.green) / range;
  return {(sector < 0 ? sector + 6 : sector) / 6, range / most, most};
}

Strong<UIColor> make(const CGColor& color) {
  auto made = bridge::make<UIColor, &NSObject::init>();
  ColorClass::state(made).color = color;
  return made;
}

Strong<UIColor> initialised(UIColor self, const CGColor& color) {
  auto made = ColorClass::superInit<&NSObject::init>(self);
  ColorClass::state(made).color = color;
  return made;
}

Strong<UIColor> initWithRed(UIColor self, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return initialised(self, colored(red, green, blue, alpha));
}

Strong<UIColor> initWithWhite(UIColor self, CGFloat white, CGFloat alpha) {
  return initialised(self, grey(white, alpha));
}

UIColor colorWithRed(Class, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return make(colored(red, green, blue, alpha)).autoreleased();
}

UIColor colorWithWhite(Class, CGFloat white, CGFloat alpha) {
  return make(grey(white, alpha)).autoreleased();
}

UIColor colorWithHue(Class, CGFloat hue, CGFloat saturation, CGFloat brightness, CGFloat alpha) {
  return make(fromHue(hue, saturation, brightness, alpha)).autoreleased();
}

UIColor colorWithAlphaComponent(UIColor self, CGFloat alpha) {
  CGColor color = ColorClass::state(self).color;
  color.components[color.gray ? 1 : 3] = unit(alpha);
  return make(color).autoreleased();
}

BOOL getComponents(UIColor self, CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) {
  const CGColor& color = ColorClass::state(self).color;
  const auto& parts = color.components;
  if (red) *red = parts[0];
  if (green) *green = parts[color.gray ? 0 : 1];
  if (blue) *blue = parts[color.gray ? 0 : 2];
  if (alpha) *alpha = parts[color.gray ? 1 : 3];
  return YES;
}

BOOL getHue(UIColor self, CGFloat* hue, CGFloat* saturation, CGFloat* brightness, CGFloat* alpha) {
  const Color color = colorOf(self);
  const HueColor parts = toHue(color);
  if (hue) *hue = parts.hue;
  if (saturation) *saturation = parts.saturation;
  if (brightness) *brightness = parts.brightness;
  if (alpha) *alpha = color.alpha;
  return YES;
}

CGColorRef cgColor(UIColor self) { return &ColorClass::state(self).color; }

void setFill(UIColor self) {
  if (CGContextRef context = UIGraphicsGetCurrentContext())
    CGContextSetFillColorWithColor(context, self.CGColor());
}

void setStroke(UIColor self) {
  if (CGContextRef context = UIGraphicsGetCurrentContext())
    CGContextSetStrokeColorWithColor(context, self.CGColor());
}

void setBoth(UIColor self) {
  self.setFill();
  self.setStroke();
}

void encodeWithCoder(UIColor self, NSCoder coder) {
  const CGColor& color = ColorClass::state(self).color;
  coder.encodeInteger_forKey(color.gray, "UIColorIsGray"_ns);
  for (std::size_t i = 0; i < color.components.size(); ++i)
    coder.encodeDouble_forKey(color.components[i], componentKey(i));
}

Strong<UIColor> initWithCoder(UIColor self, NSCoder coder) {
  CGColor color;
  color.gray = coder.decodeIntegerForKey("UIColorIsGray"_ns) != 0;
  for (std::size_t i = 0; i < color.components.size(); ++i)
    color.components[i] = coder.decodeDoubleForKey(componentKey(i));
  return initialised(self, color);
}

// A grey is no colour of equal components.
BOOL isEqual(UIColor self, bridge::Object other) {
  return bridge::isKindOf<UIColor>(other) &&
         ColorClass::state(self).color == ColorClass::state(bridge::as<UIColor>(other)).color;
}

NSUInteger hash(UIColor self) {
  std::uint64_t mixed = 0;
  // Adding zero makes equal hashes of the two zeros, which are equal.
  for (double component : ColorClass::state(self).color.components)
    mixed = mixed * 1099511628211u + std::bit_cast<std::uint64_t>(component + 0.0);
  return mixed;
}

// A named colour is one object for the life of the process. Components are thousandths.
template <int Red, int Green, int Blue>
UIColor named(Class) {
  static const id color = make(colored(Red / 1000.0, Green / 1000.0, Blue / 1000.0, 1)).leak();
  return bridge::as<UIColor>(color);
}

template <int Numerator, int Denominator, int Alpha = 1>
UIColor gray(Class) {
  static const id color = make(grey(static_cast<double>(Numerator) / Denominator, Alpha)).leak();
  return bridge::as<UIColor>(color);
}

}  // namespace

Color colorOf(UIColor color) { return color ? colorOf(&ColorClass::state(color).color) : clearColor; }

Strong<UIColor> makeColor(const Color& color) {
  return make(colored(color.red, color.green, color.blue, color.alpha));
}

void defineColor() {
  using bridge::method;
  ColorClass::define<NSObject>(
      method<&UIColor::initWithRed_green_blue_alpha, initWithRed>(),
      method<&UIColor::initWithWhite_alpha, initWithWhite>(),
      method<&UIColor::colorWithRed_green_blue_alpha, colorWithRed>(),
      method<&UIColor::colorWithWhite_alpha, colorWithWhite>(),
      method<&UIColor::colorWithHue_saturation_brightness_alpha, colorWithHue>(),
      method<&UIColor::colorWithAlphaComponent, colorWithAlphaComponent>(),
      method<&UIColor::getRed_green_blue_alpha, getComponents>(),
      method<&UIColor::getHue_saturation_brightness_alpha, getHue>(), method<&UIColor::CGColor, cgColor>(),
      method<&UIColor::set, setBoth>(), method<&UIColor::setFill, setFill>(),
      method<&UIColor::setStroke, setStroke>(), method<&CodedColor::initWithCoder, initWithCoder>(),
      method<&Coding::encodeWithCoder, encodeWithCoder>(), method<&NSObject::isEqual, isEqual>(),
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
      method<&UIColor::brownColor, named<600, 400, 200>>(), method<&UIColor::clearColor, gray<0, 1, 0>>());
}

}  // namespace sim::uikit
