// A notice box whose place and size are read off the screen.
#pragma once

#include <algorithm>
#include <cmath>

#include "platform/uikit/string_drawing.hpp"
#include "tests/library/hud_fixture.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace test {

// Without corners, and of a colour that nothing else on the screen has.
class HUDBox : public HUD {
 protected:
  explicit HUDBox(std::vector<std::string> options = {}) : HUD(std::move(options)) {
    view->backgroundColor.set(UIColor::blackColor());
    hud->color.set(UIColor::greenColor());
    hud->opacity.set(1);
    hud->cornerRadius.set(0);
    hud->show(NO);
  }

  // Of the box on the screen, points.
  static CGRect box() {
    const sim::Surface screen = sim::uikit::renderScreen(now());
    const int width = cairo_image_surface_get_width(screen.get());
    const int height = cairo_image_surface_get_height(screen.get());
    int left = width, top = height, right = 0, bottom = 0;
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) {
        const sim::test::Pixel pixel = sim::test::pixelAt(screen.get(), x, y);
        if (pixel.green < 250 || pixel.red > 5 || pixel.blue > 5) continue;
        left = std::min(left, x), right = std::max(right, x + 1);
        top = std::min(top, y), bottom = std::max(bottom, y + 1);
      }
    return {{left / 2.0, top / 2.0}, {(right - left) / 2.0, (bottom - top) / 2.0}};
  }

  // What a label's text takes in one line, in whole points.
  static CGSize textSize(UILabel label) {
    const NSDictionary attributes =
        NSDictionary::dictionaryWithObject_forKey(label.font(), bridge::as<NSString>(NSFontAttributeName));
    const CGSize size = bridge::as<NSExtendedStringDrawing>(label.text())
                            .boundingRectWithSize_options_attributes_context({}, 0, attributes, {})
                            .size;
    return {std::ceil(size.width), std::ceil(size.height)};
  }
};

constexpr CGRect centred(CGSize size, CGPoint offset = {}) {
  return {{(375 - size.width) / 2 + offset.x, (667 - size.height) / 2 + offset.y}, size};
}

inline bool near(const CGRect& one, const CGRect& other) {
  return std::abs(one.origin.x - other.origin.x) <= 0.5 && std::abs(one.origin.y - other.origin.y) <= 0.5 &&
         std::abs(one.size.width - other.size.width) <= 0.5 &&
         std::abs(one.size.height - other.size.height) <= 0.5;
}

}  // namespace test
