// PSTableCell. A switch or slider tells the specifier itself.
#include "simulator/preferences/table_cell.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "bridge/define.hpp"
#include "platform/foundation/number.hpp"
#include "platform/uikit/image_view.hpp"
#include "platform/uikit/slider.hpp"
#include "platform/uikit/stepper.hpp"
#include "platform/uikit/switch.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/preferences/cell_state.hpp"
#include "simulator/preferences/look.hpp"
#include "simulator/preferences/marks.hpp"
#include "simulator/preferences/navigation.hpp"
#include "simulator/preferences/specifier.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::preferences {
namespace {

using bridge::Strong;

UIImage iconOf(PSSpecifier row) { return bridge::as<UIImage>(row.propertyForKey("iconImage"_ns)); }

constexpr CGFloat gap = 6, valueWidth = 52, switchWidth = 51;

UIView contentView(PSTableCell self) { return CellClass::state(self).content.get(); }
PSSpecifier specifier(PSTableCell self) { return CellClass::state(self).specifier.get(); }

void put(PSTableCell self, UIView view, CGRect frame) {
  view.frame.set(frame);
  contentView(self).addSubview(view);
}

CGRect inMiddle(CGFloat x, CGSize size) { return {{x, (rowHeight - size.height) / 2}, size}; }

std::string shown(double value) {
  return value == std::floor(value) ? fmt::format("{:.0f}", value) : fmt::format("{:.1f}", value);
}

void showNumber(PSTableCell self, float value) {
  const CellState& state = CellClass::state(self);
  if (state.detail) state.detail->text.set(NSString::stringWithUTF8String(shown(value).c_str()));
}

void tell(UIControl control, PSTableCell self) {
  control.addTarget_action_forControlEvents(self, bridge::Descriptor<&CellFace::changed>::selector(),
                                            UIControlEventValueChanged);
}

void addSwitch(PSTableCell self, CGFloat width) {
  const auto made = bridge::make<UISwitch, &UIView::initWithFrame>(CGRect{});
  put(self, made, inMiddle(width - margin() - switchWidth, {switchWidth, 31}));
  CellClass::state(self).control = made;
  tell(made, self);
}

void addSlider(PSTableCell self, CGFloat width) {
  CellState& state = CellClass::state(self);
  const auto made = bridge::make<UISlider, &UIView::initWithFrame>(CGRect{});
  const bool showsValue = numberOf(state.specifier, "showValue"_ns, 0) != 0;
  made->minimumValue.set(static_cast<float>(numberOf(state.specifier, "min"_ns, 0)));
  made->maximumValue.set(static_cast<float>(numberOf(state.specifier, "max"_ns, 1)));
  made->continuous.set(numberOf(state.specifier, "isContinuous"_ns, 0) != 0);
  const CGFloat room = width - 2 * margin() - (showsValue ? valueWidth : 0);
  put(self, made, inMiddle(margin(), {room, 31}));
  state.control = made;
  tell(made, self);
  if (!showsValue) return;
  state.detail = makeLabel(""_ns, UIFont::systemFontOfSize(textSize), grey);
  state.detail->textAlignment.set(NSTextAlignmentRight);
  put(self, state.detail, inMiddle(width - margin() - valueWidth + gap, {valueWidth - gap, 22}));
}

// What stands behind a row's text.
CGFloat widthBehindText(Cell kind) {
  switch (kind) {
    case Cell::onOff:
      return gap + switchWidth;
    case Cell::link:
    case Cell::linkList:
      return gap + chevronWidth;
    case Cell::listItem:
      return gap + checkSize;
    default:
      return 0;
  }
}

// Up to that place; a longer one ends in dots.
void endTextAt(PSTableCell self, CGFloat right) {
  const Strong<UILabel>& text = CellClass::state(self).text;
  if (!text) return;
  CGRect frame = text->frame();
  frame.size.width = std::max<CGFloat>(std::min(frame.size.width, right - frame.origin.x), 0);
  text->frame.set(frame);
}

void addText(PSTableCell self, Cell kind, CGFloat width) {
  CellState& state = CellClass::state(self);
  const Color& color = kind == Cell::button ? blue : textColor;
  state.text = makeLabel(state.specifier->name(), UIFont::systemFontOfSize(textSize), color);
  const CGSize size = state.text->sizeThatFits({10000, rowHeight});
  put(self, state.text, inMiddle(textLeft(state.specifier), size));
  endTextAt(self, width - margin() - widthBehindText(kind));
}

void addIcon(PSTableCell self, UIImage icon) {
  const auto view = bridge::make<UIImageView, &UIView::initWithFrame>(CGRect{{}, {iconSide, iconSide}});
  view->image.set(icon);
  put(self, view, inMiddle(margin(), {iconSide, iconSide}));
}

void addChevron(PSTableCell self, CGFloat width) {
  CellState& state = CellClass::state(self);
  state.mark = makeChevron();
  put(self, state.mark, inMiddle(width - margin() - chevronWidth, {chevronWidth, chevronHeight}));
}

// What is chosen, in what room the title leaves.
void addChosen(PSTableCell self, CGFloat width) {
  CellState& state = CellClass::state(self);
  state.detail = makeLabel(""_ns, UIFont::systemFontOfSize(textSize), grey);
  state.detail->textAlignment.set(NSTextAlignmentRight);
  const CGRect title = state.text->frame();
  const CGFloat left = title.origin.x + title.size.width + gap;
  put(self, state.detail, inMiddle(left, {width - margin() - chevronWidth - gap - left, 22}));
}

NSNumber valueIn(UIControl control) {
  if (bridge::isKindOf<UISwitch>(control))
    return NSNumber::numberWithBool(bridge::as<UISwitch>(control).on());
  return NSNumber::numberWithFloat(bridge::as<UISlider>(control).value());
}

void changed(CellFace self, UIControl control) {
  const PSSpecifier row = specifier(self);
  setValue(row, valueIn(control));
  if (bridge::isKindOf<UISlider>(control)) showNumber(self, bridge::as<UISlider>(control).value());
}

Class classOf(PSSpecifier row) {
  const std::string name = textOf(row, "cellClass"_ns);
  if (name.empty()) return CellClass::cls;
  if (const Class found = objc_getClass(name.c_str())) return found;
  throw UsageError("Settings finds no cell '" + name + "'");
}

void listen(PSTableCell self) {
  auto tap = bridge::make<UITapGestureRecognizer, &UIGestureRecognizer::initWithTarget_action>(
      self, bridge::Descriptor<&CellFace::tapped>::selector());
  self.addGestureRecognizer(tap);
}

}  // namespace

