// UIApplication.
#include "simulator/uikit/base/application.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/uikit/base/action.hpp"
#include "simulator/uikit/base/array.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/gestures/touch_dispatch.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::uikit {
namespace {

// Made of the class that is first asked, which may be a subclass, and kept.
UIApplication sharedApplication(Class self) {
  static const id application = [self] {
    const id raw = bridge::Message<"alloc", bridge::Object()>::send(reinterpret_cast<id>(self)).leak();
    return bridge::Descriptor<&NSObject::init>::send(raw).leak();
  }();
  return bridge::as<UIApplication>(application);
}

UIWindow keyWindowOf(UIApplication) { return keyWindow(); }
NSArray windowsOf(UIApplication) { return makeArray(windows()); }
NSInteger statusBarOrientation(UIApplication) { return configuration().orientation; }

std::vector<std::string>& opened() {
  static auto& list = *new std::vector<std::string>();
  return list;
}

struct Taker {
  std::string beginning;
  std::function<void(const std::string&)> take;
};

std::vector<Taker>& takers() {
  static auto& list = *new std::vector<Taker>();
  return list;
}

BOOL openURL(UIApplication, NSURL url) {
  if (!url) return NO;
  const std::string address = url.absoluteString().UTF8String();
  opened().push_back(address);
  for (const Taker& each : takers())
    if (address.starts_with(each.beginning)) each.take(address);
  return YES;
}

void sendEvent(UIApplication, UIEvent event) {
  for (const auto& window : touchedWindows()) window->sendEvent(event);
}

// Who takes an action without a target: the first from the sender on that knows it.
bridge::Object takerOf(SEL action, bridge::Object sender) {
  if (!bridge::isKindOf<UIResponder>(sender)) return {};
  for (auto one = bridge::as<UIResponder>(sender); one; one = one.nextResponder())
    if (one.respondsToSelector(action)) return one;
  return {};
}

BOOL sendActionTo(UIApplication, SEL action, bridge::Object target, bridge::Object sender, UIEvent event) {
  const bridge::Object taker = target ? target : takerOf(action, sender);
  if (!taker) return NO;
  sendAction(action, taker, sender, event);
  return YES;
}

}  // namespace

const std::vector<std::string>& openedURLs() { return opened(); }

void takeURLs(std::string beginning, std::function<void(const std::string&)> taker) {
  takers().push_back({std::move(beginning), std::move(taker)});
}

void defineApplication() {
  using bridge::method;
  bridge::Implementation<UIApplication>::define<UIResponder>(
      method<&UIApplication::sharedApplication, sharedApplication>(),
      method<&UIApplication::keyWindow, keyWindowOf>(), method<&UIApplication::windows, windowsOf>(),
      method<&UIApplication::sendEvent, sendEvent>(), method<&UIApplication::openURL, openURL>(),
      method<&UIApplication::sendAction_to_from_forEvent, sendActionTo>(),
      method<&UIApplication::statusBarOrientation, statusBarOrientation>());
}

}  // namespace sim::uikit
