// RQProgressHUD: a small translucent box over a view, with an indicator of activity or progress and up to two
// texts.
#pragma once

#include "controls/bar_progress_view.hpp"
#include "controls/round_progress_view.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/uikit/label.hpp"
#include "platform/uikit/window.hpp"

namespace tilo {

// What the indicator is.
enum : NSInteger {
  RQProgressHUDModeIndeterminate = 0,
  RQProgressHUDModeDeterminate,               // a pie
  RQProgressHUDModeDeterminateHorizontalBar,  // a bar
  RQProgressHUDModeAnnularDeterminate,        // a ring
  RQProgressHUDModeCustomView,
  RQProgressHUDModeText  // nothing
};

// How the box comes and goes.
enum : NSInteger {
  RQProgressHUDAnimationFade = 0,
  RQProgressHUDAnimationZoomOut,  // comes from one and a half times its size, goes to half of it
  RQProgressHUDAnimationZoomIn    // the other way round
};

struct RQProgressHUD;

// What a delegate may answer.
struct RQProgressHUDDelegate : bridge::Face<"RQProgressHUDDelegate", NSObject> {
  MESSAGE Method<"hudWasHidden:", void(RQProgressHUD)> hudWasHidden;
};

// Lengths in points, times in seconds.
struct RQProgressHUD : bridge::Face<"RQProgressHUD", UIView> {
  static constexpr bridge::ClassMethod<"RQProgressHUD",
                                       "showHUDAddedTo:animated:", RQProgressHUD(UIView, BOOL)>
      showHUDAddedTo_animated{};
  // Hides the topmost one and takes it down; answers whether there was one.
  static constexpr bridge::ClassMethod<"RQProgressHUD", "hideHUDForView:animated:", BOOL(UIView, BOOL)>
      hideHUDForView_animated{};
  // The same with every one.
  static constexpr bridge::ClassMethod<"RQProgressHUD", "hideAllHUDsForView:animated:", BOOL(UIView, BOOL)>
      hideAllHUDsForView_animated{};
  static constexpr bridge::ClassMethod<"RQProgressHUD", "HUDForView:", RQProgressHUD(UIView)> HUDForView{};
  static constexpr bridge::ClassMethod<"RQProgressHUD", "allHUDsForView:", NSArray(UIView)> allHUDsForView{};

  MESSAGE Method<"initWithView:", RQProgressHUD(UIView)> initWithView;
  MESSAGE Method<"initWithWindow:", RQProgressHUD(UIWindow)> initWithWindow;

  MESSAGE Method<"show:", void(BOOL)> show;
  MESSAGE Method<"hide:", void(BOOL)> hide;
  MESSAGE Method<"hide:afterDelay:", void(BOOL, double)> hide_afterDelay;
  // Shown while the target does the selector on a thread of its own.
  MESSAGE Method<"showWhileExecuting:onTarget:withObject:animated:",
                 void(SEL, bridge::Object, bridge::Object, BOOL)>
      showWhileExecuting_onTarget_withObject_animated;
  // Shown while the block runs on a queue; the default one when none is named.
  MESSAGE Method<"showAnimated:whileExecutingBlock:", void(BOOL, bridge::BlockRef<void()>)>
      showAnimated_whileExecutingBlock;
  MESSAGE Method<"showAnimated:whileExecutingBlock:completionBlock:",
                 void(BOOL, bridge::BlockRef<void()>, bridge::BlockRef<void()>)>
      showAnimated_whileExecutingBlock_completionBlock;
  MESSAGE Method<"showAnimated:whileExecutingBlock:onQueue:",
                 void(BOOL, bridge::BlockRef<void()>, dispatch_queue_s*)>
      showAnimated_whileExecutingBlock_onQueue;
  MESSAGE Method<"showAnimated:whileExecutingBlock:onQueue:completionBlock:",
                 void(BOOL, bridge::BlockRef<void()>, dispatch_queue_s*, bridge::BlockRef<void()>)>
      showAnimated_whileExecutingBlock_onQueue_completionBlock;