Strong<PSTableCell> makeCell(PSSpecifier specifier, PSListController controller, CGFloat width) {
  auto made = bridge::makeOf<PSTableCell, &PSTableCell::initWithStyle_reuseIdentifier_specifier>(
      classOf(specifier), NSInteger{0}, NSString{}, specifier);
  const PSTableCell self = made.get();
  CellState& state = CellClass::state(self);
  state.controller = controller;
  self.frame.set({{}, {width, rowHeight}});
  const Cell kind = rowOf(specifier).cell;
  if (kind != Cell::slider) addText(self, kind, width);
  if (kind == Cell::onOff) addSwitch(self, width);
  if (kind == Cell::slider) addSlider(self, width);
  if (const UIImage icon = iconOf(specifier)) addIcon(self, icon);
  if ((kind == Cell::link && !standsBeside(controller)) || kind == Cell::linkList) addChevron(self, width);
  if (kind == Cell::linkList) addChosen(self, width);
  if (isTouchable(kind)) listen(self);
  refresh(self);
  return made;
}

void refresh(PSTableCell cell) { cell.refreshCellContentsWithSpecifier(cell.specifier()); }

namespace {

// Its width comes later.
Strong<PSTableCell> init(PSTableCell self, NSInteger, NSString, PSSpecifier specifier) {
  const CGRect room{{}, {UIScreen::mainScreen().bounds().size.width, rowHeight}};
  auto made = CellClass::superInit<&UIView::initWithFrame>(self, room);
  const PSTableCell cell = made.get();
  CellState& state = CellClass::state(cell);
  state.specifier = bridge::retained(specifier);
  const auto white = uikit::makeColor(cellColor);
  cell.backgroundColor.set(white);
  state.content = makeBox(room, cellColor);
  state.content->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  cell.addSubview(state.content);
  state.shade = makeBox(room, selectedColor);
  state.shade->autoresizingMask.set(UIViewAutoresizingFlexibleWidth);
  state.shade->userInteractionEnabled.set(NO);
  state.shade->alpha.set(0);
  state.content->addSubview(state.shade);
  return made;
}

void setAccessoryView(PSTableCell self, UIView view) {
  const CGSize size = view.bounds().size;
  const CGFloat left = contentView(self).bounds().size.width - margin() - size.width;
  put(self, view, inMiddle(left, size));
  endTextAt(self, left - gap);
  view.autoresizingMask.set(UIViewAutoresizingFlexibleLeftMargin);
}

void showValue(PSTableCell cell, PSSpecifier) {
  const CellState& state = CellClass::state(cell);
  const Cell kind = rowOf(state.specifier).cell;
  if (kind != Cell::onOff && kind != Cell::slider && kind != Cell::linkList) return;
  const bridge::Object value = valueOf(state.specifier);
  const auto number = bridge::as<NSNumber>(bridge::isKindOf<NSNumber>(value) ? value : bridge::Object{});
  if (kind == Cell::onOff) bridge::as<UISwitch>(state.control.get()).on.set(number.boolValue());
  if (kind == Cell::slider) {
    const auto slider = bridge::as<UISlider>(state.control.get());
    slider.value.set(number.floatValue());
    showNumber(cell, slider.value());
  }
  if (kind == Cell::linkList)
    state.detail->text.set(
        value ? bridge::as<NSString>(state.specifier->titleDictionary().objectForKey(value)) : ""_ns);
}

// A stepper that a class of its own brings.
UIView stepperIn(PSTableCell cell) {
  UIView found;
  uikit::forEachInTree(cell, [&](UIView view) {
    if (bridge::isKindOf<UIStepper>(view)) found = view;
  });
  return found;
}

}  // namespace

