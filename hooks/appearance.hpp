// How icons look: square corners, hidden labels and page dots. Launching an application closes the panel.
#pragma once

#include "platform/springboard/icon.hpp"
#include "platform/springboard/icon_label.hpp"
#include "platform/springboard/page_control.hpp"
#include "platform/springboard/ui_controller.hpp"

namespace tilo::hooks {

// Square icons need no master switch.
void imageLayoutSubviews(SBIconImageView self);
CGFloat cornerRadius(Class self);
BOOL showsSquareCorners(SBIconImageView self);

UIColor shadowColor(SBIconLabelImageParameters self);
UIColor textColor(SBIconLabelImageParameters self);
CGRect labelRect(Class self, BOOL drawing, CGRect rect, SBIconLabelImageParameters parameters);

void setIndicatorImageAtIndex(SBIconListPageControl self, UIImageView image, BOOL enabled, NSInteger index);
void setIndicatorImage(SBIconListPageControl self, UIImageView image, BOOL enabled);

// Each of the messages by which systems launch applications.
void activateAnimated(SBUIController self, SBApplication application);
void activate(SBUIController self, SBApplication application);
void activateFromIcon(SBUIController self, SBApplication application, SBIcon icon, NSInteger location);
void activateWithSettings(SBUIController self, SBApplication application, SBIcon icon, NSInteger location,
                          bridge::Object settings, bridge::Object actions);

}  // namespace tilo::hooks
