// The notice box on screen.
#include "platform/uikit/application.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/device/clock.hpp"
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
  const Class cls = bridge::classNamed<ProgressHUD>();
  if (!cls) return found;
  NSArray windows = UIApplication::sharedApplication().windows();
  for (NSUInteger i = 0; i < windows.count(); ++i)
    uikit::forEachInTree(bridge::as<UIView>(windows.objectAtIndex(i)), [&](UIView view) {
      if (bridge::isKindOf(view, cls) && isShown(view)) found = bridge::as<ProgressHUD>(view);
    });
  return found;
}

Json text(NSString string) { return string ? Json(string.UTF8String()) : Json(); }

}  // namespace

Json reportHud(Simulation&) {
  const ProgressHUD hud = foremost();
  if (!hud) return nullptr;
  return {{"text", text(hud.labelText())}, {"mode", hud.mode()}, {"alpha", number(shownAlpha(hud))}};
}

}  // namespace sim::product
