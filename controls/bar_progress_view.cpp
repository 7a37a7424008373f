// RQBarProgressView's class.
#include "controls/bar_progress_view.hpp"

#include "controls/progress_drawing.hpp"
#include "controls/redrawing_view.hpp"
#include "platform/uikit/bezier_path.hpp"

namespace tilo {
namespace {

using bridge::Strong;

constexpr CGRect defaultFrame{{0, 0}, {120, 20}};
constexpr CGFloat outlineWidth = 2;
constexpr CGFloat inset = 4;  // of the progress, from the outline's outer edge

struct BarState {
  float progress = 0;
  Strong<UIColor> lineColor, progressColor, progressRemainingColor;
  OwnObservation observation;
};

using Bar = bridge::Implementation<RQBarProgressView, BarState>;

Strong<UIView> initWithFrame(RQBarProgressView self, CGRect frame) {
  auto made = Bar::super<&UIView::initWithFrame>(self, frame);
  if (!made) return {};
  auto view = bridge::as<RQBarProgressView>(made.get());
  beTransparent(view);
  view.lineColor.set(UIColor::whiteColor());
  view.progressColor.set(UIColor::whiteColor());
  view.progressRemainingColor.set(UIColor::clearColor());
  Bar::state(view).observation.begin(
      view, {"progress"_ns, "lineColor"_ns, "progressColor"_ns, "progressRemainingColor"_ns});
  return made;
}

Strong<NSObject> init(RQBarProgressView self) {
  return bridge::Descriptor<&UIView::initWithFrame>::send(self.raw, defaultFrame);
}

UIBezierPath pill(const CGRect& rect) {
  return UIBezierPath::bezierPathWithRoundedRect_cornerRadius(rect, smallerSideOf(rect) / 2);
}

void drawOutline(RQBarProgressView self, const CGRect& bounds) {
  UIBezierPath outline = pill(insetBy(bounds, outlineWidth / 2));
  outline.lineWidth.set(outlineWidth);
  self.progressRemainingColor().setFill();
  outline.fill();
  self.lineColor().setStroke();
  outline.stroke();
}

// The left part of a pill, so that small progress is not rounder than the pill's end.
void fillProgress(RQBarProgressView self, const CGRect& whole, CGFloat progress) {
  const CGContextRef context = UIGraphicsGetCurrentContext();
  CGRect part = whole;
  part.size.width *= progress;
  CGContextSaveGState(context);
  pill(whole).addClip();
  self.progressColor().setFill();
  CGContextFillRect(context, part);
  CGContextRestoreGState(context);
}

void drawRect(RQBarProgressView self, CGRect) {
  const CGRect bounds = self.bounds();
  drawOutline(self, bounds);
  fillProgress(self, insetBy(bounds, inset), partOf(self.progress()));
}

}  // namespace

void defineBarProgressView() {
  using bridge::method;
  using Face = RQBarProgressView;
  Bar::define<UIView>(
      method<&UIView::initWithFrame, initWithFrame>(), method<&NSObject::init, init>(),
      atomicProperty<Bar, &Face::progress, &BarState::progress>(),
      atomicProperty<Bar, &Face::lineColor, &BarState::lineColor>(),
      atomicProperty<Bar, &Face::progressColor, &BarState::progressColor>(),
      atomicProperty<Bar, &Face::progressRemainingColor, &BarState::progressRemainingColor>(),
      method<&NSKeyValueObserving::observeValueForKeyPath_ofObject_change_context, redraw<Face>>(),
      method<&UIView::drawRect, drawRect>());
}

}  // namespace tilo
