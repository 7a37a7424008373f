// What the files of RQProgressHUD's class share: its state, and the methods that each file provides.
#pragma once

#include "bridge/define.hpp"
#include "controls/own_observation.hpp"
#include "controls/progress_hud.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/foundation/number.hpp"
#include "platform/foundation/run_loop.hpp"
#include "platform/foundation/timer.hpp"

namespace tilo::hud {

// A task that a thread does.
struct Task {
  SEL action = nullptr;
  bridge::Strong<bridge::Object> target, object;
};

// Stops the notifications of an object that dies.
struct Listening {
  bridge::Object listener;  // not retained

  Listening() = default;
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;
  ~Listening() {
    if (listener) NSNotificationCenter::defaultCenter().removeObserver(listener);
  }
};

struct HUDState {
  // The properties, in the order of the interface.
  NSInteger mode = RQProgressHUDModeIndeterminate;
  NSInteger animationType = RQProgressHUDAnimationFade;
  bridge::Strong<NSString> labelText, detailsLabelText;
  float opacity = 0.8f;
  bridge::Strong<UIColor> color;
  bridge::Strong<UIFont> labelFont, detailsLabelFont;
  bridge::Strong<UIColor> labelColor, detailsLabelColor;
  float xOffset = 0, yOffset = 0;
  BOOL dimBackground = NO;
  float margin = 20, cornerRadius = 10;
  float graceTime = 0, minShowTime = 0;
  BOOL removeFromSuperViewOnHide = NO;
  CGSize minSize{};
  BOOL square = NO;
  float progress = 0;
  bridge::Strong<UIView> customView;
  BOOL taskInProgress = NO;
  RQProgressHUDDelegate delegate;  // not retained
  bridge::Block<void()> completionBlock;

  BOOL useAnimation = NO;  // of the last showing or hiding
  BOOL isFinished = NO;    // hidden again
  Task task;
  bridge::Strong<UILabel> label, detailsLabel;
  bridge::Strong<UIView> indicator;
  CGAffineTransform rotationTransform = identityTransform;
  bridge::Strong<NSTimer> graceTimer, minShowTimer;
  bridge::Strong<NSDate> showStarted;  // nil while it is not shown
  CGSize size{};                       // of the box
  OwnObservation observation;
  Listening listening;
};

using HUD = bridge::Implementation<RQProgressHUD, HUDState>;

inline constexpr CGFloat padding = 4;  // points between indicator and texts

// Messages that the class sends to itself.
struct Own : bridge::Face<"RQProgressHUD", RQProgressHUD> {
  MESSAGE Method<"release", void()> release;
  MESSAGE Method<"hideDelayed:", void(NSNumber)> hideDelayed;
  MESSAGE Method<"handleGraceTimer:", void(NSTimer)> handleGraceTimer;
  MESSAGE Method<"handleMinShowTimer:", void(NSTimer)> handleMinShowTimer;
  MESSAGE Method<"done", void()> done;
  MESSAGE Method<"launchExecution", void()> launchExecution;
  MESSAGE Method<"cleanUp", void()> cleanUp;
  MESSAGE Method<"updateForKeyPath:", void(NSString)> updateForKeyPath;
  MESSAGE Method<"deviceOrientationDidChange:", void(NSNotification)> deviceOrientationDidChange;
};

// progress_hud_showing.cpp
void show(RQProgressHUD self, BOOL animated);
void hide(RQProgressHUD self, BOOL animated);
void hideLater(RQProgressHUD self, BOOL animated, double delay);
void hideDelayed(RQProgressHUD self, NSNumber animated);
void handleGraceTimer(RQProgressHUD self, NSTimer timer);
void handleMinShowTimer(RQProgressHUD self, NSTimer timer);
void done(RQProgressHUD self);

// progress_hud_tasks.cpp: the box dies on the main thread, whichever lets go of it last.
void release(RQProgressHUD self);
void showWhileExecuting(RQProgressHUD self, SEL action, bridge::Object target, bridge::Object object,
                        BOOL animated);
void launchExecution(RQProgressHUD self);
void cleanUp(RQProgressHUD self);
void showWithBlock(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block);
void showWithBlockThen(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block,
                       bridge::BlockRef<void()> completion);
void showWithBlockOnQueue(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block,
                          dispatch_queue_s* queue);
void showWithBlockOnQueueThen(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block,
                              dispatch_queue_s* queue, bridge::BlockRef<void()> completion);

// progress_hud_indicator.cpp: what the mode asks for, put in place of what there was.
void updateIndicator(RQProgressHUD self);
void passProgress(RQProgressHUD self);

// progress_hud_observation.cpp
void observeOwnProperties(RQProgressHUD self);
void observeValue(RQProgressHUD self, NSString key, bridge::Object, NSDictionary, void*);
void updateForKeyPath(RQProgressHUD self, NSString key);

// progress_hud_orientation.cpp
void listenToOrientation(RQProgressHUD self);
void deviceOrientationDidChange(RQProgressHUD self, NSNotification);
void didMoveToSuperview(RQProgressHUD self);

// progress_hud_layout.cpp
void layoutSubviews(RQProgressHUD self);

// progress_hud_drawing.cpp
void drawRect(RQProgressHUD self, CGRect dirty);

}  // namespace tilo::hud
