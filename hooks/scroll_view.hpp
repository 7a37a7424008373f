// SpringBoard's icon scroll view: where the panel is opened by a swipe, a two-finger tap or a firm press,
// where pages are counted, and where changes of settings reach the running home screen.
#pragma once

#include "platform/springboard/icon_scroll_view.hpp"

namespace tilo::hooks {

void listCellPreferencesUpdated(SBIconScrollView self, NSString message, NSDictionary info);
void preferencesUpdated(SBIconScrollView self, NSString message, NSDictionary info);
void layout(SBIconScrollView self, bridge::Object notification);
void swipe(SBIconScrollView self, bridge::Object recognizer);
UISwipeGestureRecognizer swipeGesture(SBIconScrollView self);
void setSwipeGesture(SBIconScrollView self, UISwipeGestureRecognizer recognizer);
UITapGestureRecognizer tapGesture(SBIconScrollView self);
void setTapGesture(SBIconScrollView self, UITapGestureRecognizer recognizer);

// Which of the two SpringBoard sends is its own affair.
bridge::Strong<NSObject> initScrollView(SBIconScrollView self);
bridge::Strong<UIView> initScrollViewWithFrame(SBIconScrollView self, CGRect frame);
void deallocScrollView(SBIconScrollView self);
void setContentOffset(SBIconScrollView self, CGPoint offset);
// Neither calls SpringBoard's own.
void touchesMoved(SBIconScrollView self, NSSet touches, UIEvent event);
void touchesEnded(SBIconScrollView self, NSSet touches, UIEvent event);

}  // namespace tilo::hooks
