// RQProgressHUD: a small translucent box over a view, with an indicator of activity or progress and up to two
// texts.
#pragma once

#include "bridge/property.hpp"
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
struct RQProgressHUDDelegate : bridge::Protocol<"RQProgressHUDDelegate"> {
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

  MESSAGE Property<"mode", NSInteger> mode;
  MESSAGE Property<"animationType", NSInteger> animationType;
  MESSAGE Property<"labelText", NSString> labelText;
  MESSAGE Property<"detailsLabelText", NSString> detailsLabelText;
  MESSAGE Property<"opacity", float> opacity;
  // The box's fill, of that opacity; nil for black.
  MESSAGE Property<"color", UIColor> color;
  MESSAGE Property<"labelFont", UIFont> labelFont;
  MESSAGE Property<"labelColor", UIColor> labelColor;
  MESSAGE Property<"detailsLabelFont", UIFont> detailsLabelFont;
  MESSAGE Property<"detailsLabelColor", UIColor> detailsLabelColor;
  // Of the box from the middle of the view.
  MESSAGE Property<"xOffset", float> xOffset;
  MESSAGE Property<"yOffset", float> yOffset;
  MESSAGE Property<"dimBackground", BOOL> dimBackground;
  MESSAGE Property<"margin", float> margin;
  MESSAGE Property<"cornerRadius", float> cornerRadius;
  MESSAGE Property<"graceTime", float> graceTime;
  MESSAGE Property<"minShowTime", float> minShowTime;
  MESSAGE Property<"removeFromSuperViewOnHide", BOOL> removeFromSuperViewOnHide;
  MESSAGE Property<"minSize", CGSize> minSize;
  MESSAGE Property<"square", BOOL> square;
  MESSAGE Property<"progress", float> progress;  // 0 to 1
  MESSAGE Property<"customView", UIView> customView;
  MESSAGE Property<"taskInProgress", BOOL> taskInProgress;
  MESSAGE Property<"delegate", RQProgressHUDDelegate> delegate;  // not retained
  MESSAGE Method<"isFinished", BOOL()> isFinished;               // shown, and hidden again
  // Called once, when it has been hidden.
  MESSAGE Property<"completionBlock", bridge::BlockRef<void()>> completionBlock;
};

void defineProgressHUD();

}  // namespace tilo
