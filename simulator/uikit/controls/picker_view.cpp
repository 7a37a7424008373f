// UIPickerView: wheels side by side, with two lines around what is in their middle.
#include "simulator/uikit/controls/picker_view.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

#include "bridge/define.hpp"
#include "platform/uikit/color.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/runtime/weak.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/base/exception.hpp"
#include "simulator/uikit/controls/picker_column.hpp"

extern "C" {
__attribute__((visibility("default"), used)) const id NSForegroundColorAttributeName = "NSColor"_ns.raw;
}

namespace sim::uikit {
namespace {

using bridge::Strong;

// Points.
constexpr CGRect usualFrame{{0, 0}, {320, 216}};
constexpr double usualRowHeight = 32;

struct PickerState {
  Weak delegate, dataSource;
  BOOL showsSelectionIndicator = NO;
  bool loaded = false;  // whether the delegate has been asked since it came
  std::vector<Strong<PickerColumn>> columns;
  std::array<Strong<UIView>, 2> lines;

  PickerState() = default;
  ~PickerState() {
    for (const auto& column : columns) disown(column);
  }
  PickerState(const PickerState&) = delete;
  PickerState& operator=(const PickerState&) = delete;
};

using PickerClass = bridge::Implementation<UIPickerView, PickerState>;

bool answers(bridge::Object object, SEL message) {
  return object && bridge::as<NSObject>(object).respondsToSelector(message);
}

// A message to whoever of the two is there and implements it.
template <auto Member>
bridge::Object takerOf(const Weak& object) {
  return answers(object.get(), bridge::Descriptor<Member>::selector()) ? object.get() : bridge::Object();
}

// Without a data source the delegate is asked, where it knows the answers.
template <auto Member>
NSInteger count(UIPickerView self, auto... arguments) {
  const PickerState& state = PickerClass::state(self);
  const Weak& source = state.dataSource.get() ? state.dataSource : state.delegate;
  const bridge::Object taker = takerOf<Member>(source);
  return taker ? bridge::Descriptor<Member>::send(taker.raw, self, arguments...) : 0;
}

// The colour is all that a row shows of a title's attributes.
UIColor colorOf(NSAttributedString title) {
  if (title.string().length() == 0) return {};
  const NSDictionary attributes = title.attributesAtIndex_effectiveRange(0, nullptr);
  const auto color = attributes.objectForKey(bridge::as<NSString>(NSForegroundColorAttributeName));
  if (attributes.count() > (color ? 1u : 0u))
    raise("NSInvalidArgumentException"_ns, "a picker's titles have no attribute but their colour here");
  return bridge::as<UIColor>(color);
}

void fill(UIPickerView self, NSInteger component, NSInteger row, UILabel label) {
  using D = UIPickerViewDelegate;
  const Weak& delegate = PickerClass::state(self).delegate;
  if (const bridge::Object taker = takerOf<&D::pickerView_attributedTitleForRow_forComponent>(delegate)) {
    const auto title =
        bridge::as<D>(taker).pickerView_attributedTitleForRow_forComponent(self, row, component);
    if (title) {
      label.text.set(title.string());
      if (const UIColor color = colorOf(title)) label.textColor.set(color);
      return;
    }
  }
  if (const bridge::Object taker = takerOf<&D::pickerView_titleForRow_forComponent>(delegate))
    label.text.set(bridge::as<D>(taker).pickerView_titleForRow_forComponent(self, row, component));
}

void tellSelected(UIPickerView self, NSInteger component, NSInteger row) {
  using D = UIPickerViewDelegate;
  const Strong<UIPickerView> alive = retained(self);
  const bridge::Object taker =
      takerOf<&D::pickerView_didSelectRow_inComponent>(PickerClass::state(self).delegate);
  if (taker) bridge::as<D>(taker).pickerView_didSelectRow_inComponent(self, row, component);
}

double rowHeight(UIPickerView self, NSInteger component) {
  using D = UIPickerViewDelegate;
  const bridge::Object taker =
      takerOf<&D::pickerView_rowHeightForComponent>(PickerClass::state(self).delegate);
  return taker ? bridge::as<D>(taker).pickerView_rowHeightForComponent(self, component) : usualRowHeight;
}

double columnWidth(UIPickerView self, NSInteger component) {
  using D = UIPickerViewDelegate;
  const PickerState& state = PickerClass::state(self);
  const bridge::Object taker = takerOf<&D::pickerView_widthForComponent>(state.delegate);
  if (taker) return bridge::as<D>(taker).pickerView_widthForComponent(self, component);
  return self.bounds().size.width / static_cast<double>(state.columns.size());
}

void addColumn(UIPickerView self) {
  std::vector<Strong<PickerColumn>>& columns = PickerClass::state(self).columns;
  const auto component = static_cast<NSInteger>(columns.size());
  columns.push_back(makePickerColumn(
      {.fill = [self, component](NSInteger row, UILabel label) { fill(self, component, row, label); },
       .selected = [self, component](NSInteger row) { tellSelected(self, component, row); }}));
  self.insertSubview_atIndex(columns.back(), component);
}

void reloadAllComponents(UIPickerView self) {
  PickerState& state = PickerClass::state(self);
  state.loaded = true;
  const auto wanted = static_cast<std::size_t>(
      std::max<NSInteger>(count<&UIPickerViewDataSource::numberOfComponentsInPickerView>(self), 0));
  while (state.columns.size() > wanted) {
    disown(state.columns.back());
    state.columns.back()->removeFromSuperview();
    state.columns.pop_back();
  }
  while (state.columns.size() < wanted) addColumn(self);
  for (std::size_t i = 0; i < wanted; ++i) {
    const auto component = static_cast<NSInteger>(i);
    setRows(state.columns[i],
            count<&UIPickerViewDataSource::pickerView_numberOfRowsInComponent>(self, component),
            rowHeight(self, component));
  }
  self.setNeedsLayout();
}

PickerState& loaded(UIPickerView self) {
  if (!PickerClass::state(self).loaded) self.reloadAllComponents();
  return PickerClass::state(self);
}

PickerColumn columnAt(UIPickerView self, NSInteger component) {
  const PickerState& state = loaded(self);
  if (component < 0 || static_cast<std::size_t>(component) >= state.columns.size())
    raise("NSRangeException"_ns,
          fmt::format("component {} of a picker that has {}", component, state.columns.size()));
  return state.columns[static_cast<std::size_t>(component)];
}

void asksOthers(UIPickerView self) {
  PickerClass::state(self).loaded = false;
  self.setNeedsLayout();
}

NSInteger numberOfComponents(UIPickerView self) {
  return static_cast<NSInteger>(loaded(self).columns.size());
}

NSInteger numberOfRows(UIPickerView self, NSInteger component) { return rowsOf(columnAt(self, component)); }
NSInteger selectedRow(UIPickerView self, NSInteger component) {
  return selectedRowOf(columnAt(self, component));
}

void selectRow(UIPickerView self, NSInteger row, NSInteger component, BOOL animated) {
  turnTo(columnAt(self, component), row, animated && self.window());
}

Strong<UIView> makeLine() {
  auto line = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  line->backgroundColor.set(UIColor::colorWithWhite_alpha(0.5, 0.5));
  line->userInteractionEnabled.set(NO);
  return line;
}

Strong<UIView> initWithFrame(UIPickerView self, CGRect frame) {
  const bool usual = frame.size.width == 0 && frame.size.height == 0;
  auto made =
      PickerClass::super<&UIView::initWithFrame>(self, usual ? CGRect{frame.origin, usualFrame.size} : frame);
  PickerState& state = PickerClass::state(bridge::as<UIPickerView>(made.get()));
  for (Strong<UIView>& line : state.lines) {
    line = makeLine();
    made->addSubview(line);
  }
  return made;
}

void layoutColumns(UIPickerView self) {
  const PickerState& state = loaded(self);
  const CGSize size = self.bounds().size;
  std::vector<double> widths;
  double all = 0;
  for (std::size_t i = 0; i < state.columns.size(); ++i) {
    widths.push_back(columnWidth(self, static_cast<NSInteger>(i)));
    all += widths.back();
  }
  double x = (size.width - all) / 2;
  for (std::size_t i = 0; i < state.columns.size(); ++i) {
    state.columns[i]->frame.set({{x, 0}, {widths[i], size.height}});
    x += widths[i];
  }
}

// The lines have been there whatever is asked since system 7.
void layoutSubviews(UIPickerView self) {
  layoutColumns(self);
  const PickerState& state = PickerClass::state(self);
  const CGSize size = self.bounds().size;
  const double half = (state.columns.empty() ? usualRowHeight : rowHeight(self, 0)) / 2;
  const double pixel = 1 / configuration().scale;
  state.lines[0]->frame.set({{0, size.height / 2 - half}, {size.width, pixel}});
  state.lines[1]->frame.set({{0, size.height / 2 + half - pixel}, {size.width, pixel}});
}

}  // namespace

WheelPosition wheelOf(UIPickerView picker) { return {positionOf(columnAt(picker, 0)), rowHeight(picker, 0)}; }

void definePickerView() {
  using bridge::method;
  using Face = UIPickerView;
  definePickerColumn();
  PickerClass::define<UIView>(
      method<&UIView::initWithFrame, initWithFrame>(), method<&UIView::layoutSubviews, layoutSubviews>(),
      PickerClass::property<&Face::delegate, &PickerState::delegate, asksOthers>(),
      PickerClass::property<&Face::dataSource, &PickerState::dataSource, asksOthers>(),
      PickerClass::property<&Face::showsSelectionIndicator, &PickerState::showsSelectionIndicator>(),
      method<&Face::numberOfComponents, numberOfComponents>(),
      method<&Face::numberOfRowsInComponent, numberOfRows>(),
      method<&Face::reloadAllComponents, reloadAllComponents>(),
      method<&Face::selectedRowInComponent, selectedRow>(),
      method<&Face::selectRow_inComponent_animated, selectRow>());
}

}  // namespace sim::uikit
