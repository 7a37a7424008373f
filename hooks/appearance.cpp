// The replacements of icon images, labels, page dots and the launch of applications.
#include "hooks/appearance.hpp"

#include "bridge/replace.hpp"
#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/store/values.hpp"

namespace tilo::hooks {
namespace {

using bridge::original;

bool wantsSquareIcons() { return settings().flag(keys::square); }

// Absent counts as hidden, as long as the library is switched on.
bool hides(Key<Kind::flag> key) {
  bool shown = settings().flag(key);
  return !shown && settings().flag(keys::enabled);
}

// One launch may come here more than once, when one message leads to another; a panel is cancelled once.
void closePanel() { gestController->popView().didHitCancel(); }

}  // namespace

void imageLayoutSubviews(SBIconImageView self) {
  original<imageLayoutSubviews>(self);
  if (wantsSquareIcons()) self.setShowsSquareCorners(YES);
}

CGFloat cornerRadius(Class self) { return original<cornerRadius>(self); }

BOOL showsSquareCorners(SBIconImageView self) {
  return wantsSquareIcons() ? YES : original<showsSquareCorners>(self);
}

UIColor shadowColor(SBIconLabelImageParameters self) {
  return hides(keys::labels) ? UIColor::clearColor() : original<shadowColor>(self);
}

UIColor textColor(SBIconLabelImageParameters self) {
  return hides(keys::labels) ? UIColor::clearColor() : original<textColor>(self);
}

// A hidden label takes no room either.
CGRect labelRect(Class self, BOOL drawing, CGRect rect, SBIconLabelImageParameters parameters) {
  return hides(keys::labels) ? CGRect{} : original<labelRect>(self, drawing, rect, parameters);
}

void setIndicatorImageAtIndex(SBIconListPageControl self, UIImageView image, BOOL enabled, NSInteger index) {
  if (!hides(keys::page)) original<setIndicatorImageAtIndex>(self, image, enabled, index);
}

void setIndicatorImage(SBIconListPageControl self, UIImageView image, BOOL enabled) {
  if (!hides(keys::page)) original<setIndicatorImage>(self, image, enabled);
}

void activateAnimated(SBUIController self, SBApplication application) {
  closePanel();
  original<activateAnimated>(self, application);
}

void activate(SBUIController self, SBApplication application) {
  closePanel();
  original<activate>(self, application);
}

void activateFromIcon(SBUIController self, SBApplication application, SBIcon icon, NSInteger location) {
  closePanel();
  original<activateFromIcon>(self, application, icon, location);
}

void activateWithSettings(SBUIController self, SBApplication application, SBIcon icon, NSInteger location,
                          bridge::Object settings, bridge::Object actions) {
  closePanel();
  original<activateWithSettings>(self, application, icon, location, settings, actions);
}

}  // namespace tilo::hooks
