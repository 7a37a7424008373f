// What makes the system start SpringBoard anew: a request to its front board. Systems before 9.3 have another
// one.
#pragma once

#include "platform/foundation/set.hpp"
#include "platform/foundation/string.hpp"
#include "platform/foundation/url.hpp"

// SBSRelaunchActionOptions
enum : NSUInteger { SBSRelaunchActionOptionsFadeToBlackTransition = 1 << 1 };

struct SBSRelaunchAction : bridge::Face<"SBSRelaunchAction", NSObject> {
  static constexpr bridge::ClassMethod<"SBSRelaunchAction", "actionWithReason:options:targetURL:",
                                       SBSRelaunchAction(NSString, NSUInteger, NSURL)>
      actionWithReason_options_targetURL{};
};

struct SBSRestartRenderServerAction : bridge::Face<"SBSRestartRenderServerAction", NSObject> {
  static constexpr bridge::ClassMethod<"SBSRestartRenderServerAction", "restartActionWithTargetRelaunchURL:",
                                       SBSRestartRenderServerAction(NSURL)>
      restartActionWithTargetRelaunchURL{};
};

struct FBSSystemService : bridge::Face<"FBSSystemService", NSObject> {
  static constexpr bridge::ClassMethod<"FBSSystemService", "sharedService", FBSSystemService()>
      sharedService{};
  // A set of actions; the block may be nil.
  MESSAGE Method<"sendActions:withResult:", void(NSSet, bridge::Object)> sendActions_withResult;
};
