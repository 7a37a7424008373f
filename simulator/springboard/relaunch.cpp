// FBSSystemService and the action that asks it to start SpringBoard anew. A process has one SpringBoard: that
// it was asked is noted, and the next start of the simulator on the same root is what comes of it.
#include "simulator/springboard/relaunch.hpp"

#include "platform/frontboard/relaunch.hpp"
#include "simulator/springboard/system_class.hpp"

namespace sim::springboard {
namespace {

using Action = bridge::Implementation<SBSRelaunchAction>;
using Service = bridge::Implementation<FBSSystemService>;

constinit int asked = 0;

SBSRelaunchAction makeAction(Class, NSString, NSUInteger, NSURL) {
  return bridge::make<SBSRelaunchAction, &NSObject::init>().autoreleased();
}

FBSSystemService sharedService(Class) {
  static const id shared = bridge::make<FBSSystemService, &NSObject::init>().leak();
  return bridge::as<FBSSystemService>(shared);
}

void sendActions(FBSSystemService, NSSet actions, bridge::Object) {
  asked += bridge::isKindOf<SBSRelaunchAction>(actions.anyObject());
}

}  // namespace

int relaunchesAskedFor() { return asked; }

void defineRelaunch() {
  using bridge::method;
  Action::define<NSObject>(method<&SBSRelaunchAction::actionWithReason_options_targetURL, makeAction>());
  Service::define<NSObject>(method<&FBSSystemService::sharedService, sharedService>(),
                            method<&FBSSystemService::sendActions_withResult, sendActions>());
}

}  // namespace sim::springboard
