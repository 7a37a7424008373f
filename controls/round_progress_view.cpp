// RQRoundProgressView's class.
#include "controls/round_progress_view.hpp"

#include "controls/progress_drawing.hpp"
#include "controls/redrawing_view.hpp"
#include "platform/uikit/bezier_path.hpp"

namespace tilo {
namespace {

using bridge::Strong;

constexpr CGRect defaultFrame{{0, 0}, {37, 37}};
constexpr CGFloat ringWidth = 5;
constexpr CGFloat outlineWidth = 2;
constexpr CGFloat pi = static_cast<CGFloat>(3.14159265358979323846);
constexpr CGFloat top = -pi / 2;

struct RoundState {
  float progress = 0;
  Strong<UIColor> progressTintColor, backgroundTintColor;
  BOOL annular = NO;
  OwnObservation observation;
};

using Round = bridge::Implementation<RQRoundProgressView, RoundState>;

Strong<UIView> initWithFrame(RQRoundProgressView self, CGRect frame) {
  auto made = Round::super<&UIView::initWithFrame>(self, frame);
  if (!made) return {};
  auto view = bridge::as<RQRoundProgressView>(made.get());
  beTransparent(view);
  view.progressTintColor.set(UIColor::colorWithWhite_alpha(1, 1));
  view.backgroundTintColor.set(UIColor::colorWithWhite_alpha(1, 0.1f));
  Round::state(view).observation.begin(
      view, {"progress"_ns, "progressTintColor"_ns, "backgroundTintColor"_ns, "annular"_ns});
  return made;
}

Strong<NSObject> init(RQRoundProgressView self) {
  return bridge::Descriptor<&UIView::initWithFrame>::send(self.raw, defaultFrame);
}

// Clockwise from the top. What an arc that ends where it begins is, UIKit does not say: nobody draws one.
void addArc(UIBezierPath path, const CGRect& bounds, CGFloat radius, CGFloat progress) {
  path.addArcWithCenter_radius_startAngle_endAngle_clockwise(middleOf(bounds), radius, top,
                                                             top + 2 * pi * progress, YES);
}

void strokeRing(const CGRect& bounds, CGFloat progress, UIColor color) {
  UIBezierPath path = UIBezierPath::bezierPath();
  path.lineWidth.set(ringWidth);
  addArc(path, bounds, (smallerSideOf(bounds) - ringWidth) / 2, progress);
  color.set();
  path.stroke();
}

void drawRing(RQRoundProgressView self, const CGRect& bounds, CGFloat progress) {
  strokeRing(bounds, 1, self.backgroundTintColor());
  if (progress > 0) strokeRing(bounds, progress, self.progressTintColor());
}

void fillPie(RQRoundProgressView self, const CGRect& bounds, CGFloat progress) {
  UIBezierPath path = UIBezierPath::bezierPath();
  path.moveToPoint(middleOf(bounds));
  addArc(path, bounds, smallerSideOf(bounds) / 2, progress);
  self.progressTintColor().setFill();
  path.fill();
}

void drawPie(RQRoundProgressView self, const CGRect& bounds, CGFloat progress) {
  const CGRect disc = insetBy(squareIn(bounds), outlineWidth / 2);
  UIBezierPath outline = UIBezierPath::bezierPathWithOvalInRect(disc);
  outline.lineWidth.set(outlineWidth);
  self.backgroundTintColor().setFill();
  outline.fill();
  self.progressTintColor().setStroke();
  outline.stroke();
  if (progress > 0) fillPie(self, disc, progress);
}

void drawRect(RQRoundProgressView self, CGRect) {
  const CGRect bounds = self.bounds();
  const CGFloat progress = partOf(self.progress());
  if (self.annular())
    drawRing(self, bounds, progress);
  else
    drawPie(self, bounds, progress);
}

}  // namespace

void defineRoundProgressView() {
  using bridge::method;
  using Face = RQRoundProgressView;
  Round::define<UIView>(
      method<&UIView::initWithFrame, initWithFrame>(), method<&NSObject::init, init>(),
      atomicProperty<Round, &Face::progress, &RoundState::progress>(),
      atomicProperty<Round, &Face::progressTintColor, &RoundState::progressTintColor>(),
      atomicProperty<Round, &Face::backgroundTintColor, &RoundState::backgroundTintColor>(),
      atomicProperty<Round, &Face::annular, &RoundState::annular>(),
      method<&NSKeyValueObserving::observeValueForKeyPath_ofObject_change_context, redraw<Face>>(),
      method<&UIView::drawRect, drawRect>());
}

}  // namespace tilo
