// The notice box on screen.
#include "platform/uikit/application.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/product/class_names.hpp"
#include "simulator/product/product.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::product {
namespace {

struct ProgressHUD : bridge::Face<"RQProgressHUD", UIView> {
  MESSAGE Method<"labelText", NSString()> labelText;
  MESSAGE Method<"mode", NSInteger()> mode;
};

double shownAlpha(UIView view) { return uikit::layerOf(view).presentation(clock::now()).opacity; }

// One that has been hidden may still be in its view; one that begins to show is there already.
bool isShown(UIView view) { return view.alpha() > 0 || shownAlpha(view) > 0; }

ProgressHUD foremost() {
  ProgressHUD found;
  NSArray windows = UIApplication::sharedApplication().windows();
  for (NSUInteger i = 0; i < windows.count(); ++i)
    uikit::forEachInTree(bridge::as<UIView>(windows.objectAtIndex(i)), [&](UIView view) {
      if (isKindOfNamed(view, ProgressHUD::className.text) && isShown(view))
        found = bridge::as<ProgressHUD>(view);
    });
  return found;
}

Json hud(Simulation&) {
  const ProgressHUD box = foremost();
  if (!box) return nullptr;
  return {{"text", plain(box.labelText())}, {"mode", box.mode()}, {"alpha", number(shownAlpha(box))}};
}

constexpr ReportRow rows[] = {{"hud", hud,
                               "`text`, `mode` (as the library numbers them) and `alpha` of the foremost "
                               "notice box; null when none is shown"}};

}  // namespace

std::span<const ReportRow> hudKeys() { return rows; }

}  // namespace sim::product
