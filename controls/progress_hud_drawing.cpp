// The box, and the dimmed background behind it.
#include "controls/progress_drawing.hpp"
#include "controls/progress_hud_parts.hpp"
#include "platform/uikit/bezier_path.hpp"

namespace tilo::hud {
namespace {

// Black, from nothing in the middle to what it has at the edges.
constexpr CGFloat dimming[] = {0, 0, 0, 0, 0, 0, 0, 0.75f};
constexpr CGFloat dimmingPlaces[] = {0, 1};

void drawDimming(const CGRect& bounds) {
  const CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
  const CGGradientRef gradient = CGGradientCreateWithColorComponents(space, dimming, dimmingPlaces, 2);
  CGColorSpaceRelease(space);
  const CGPoint middle = middleOf(bounds);
  CGContextDrawRadialGradient(UIGraphicsGetCurrentContext(), gradient, middle, 0, middle,
                              smallerSideOf(bounds), kCGGradientDrawsAfterEndLocation);
  CGGradientRelease(gradient);
}

// A colour's own alpha counts beside the box's opacity.
UIColor fillOf(RQProgressHUD self) {
  const CGFloat opacity = static_cast<CGFloat>(self.opacity());
  UIColor color = self.color();
  if (!color) return UIColor::colorWithWhite_alpha(0, opacity);
  CGFloat alpha = 1;
  color.getRed_green_blue_alpha(nullptr, nullptr, nullptr, &alpha);
  return color.colorWithAlphaComponent(alpha * opacity);
}

CGRect boxOf(RQProgressHUD self, const CGRect& bounds) {
  const CGSize size = HUD::state(self).size;
  const CGPoint middle = middleOf(bounds);
  return {{middle.x - size.width / 2 + static_cast<CGFloat>(self.xOffset()),
           middle.y - size.height / 2 + static_cast<CGFloat>(self.yOffset())},
          size};
}

}  // namespace

void drawRect(RQProgressHUD self, CGRect) {
  const CGRect bounds = self.bounds();
  if (self.dimBackground()) drawDimming(bounds);
  fillOf(self).setFill();
  UIBezierPath::bezierPathWithRoundedRect_cornerRadius(boxOf(self, bounds),
                                                       static_cast<CGFloat>(self.cornerRadius()))
      .fill();
}

}  // namespace tilo::hud