  MESSAGE Method<"mode", NSInteger()> mode;
  MESSAGE Method<"setMode:", void(NSInteger)> setMode;
  MESSAGE Method<"animationType", NSInteger()> animationType;
  MESSAGE Method<"setAnimationType:", void(NSInteger)> setAnimationType;
  MESSAGE Method<"labelText", NSString()> labelText;
  MESSAGE Method<"setLabelText:", void(NSString)> setLabelText;
  MESSAGE Method<"detailsLabelText", NSString()> detailsLabelText;
  MESSAGE Method<"setDetailsLabelText:", void(NSString)> setDetailsLabelText;
  MESSAGE Method<"opacity", float()> opacity;
  MESSAGE Method<"setOpacity:", void(float)> setOpacity;
  // The box's fill, of that opacity; nil for black.
  MESSAGE Method<"color", UIColor()> color;
  MESSAGE Method<"setColor:", void(UIColor)> setColor;
  MESSAGE Method<"labelFont", UIFont()> labelFont;
  MESSAGE Method<"setLabelFont:", void(UIFont)> setLabelFont;
  MESSAGE Method<"labelColor", UIColor()> labelColor;
  MESSAGE Method<"setLabelColor:", void(UIColor)> setLabelColor;
  MESSAGE Method<"detailsLabelFont", UIFont()> detailsLabelFont;
  MESSAGE Method<"setDetailsLabelFont:", void(UIFont)> setDetailsLabelFont;
  MESSAGE Method<"detailsLabelColor", UIColor()> detailsLabelColor;
  MESSAGE Method<"setDetailsLabelColor:", void(UIColor)> setDetailsLabelColor;
  // Of the box from the middle of the view.
  MESSAGE Method<"xOffset", float()> xOffset;
  MESSAGE Method<"setXOffset:", void(float)> setXOffset;
  MESSAGE Method<"yOffset", float()> yOffset;
  MESSAGE Method<"setYOffset:", void(float)> setYOffset;
  MESSAGE Method<"dimBackground", BOOL()> dimBackground;
  MESSAGE Method<"setDimBackground:", void(BOOL)> setDimBackground;
  MESSAGE Method<"margin", float()> margin;
  MESSAGE Method<"setMargin:", void(float)> setMargin;
  MESSAGE Method<"cornerRadius", float()> cornerRadius;
  MESSAGE Method<"setCornerRadius:", void(float)> setCornerRadius;
  MESSAGE Method<"graceTime", float()> graceTime;
  MESSAGE Method<"setGraceTime:", void(float)> setGraceTime;
  MESSAGE Method<"minShowTime", float()> minShowTime;
  MESSAGE Method<"setMinShowTime:", void(float)> setMinShowTime;
  MESSAGE Method<"removeFromSuperViewOnHide", BOOL()> removeFromSuperViewOnHide;
  MESSAGE Method<"setRemoveFromSuperViewOnHide:", void(BOOL)> setRemoveFromSuperViewOnHide;
  MESSAGE Method<"minSize", CGSize()> minSize;
  MESSAGE Method<"setMinSize:", void(CGSize)> setMinSize;
  MESSAGE Method<"square", BOOL()> square;
  MESSAGE Method<"setSquare:", void(BOOL)> setSquare;
  MESSAGE Method<"progress", float()> progress;  // 0 to 1
  MESSAGE Method<"setProgress:", void(float)> setProgress;
  MESSAGE Method<"customView", UIView()> customView;
  MESSAGE Method<"setCustomView:", void(UIView)> setCustomView;
  MESSAGE Method<"taskInProgress", BOOL()> taskInProgress;
  MESSAGE Method<"setTaskInProgress:", void(BOOL)> setTaskInProgress;
  MESSAGE Method<"delegate", RQProgressHUDDelegate()> delegate;  // not retained
  MESSAGE Method<"setDelegate:", void(RQProgressHUDDelegate)> setDelegate;
  MESSAGE Method<"isFinished", BOOL()> isFinished;  // shown, and hidden again
  // Called once, when it has been hidden.
  MESSAGE Method<"completionBlock", bridge::BlockRef<void()>()> completionBlock;
  MESSAGE Method<"setCompletionBlock:", void(bridge::BlockRef<void()>)> setCompletionBlock;
};

void defineProgressHUD();

}  // namespace tilo
