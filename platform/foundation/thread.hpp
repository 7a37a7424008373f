// NSThread, and performing selectors later or on another thread, which every object offers.
#pragma once

#include "platform/foundation/object.hpp"

struct NSThread : bridge::Face<"NSThread", NSObject> {
  static constexpr bridge::ClassMethod<"NSThread", "isMainThread", BOOL()> isMainThread{};
  // Target and argument are retained until the thread has ended.
  static constexpr bridge::ClassMethod<"NSThread", "detachNewThreadSelector:toTarget:withObject:",
                                       void(SEL, bridge::Object, bridge::Object)>
      detachNewThreadSelector_toTarget_withObject{};
};

// What the selector answers is dropped.
struct NSPerforming : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"performSelector:withObject:", void(SEL, bridge::Object)> performSelector_withObject;
};

// Receiver and argument are retained until it is done.
struct NSThreadPerformAdditions : bridge::Face<"NSObject", NSObject> {
  MESSAGE Method<"performSelectorOnMainThread:withObject:waitUntilDone:", void(SEL, bridge::Object, BOOL)>
      performSelectorOnMainThread_withObject_waitUntilDone;
};

struct NSDelayedPerforming : bridge::Face<"NSObject", NSObject> {
  // Seconds; on the thread that asks.
  MESSAGE Method<"performSelector:withObject:afterDelay:", void(SEL, bridge::Object, double)>
      performSelector_withObject_afterDelay;
  static constexpr bridge::ClassMethod<"NSObject",
                                       "cancelPreviousPerformRequestsWithTarget:", void(bridge::Object)>
      cancelPreviousPerformRequestsWithTarget{};
};
