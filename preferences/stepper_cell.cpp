// The count and the stepper are the row's accessory; the row's title is the framework's.
#include "preferences/stepper_cell.hpp"

#include "bridge/define.hpp"
#include "platform/preferences/list_controller.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/stepper.hpp"
#include "preferences/settings/checks.hpp"

namespace tilo::pane {
namespace {

struct StepperCell : bridge::Face<"TiloStepperCell", PSTableCell> {
  MESSAGE Method<"stepped:", void(UIStepper)> stepped;
};

struct StepperCellState {
  bridge::Strong<UIStepper> stepper;
  bridge::Strong<UILabel> count;
};

using Cell = bridge::Implementation<StepperCell, StepperCellState>;

constexpr CGFloat stepperWidth = 94, height = 29, countWidth = 40, gap = 10;  // points

double numberAt(PSSpecifier row, NSString key) {
  return bridge::as<NSNumber>(row.propertyForKey(key)).doubleValue();
}

void show(StepperCell self, double count) {
  Cell::state(self).stepper->value.set(count);
  Cell::state(self).count->text.set(asText(count));
}

// Cells are used again for other rows.
void refresh(StepperCell self, PSSpecifier row) {
  Cell::super<&PSTableCell::refreshCellContentsWithSpecifier>(self, row);
  UIStepper stepper = Cell::state(self).stepper;
  stepper.minimumValue.set(numberAt(row, "min"_ns));
  stepper.maximumValue.set(numberAt(row, "max"_ns));
  bridge::Object value = bridge::as<PSViewController>(row.target()).readPreferenceValue(row);
  show(self, bridge::as<NSNumber>(value).doubleValue());
}

bridge::Strong<PSTableCell> init(StepperCell self, NSInteger style, NSString name, PSSpecifier row) {
  auto made = Cell::superInit<&PSTableCell::initWithStyle_reuseIdentifier_specifier>(self, style, name, row);
  if (!made) return nullptr;
  auto cell = bridge::as<StepperCell>(made.get());
  StepperCellState& state = Cell::state(cell);
  state.stepper =
      bridge::make<UIStepper, &UIView::initWithFrame>(CGRect{{countWidth + gap, 0}, {stepperWidth, height}});
  state.stepper->addTarget_action_forControlEvents(
      cell, bridge::Descriptor<&StepperCell::stepped>::selector(), UIControlEventValueChanged);
  state.count = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{{0, 0}, {countWidth, height}});
  state.count->textAlignment.set(NSTextAlignmentRight);
  // As the framework's own values are.
  state.count->textColor.set(UIColor::colorWithRed_green_blue_alpha(142. / 255, 142. / 255, 147. / 255, 1));
  CGRect room{{0, 0}, {countWidth + gap + stepperWidth, height}};
  auto accessory = bridge::make<UIView, &UIView::initWithFrame>(room);
  accessory->addSubview(state.count);
  accessory->addSubview(state.stepper);
  made->setAccessoryView(accessory);
  return made;
}

void stepped(StepperCell self, UIStepper stepper) {
  PSSpecifier row = self.specifier();
  double count = stepper.value();
  bridge::as<PSViewController>(row.target())
      .setPreferenceValue_specifier(NSNumber::numberWithFloat(static_cast<float>(count)), row);
  show(self, count);
}

}  // namespace

void defineStepperCell() {
  using bridge::method;
  Cell::define<PSTableCell>(method<&PSTableCell::initWithStyle_reuseIdentifier_specifier, init>(),
                            method<&PSTableCell::refreshCellContentsWithSpecifier, refresh>(),
                            method<&StepperCell::stepped, stepped>());
}

}  // namespace tilo::pane
