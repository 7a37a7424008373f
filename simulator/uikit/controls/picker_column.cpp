// One wheel of a picker: its rows, and the finger that turns it.
#include "simulator/uikit/controls/picker_column.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "bridge/define.hpp"
#include "platform/uikit/gesture_recognizer.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/physics/wheel.hpp"
#include "simulator/uikit/animation/frames.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using physics::Wheel;
using physics::WheelMotion;

constexpr CGFloat titleSize = 23.5;  // points
constexpr double sideMargin = 9;     // points beside a title
// How opaque a row is that is not the one in the middle, before it fades towards the edge.
constexpr double otherRowAlpha = 0.5;

struct ColumnState {
  PickerColumnOwner owner;
  NSInteger rows = 0;
  double rowHeight = 32;   // points
  double position = 0;     // the way that the rim has turned, points
  NSInteger selected = 0;  // the row where it stands or goes to
  double dragStart = 0;
  bool turning = false;
  bool caught = false;  // a finger came down on it while it turned
  std::map<NSInteger, Strong<UILabel>> labels;

  ColumnState() = default;
  ~ColumnState() { stopFrames(this); }
  ColumnState(const ColumnState&) = delete;
  ColumnState& operator=(const ColumnState&) = delete;
};

using ColumnClass = bridge::Implementation<PickerColumn, ColumnState>;

// Of the column, from its recognisers.
struct ColumnGestures : bridge::Face<"UIPickerColumnView", PickerColumn> {
  MESSAGE Method<"sim_handlePan:", void(UIPanGestureRecognizer)> handlePan;
  MESSAGE Method<"sim_handleTap:", void(UITapGestureRecognizer)> handleTap;
};

// A pan that stops the wheel as soon as a finger comes down.
struct ColumnPan : bridge::Face<"UIPickerColumnPanGestureRecognizer", UIPanGestureRecognizer> {};
using ColumnPanClass = bridge::Implementation<ColumnPan>;

physics::ScrollRange rangeOf(const ColumnState& state) {
  return {0, static_cast<double>(std::max<NSInteger>(state.rows - 1, 0)) * state.rowHeight};
}

NSInteger rowAt(const ColumnState& state, double position) {
  const auto row = static_cast<NSInteger>(std::lround(position / state.rowHeight));
  return std::clamp<NSInteger>(row, 0, std::max<NSInteger>(state.rows - 1, 0));
}

UILabel labelOf(PickerColumn self, NSInteger row) {
  ColumnState& state = ColumnClass::state(self);
  Strong<UILabel>& label = state.labels[row];
  if (label) return label;
  label = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{});
  label->font.set(UIFont::systemFontOfSize(titleSize));
  label->textAlignment.set(NSTextAlignmentCenter);
  self.addSubview(label);
  if (state.owner.fill) state.owner.fill(row, label);
  return label;
}

void placeRow(PickerColumn self, NSInteger row, const physics::WheelRow& place, double way) {
  const ColumnState& state = ColumnClass::state(self);
  const CGSize size = self.bounds().size;
  const double nearness = std::max(0.0, 1 - std::abs(way) / state.rowHeight);
  const UILabel label = labelOf(self, row);
  label.bounds.set({{}, {std::max(size.width - 2 * sideMargin, 0.0), state.rowHeight}});
  label.center.set({size.width / 2, size.height / 2 + place.distance});
  label.transform.set({0.9 + 0.1 * place.flatness, 0, 0, place.flatness, 0, 0});
  label.alpha.set(place.flatness * (otherRowAlpha + (1 - otherRowAlpha) * nearness));
}

// Shows the rows on the side that is seen, and lets go of the others.
void placeRows(PickerColumn self) {
  ColumnState& state = ColumnClass::state(self);
  const Wheel wheel(self.bounds().size.height);
  std::map<NSInteger, Strong<UILabel>> old = state.labels;
  const auto nearest = [&](double way) { return rowAt(state, state.position + way); };
  for (NSInteger row = nearest(-wheel.reach()); state.rows > 0 && row <= nearest(wheel.reach()); ++row) {
    const double way = static_cast<double>(row) * state.rowHeight - state.position;
    const auto place = wheel.rowAt(way);
    if (!place) continue;
    old.erase(row);
    placeRow(self, row, *place, way);
  }
  for (const auto& [row, label] : old) {
    label->removeFromSuperview();
    state.labels.erase(row);
  }
}

void setPosition(PickerColumn self, double position) {
  ColumnClass::state(self).position = position;
  placeRows(self);
}

void stop(PickerColumn self) {
  ColumnState& state = ColumnClass::state(self);
  stopFrames(&state);
  state.turning = false;
}

void tellSelected(PickerColumn self) {
  const ColumnState& state = ColumnClass::state(self);
  if (state.rows > 0 && state.owner.selected) std::function(state.owner.selected)(state.selected);
}

// Turns on to where `motion` rests; by a finger, where somebody is to be told.
void turn(PickerColumn self, auto motion, bool byFinger) {
  ColumnState& state = ColumnClass::state(self);
  stop(self);
  if (!byFinger) state.selected = rowAt(state, motion.restingPlace());
  const auto rest = [motion, byFinger](PickerColumn column) {
    ColumnState& ended = ColumnClass::state(column);
    ended.turning = false;
    setPosition(column, motion.restingPlace());
    ended.selected = rowAt(ended, motion.restingPlace());
    if (byFinger) tellSelected(column);
  };
  if (motion.duration() <= 0) return rest(self);
  state.turning = true;
  everyFrame(&state, [self, motion, rest, start = clock::now()](double time) {
    const Strong<PickerColumn> alive = retained(self);
    if (time - start >= motion.duration()) {
      rest(self);
      return false;
    }
    setPosition(self, motion.position(time - start));
    return true;
  });
}

