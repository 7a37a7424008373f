// The panel: its state, its rows, and the whole tree of its views.
#include <string>

#include "bridge/runtime.hpp"
#include "platform/foundation/number.hpp"
#include "platform/uikit/label.hpp"
#include "platform/uikit/page_control.hpp"
#include "platform/uikit/picker_view.hpp"
#include "platform/uikit/slider.hpp"
#include "platform/uikit/text_field.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/app/view_report.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/product/panel.hpp"
#include "simulator/product/product.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::product {
namespace {

constexpr double collapsedHeight = 40;    // points
constexpr double leastErrorAlpha = 0.01;  // of a message that counts as shown

LayerValues shown(UIView view) { return uikit::layerOf(view).presentation(clock::now()); }

// The message beside a row's number, while it can be seen.
Json errorOf(UIView slider) {
  const auto label = bridge::as<UILabel>(panelPart(slider, "errorLabel"_ns));
  return label && shown(label).opacity > leastErrorAlpha ? plain(label.text()) : Json();
}

Json row(UISlider slider) {
  const auto field = bridge::as<UITextField>(panelPart(slider, "valueLabel"_ns));
  return {{"key", plain(panelPart(slider, "type"_ns))},
          {"value", number(slider.value())},
          {"minimum", number(slider.minimumValue())},
          {"maximum", number(slider.maximumValue())},
          {"text", plain(field.text())},
          {"error", errorOf(slider)}};
}

// The label that stands over the slider: of those that begin no lower, the lowest.
std::string captionOf(UISlider slider) {
  const NSArray siblings = slider.superview().subviews();
  UILabel caption;
  for (NSUInteger i = 0; i < siblings.count(); ++i) {
    if (!bridge::isKindOf<UILabel>(siblings.objectAtIndex(i))) continue;
    const auto label = bridge::as<UILabel>(siblings.objectAtIndex(i));
    const CGFloat top = label.frame().origin.y;
    if (top <= slider.frame().origin.y && (!caption || top > caption.frame().origin.y)) caption = label;
  }
  const NSString text = caption.text();
  return text ? text.UTF8String() : "";
}

Json rows(UIView panel) {
  Json all = Json::object();
  uikit::forEachInTree(panel, [&](UIView view) {
    if (!bridge::isKindOf<UISlider>(view)) return;
    const auto slider = bridge::as<UISlider>(view);
    all[captionOf(slider)] = row(slider);
  });
  return all;
}

Json presets(UIView panel) {
  // The key "data" would lead to -getData, which loads them anew.
  Json names = plain(panelPart(panel, "items"_ns));
  return names.isNull() ? Json::array() : names;
}

Json selectedRow(UIView panel) {
  const auto picker = bridge::as<UIPickerView>(panelPart(panel, "pickerView"_ns));
  return picker ? Json(static_cast<long>(picker.selectedRowInComponent(0))) : Json();
}

bool isTrue(bridge::Object flag) { return bridge::as<NSNumber>(flag).boolValue(); }

Json panel(Simulation&) {
  const UIView view = shownPanel();
  if (!view) return nullptr;
  const auto pages = bridge::as<UIPageControl>(panelPart(view, "pageControl"_ns));
  const auto caption = bridge::as<UILabel>(panelPart(view, "pickerLabel"_ns));
  return {{"frame", frame(uikit::layerOf(view).frame(clock::now()))},
          {"alpha", number(shown(view).opacity)},
          {"background", opaqueColor(shown(view).backgroundColor)},
          {"dark", isTrue(panelPart(view, "isDarkMode"_ns))},
          {"collapsed", view.bounds().size.height == collapsedHeight},
          {"page", static_cast<long>(pages.currentPage())},
          {"rows", rows(view)},
          {"presets", presets(view)},
          {"selectedRow", selectedRow(view)},
          {"caption", plain(caption.text())},
          {"views", viewTree(view)}};
}

constexpr ReportRow table[] = {
    {"panel", panel,
     "null when none is on screen; else `frame`, `alpha`, `background` [red, green, blue] (0 to 255), "
     "`dark`, `collapsed`, `page`, `rows`, `presets` [names], `selectedRow` of the picker, `caption` of the "
     "saved layouts, `views`"},
    {"panel.rows", nullptr,
     "by caption: the `key` it edits, `value`, `minimum`, `maximum`, `text` of its number field, `error` "
     "(the message beside it, while its alpha exceeds 0.01)"},
    {"panel.views", nullptr,
     "the tree: `class`, `frame`, `alpha`, `hidden`, `transform` [a, b, c, d, tx, ty], `background` and "
     "`textColor` [red, green, blue, alpha], `text`, `children`"},
};

}  // namespace

std::span<const ReportRow> panelKeys() { return table; }

}  // namespace sim::product
