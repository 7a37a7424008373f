// UIActivityIndicatorView: twelve spokes, the brightest of which goes round once a second.
#include "platform/uikit/activity_indicator.hpp"

#include <cairo.h>

#include <cmath>
#include <iterator>
#include <numbers>

#include "bridge/define.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/quartz/color.hpp"
#include "simulator/uikit/animation/frames.hpp"
#include "simulator/uikit/base/exception.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr int spokes = 12;  // and as many steps a second

// Points.
struct Look {
  double size;
  double inner, outer;  // from the middle to the ends of a spoke
  double width;         // of a spoke
  Color color;
};

// In the order of UIActivityIndicatorViewStyle.
constexpr Look looks[] = {
    {37, 9.5, 17.5, 3.5, whiteColor}, {20, 5, 9.5, 2, whiteColor}, {20, 5, 9.5, 2, rgb(0x808080)}};

struct IndicatorState {
  NSInteger style = UIActivityIndicatorViewStyleWhite;
  BOOL hidesWhenStopped = YES;
  bool animating = false;
  double start = 0;  // seconds
  int brightest = 0;

  IndicatorState() = default;
  IndicatorState(const IndicatorState&) = delete;
  IndicatorState& operator=(const IndicatorState&) = delete;
  ~IndicatorState() { stopFrames(this); }
};

using IndicatorClass = bridge::Implementation<UIActivityIndicatorView, IndicatorState>;

const Look& lookOf(UIActivityIndicatorView self) { return looks[IndicatorClass::state(self).style]; }

void hideIfStopped(UIActivityIndicatorView self) {
  const IndicatorState& state = IndicatorClass::state(self);
  if (state.hidesWhenStopped) self.hidden.set(!state.animating);
}

NSInteger style(UIActivityIndicatorView self) { return IndicatorClass::state(self).style; }

void setStyle(UIActivityIndicatorView self, NSInteger style) {
  if (style < 0 || style >= std::ssize(looks)) raise("NSInvalidArgumentException"_ns, "no such style");
  IndicatorClass::state(self).style = style;
  CGRect bounds = self.bounds();
  bounds.size = {lookOf(self).size, lookOf(self).size};
  self.bounds.set(bounds);
  self.setNeedsDisplay();
}

Strong<UIView> initWithFrame(UIActivityIndicatorView self, CGRect frame) {
  auto made = IndicatorClass::super<&UIView::initWithFrame>(self, frame);
  made->userInteractionEnabled.set(NO);
  hideIfStopped(bridge::as<UIActivityIndicatorView>(made.get()));
  return made;
}

Strong<UIActivityIndicatorView> initWithStyle(UIActivityIndicatorView self, NSInteger style) {
  auto made = bridge::initialised<&UIView::initWithFrame>(self, CGRect{});
  made->activityIndicatorViewStyle.set(style);
  made->frame.set({{}, made->bounds().size});
  return made;
}

BOOL hidesWhenStopped(UIActivityIndicatorView self) { return IndicatorClass::state(self).hidesWhenStopped; }

void setHidesWhenStopped(UIActivityIndicatorView self, BOOL hides) {
  IndicatorClass::state(self).hidesWhenStopped = hides;
  if (hides)
    hideIfStopped(self);
  else
    self.hidden.set(NO);
}

BOOL isAnimating(UIActivityIndicatorView self) { return IndicatorClass::state(self).animating; }

bool turn(UIActivityIndicatorView self, double time) {
  IndicatorState& state = IndicatorClass::state(self);
  // A moment of the clock may lie just before the step that it is meant for.
  constexpr double rounding = 1e-6;
  const int brightest = static_cast<int>(std::floor((time - state.start + rounding) * spokes)) % spokes;
  if (brightest == state.brightest) return true;
  state.brightest = brightest;
  self.setNeedsDisplay();
  return true;
}

void startAnimating(UIActivityIndicatorView self) {
  IndicatorState& state = IndicatorClass::state(self);
  if (state.animating) return;
  state.animating = true;
  state.start = clock::now();
  state.brightest = 0;
  hideIfStopped(self);
  everyFrame(&state, [self](double time) { return turn(self, time); });
}

void stopAnimating(UIActivityIndicatorView self) {
  IndicatorState& state = IndicatorClass::state(self);
  state.animating = false;
  stopFrames(&state);
  hideIfStopped(self);
}

// Clockwise from the top; those behind the brightest fade the farther they are.
void drawRect(UIActivityIndicatorView self, CGRect) {
  constexpr double faintest = 0.2;
  const Look& look = lookOf(self);
  const CGRect bounds = self.bounds();
  cairo_t* context = currentContext();
  cairo_save(context);
  cairo_translate(context, bounds.origin.x + bounds.size.width / 2, bounds.origin.y + bounds.size.height / 2);
  cairo_set_line_width(context, look.width);
  cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
  const double half = look.width / 2;  // by which a round end is longer
  for (int i = 0; i < spokes; ++i) {
    const int behind = (IndicatorClass::state(self).brightest - i + spokes) % spokes;
    const double strength = 1 - (1 - faintest) * behind / (spokes - 1);
    setSource(context, withAlpha(look.color, strength));
    cairo_move_to(context, 0, -look.inner - half);
    cairo_line_to(context, 0, -look.outer + half);
    cairo_stroke(context);
    cairo_rotate(context, 2 * std::numbers::pi / spokes);
  }
  cairo_restore(context);
}

CGSize sizeThatFits(UIActivityIndicatorView self, CGSize) { return {lookOf(self).size, lookOf(self).size}; }

}  // namespace

void defineActivityIndicator() {
  using bridge::method;
  using Face = UIActivityIndicatorView;
  IndicatorClass::define<UIView>(
      method<&UIView::initWithFrame, initWithFrame>(),
      method<&Face::initWithActivityIndicatorStyle, initWithStyle>(),
      bridge::property<&Face::activityIndicatorViewStyle, style, setStyle>(),
      bridge::property<&Face::hidesWhenStopped, hidesWhenStopped, setHidesWhenStopped>(),
      method<&Face::startAnimating, startAnimating>(), method<&Face::stopAnimating, stopAnimating>(),
      method<&Face::isAnimating, isAnimating>(), method<&UIView::drawRect, drawRect>(),
      method<&UIView::sizeThatFits, sizeThatFits>());
}

}  // namespace sim::uikit