CGFloat textLeft(PSSpecifier row) { return margin() + (iconOf(row) ? iconSide + margin() : 0); }

UIView controlOf(PSTableCell cell) {
  const UIView control = CellClass::state(cell).control.get();
  return control ? control : stepperIn(cell);
}

void setChecked(PSTableCell cell, bool checked) {
  CellState& state = CellClass::state(cell);
  if (state.mark) state.mark->removeFromSuperview();
  state.mark.clear();
  if (!checked) return;
  state.mark = makeCheck();
  const CGFloat width = cell.bounds().size.width;
  put(cell, state.mark, inMiddle(width - margin() - checkSize, {checkSize, checkSize}));
}

void defineTableCell() {
  using bridge::method;
  CellClass::define<UIView>(method<&PSTableCell::contentView, contentView>(),
                            method<&PSTableCell::specifier, specifier>(),
                            method<&PSTableCell::initWithStyle_reuseIdentifier_specifier, init>(),
                            method<&PSTableCell::refreshCellContentsWithSpecifier, showValue>(),
                            method<&PSTableCell::setAccessoryView, setAccessoryView>(),
                            method<&UIResponder::touchesBegan_withEvent, touchesBegan>(),
                            method<&UIResponder::touchesEnded_withEvent, touchesGone>(),
                            method<&UIResponder::touchesCancelled_withEvent, touchesGone>(),
                            method<&CellFace::tapped, tapped>(), method<&CellFace::changed, changed>());
}

}  // namespace sim::preferences
