// Following its own properties, whatever the thread that changes them.
#include "controls/progress_hud_parts.hpp"
#include "platform/foundation/thread.hpp"

namespace tilo::hud {
namespace {

// A view of one's own is asked to be a custom view only by its mode, so both keys lead to the indicator.
void update(RQProgressHUD self, NSString key) {
  const auto is = [key](NSString other) { return key.isEqualToString(other); };
  UILabel label = HUD::state(self).label, details = HUD::state(self).detailsLabel;
  if (is("mode"_ns) || is("customView"_ns)) updateIndicator(self);
  if (is("labelText"_ns)) label.text.set(self.labelText());
  if (is("labelFont"_ns)) label.font.set(self.labelFont());
  if (is("labelColor"_ns)) label.textColor.set(self.labelColor());
  if (is("detailsLabelText"_ns)) details.text.set(self.detailsLabelText());
  if (is("detailsLabelFont"_ns)) details.font.set(self.detailsLabelFont());
  if (is("detailsLabelColor"_ns)) details.textColor.set(self.detailsLabelColor());
  if (is("progress"_ns)) passProgress(self);
}

}  // namespace

void observeOwnProperties(RQProgressHUD self) {
  HUD::state(self).observation.begin(
      self, {"mode"_ns, "customView"_ns, "labelText"_ns, "labelFont"_ns, "labelColor"_ns,
             "detailsLabelText"_ns, "detailsLabelFont"_ns, "detailsLabelColor"_ns, "progress"_ns});
}

void observeValue(RQProgressHUD self, NSString key, bridge::Object, NSDictionary, void*) {
  if (NSThread::isMainThread()) return bridge::as<Own>(self).updateForKeyPath(key);
  bridge::as<NSThreadPerformAdditions>(self).performSelectorOnMainThread_withObject_waitUntilDone(
      bridge::selector<"updateForKeyPath:">(), key, NO);
}

void updateForKeyPath(RQProgressHUD self, NSString key) {
  update(self, key);
  self.setNeedsLayout();
  self.setNeedsDisplay();
}

}  // namespace tilo::hud