void letGo(PickerColumn self, double velocity) {
  const ColumnState& state = ColumnClass::state(self);
  turn(self, WheelMotion(state.position, velocity, state.rowHeight, state.rows), true);
}

void handlePan(ColumnGestures self, UIPanGestureRecognizer pan) {
  ColumnState& state = ColumnClass::state(self);
  const double size = self.bounds().size.height;
  switch (pan.state()) {
    case UIGestureRecognizerStateBegan:
      state.caught = false;
      state.dragStart = physics::unbanded(state.position, rangeOf(state), size);
      [[fallthrough]];
    case UIGestureRecognizerStateChanged:
      return setPosition(
          self, physics::banded(state.dragStart - pan.translationInView(self).y, rangeOf(state), size));
    case UIGestureRecognizerStateEnded:
      return letGo(self, -pan.velocityInView(self).y);
    case UIGestureRecognizerStateCancelled:
      return letGo(self, 0);
  }
}

// The row that is touched comes to the middle.
void handleTap(ColumnGestures self, UITapGestureRecognizer tap) {
  const ColumnState& state = ColumnClass::state(self);
  const double height = self.bounds().size.height;
  const double way = Wheel(height).wayTo(tap.locationInView(self).y - height / 2);
  const NSInteger row = rowAt(state, state.position + way);
  if (state.rows == 0 || row == state.selected) return;
  turn(self, physics::ScrollMotion::towards(state.position, 0, static_cast<double>(row) * state.rowHeight),
       true);
}

// A drag across the wheel is somebody else's, and a tap that only stopped it is none.
BOOL shouldBegin(PickerColumn self, UIGestureRecognizer recognizer) {
  if (!(recognizer.view() == self)) return YES;
  if (!bridge::isKindOf<ColumnPan>(recognizer)) return !ColumnClass::state(self).caught;
  const CGPoint way = bridge::as<ColumnPan>(recognizer).translationInView(self);
  return std::abs(way.y) > std::abs(way.x);
}

void touchesBegan(ColumnPan self, NSSet touches, UIEvent event) {
  const auto column = bridge::as<PickerColumn>(self.view());
  ColumnState& state = ColumnClass::state(column);
  state.caught = state.caught || state.turning;
  stop(column);
  ColumnPanClass::super<&UIGestureRecognizer::touchesBegan_withEvent>(self, touches, event);
}

// A wheel that was stopped and not dragged goes on to the nearest row.
void reset(ColumnPan self) {
  ColumnPanClass::super<&UIGestureRecognizer::reset>(self);
  const auto column = bridge::as<PickerColumn>(self.view());
  if (column && std::exchange(ColumnClass::state(column).caught, false)) letGo(column, 0);
}

template <class Recognizer, auto Action>
void attach(PickerColumn self) {
  const auto recognizer = bridge::make<Recognizer, &UIGestureRecognizer::initWithTarget_action>(
      self, bridge::Descriptor<Action>::selector());
  self.addGestureRecognizer(recognizer);
}

}  // namespace

Strong<PickerColumn> makePickerColumn(PickerColumnOwner owner) {
  auto column = bridge::make<PickerColumn, &UIView::initWithFrame>(CGRect{});
  ColumnClass::state(column).owner = std::move(owner);
  column->clipsToBounds.set(YES);
  attach<ColumnPan, &ColumnGestures::handlePan>(column);
  attach<UITapGestureRecognizer, &ColumnGestures::handleTap>(column);
  return column;
}

void setRows(PickerColumn column, NSInteger rows, double height) {
  stop(column);
  ColumnState& state = ColumnClass::state(column);
  state.rows = std::max<NSInteger>(rows, 0);
  state.rowHeight = height;
  state.selected = std::clamp<NSInteger>(state.selected, 0, std::max<NSInteger>(state.rows - 1, 0));
  for (const auto& [row, label] : std::exchange(state.labels, {})) label->removeFromSuperview();
  setPosition(column, static_cast<double>(state.selected) * height);
}

NSInteger rowsOf(PickerColumn column) { return ColumnClass::state(column).rows; }

NSInteger selectedRowOf(PickerColumn column) {
  const ColumnState& state = ColumnClass::state(column);
  return state.rows > 0 ? state.selected : -1;
}

double positionOf(PickerColumn column) { return ColumnClass::state(column).position; }

void turnTo(PickerColumn column, NSInteger row, bool animated) {
  const ColumnState& state = ColumnClass::state(column);
  const NSInteger nearest = std::clamp<NSInteger>(row, 0, std::max<NSInteger>(state.rows - 1, 0));
  const double place = static_cast<double>(nearest) * state.rowHeight;
  const double from = animated ? state.position : place;
  turn(column, physics::ScrollMotion::towards(from, 0, place), false);
}

void disown(PickerColumn column) {
  stop(column);
  ColumnClass::state(column).owner = {};
}

void definePickerColumn() {
  using bridge::method;
  ColumnPanClass::define<UIPanGestureRecognizer>(
      method<&UIGestureRecognizer::touchesBegan_withEvent, touchesBegan>(),
      method<&UIGestureRecognizer::reset, reset>());
  ColumnClass::define<UIView>(method<&UIView::layoutSubviews, placeRows>(),
                              method<&UIView::gestureRecognizerShouldBegin, shouldBegin>(),
                              method<&ColumnGestures::handlePan, handlePan>(),
                              method<&ColumnGestures::handleTap, handleTap>());
}

}  // namespace sim::uikit
