// A picture to draw into with CoreGraphics, one pixel to the point.
#pragma once

#include "platform/coregraphics/context.hpp"
#include "platform/uikit/bezier_path.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "tests/simulator/quartz/pixels.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {

using sim::test::Pixel;

class Canvas : public UIKit {
 public:
  ~Canvas() noexcept override {}  // what cannot be drawn is the end of the test

 protected:
  static constexpr Pixel clear{0, 0, 0, 0}, black{0, 0, 0, 255}, white{255, 255, 255, 255},
      red{255, 0, 0, 255}, green{0, 255, 0, 255}, blue{0, 0, 255, 255};

  Pixel at(int x, int y) const { return sim::test::pixelAt(image.get(), x, y); }
  double ink() const { return sim::test::inkIn(image.get()); }

  static void fillWith(UIColor color) {
    CGContextSetFillColorWithColor(UIGraphicsGetCurrentContext(), color.CGColor());
  }
  static void strokeWith(UIColor color) {
    CGContextSetStrokeColorWithColor(UIGraphicsGetCurrentContext(), color.CGColor());
  }

  sim::Surface image = sim::makeImage(100, 100);
  sim::Context cairo{image.get()};
  sim::uikit::DrawingContext drawing{cairo};
  CGContextRef context = UIGraphicsGetCurrentContext();
};

}  // namespace test
