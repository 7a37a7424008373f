// SBUIController and the applications that it brings on screen: each is a window with its artwork in the
// middle.
#include "simulator/springboard/applications.hpp"

#include <algorithm>
#include <map>
#include <string>

#include "platform/uikit/color.hpp"
#include "platform/uikit/screen.hpp"
#include "platform/uikit/window.hpp"
#include "simulator/artwork/app_icon.hpp"
#include "simulator/springboard/drawn_image.hpp"
#include "simulator/springboard/icon.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "simulator/springboard/icon_list_view.hpp"
#include "simulator/springboard/status_bar.hpp"
#include "simulator/springboard/system_class.hpp"
#include "simulator/uikit/views/first_responder.hpp"

namespace sim::springboard {
namespace {

constexpr CGFloat windowLevel = 10;   // over the home screen, below the status bar
constexpr CGFloat startScale = 0.2;   // of the screen, when an application opens
constexpr CGFloat artworkSide = 120;  // points

struct ApplicationState {
  bridge::Strong<NSString> name;
};

using Application = bridge::Implementation<SBApplication, ApplicationState>;

struct Shown {
  bridge::Strong<SBApplication> application;
  bridge::Strong<UIWindow> window;
};

Shown& shown() {
  static auto& current = *new Shown();
  return current;
}

using UIController = bridge::Implementation<SBUIController>;

NSString displayName(SBApplication self) { return Application::state(self).name.get(); }

SBUIController sharedInstance(Class) {
  static id shared = bridge::make<SBUIController, &NSObject::init>().leak();
  return bridge::as<SBUIController>(shared);
}

// Applications that show more than their artwork.
std::map<std::string, WindowMaker>& makers() {
  static auto& all = *new std::map<std::string, WindowMaker>();
  return all;
}

bridge::Strong<UIWindow> makeWindow(const std::string& name) {
  if (const auto maker = makers().find(name); maker != makers().end()) {
    auto window = maker->second();
    window->makeKeyWindow();
    window->windowLevel.set(windowLevel);
    return window;
  }
  CGRect screen = UIScreen::mainScreen().bounds();
  auto window = bridge::make<UIWindow, &UIView::initWithFrame>(screen);
  window->windowLevel.set(windowLevel);
  window->backgroundColor.set(UIColor::colorWithWhite_alpha(0.08, 1));
  auto artwork = bridge::make<UIImageView, &UIView::initWithFrame>(
      CGRect{{(screen.size.width - artworkSide) / 2, (screen.size.height - artworkSide) / 2},
             {artworkSide, artworkSide}});
  artwork->image.set(drawnImage({artworkSide, artworkSide}, [name](cairo_t* context, CGSize size) {
    drawAppIcon(context, name, size.width, IconCorners::rounded);
  }));
  artwork->autoresizingMask.set(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin |
                                UIViewAutoresizingFlexibleTopMargin | UIViewAutoresizingFlexibleBottomMargin);
  window->addSubview(artwork);
  return window;
}

LaunchMessage launchMessage = LaunchMessage::fromIcon;

constexpr NSInteger onHomeScreen = 1;  // an icon's location; nothing here depends on it

// With its transform its bounds would grow whenever the device turns, which sets frames.
void putAway(const bridge::Strong<UIWindow>& window) {
  if (!window) return;
  window->hidden.set(YES);
  window->transform.set(identityTransform);
}

// Below an application, also while it opens, when what it covers could be touched beside it.
void homeScreenTakesTouches(bool takes) {
  homeScreen().scrollView->window().userInteractionEnabled.set(takes);
}

void show(SBApplication application) {
  uikit::resignForcibly(uikit::firstResponder());
  auto window = makeWindow(application.displayName().UTF8String());
  window->transform.set({startScale, 0, 0, startScale, 0, 0});
  window->alpha.set(0);
  window->hidden.set(NO);
  homeScreenTakesTouches(false);
  const auto covered = shown().window;
  shown() = {bridge::retained(application), window};
  UIView::animateWithDuration_animations_completion(
      launchDuration, bridge::Block<void()>([window] {
        window->transform.set(identityTransform);
        window->alpha.set(1);
      }),
      bridge::Block<void(BOOL)>([covered](BOOL) { putAway(covered); }));
}

void activateAnimated(SBUIController, SBApplication application) { show(application); }
void activatePlain(SBUIController, SBApplication application) { show(application); }

void activateFromIcon(SBUIController, SBApplication application, SBIcon, NSInteger) { show(application); }

void activateWithSettings(SBUIController, SBApplication application, SBIcon, NSInteger, bridge::Object,
                          bridge::Object) {
  show(application);
}

bridge::Strong<SBApplication> applicationNamed(NSString name) {
  auto application = bridge::make<SBApplication, &NSObject::init>();
  Application::state(application.get()).name = bridge::retained(name);
  return application;
}

// By the message that the version in use has for it; without an icon when something else asks for it.
void open(SBApplication application, SBIcon icon) {
  const auto controller = SBUIController::sharedInstance();
  if (controller.activateApplicationAnimated.isAnswered())
    controller.activateApplicationAnimated.ifAnswered(application);
  else if (controller.activateApplication_fromIcon_location_activationSettings_actions.isAnswered())
    controller.activateApplication_fromIcon_location_activationSettings_actions.ifAnswered(
        application, icon, onHomeScreen, {}, {});
  else if (launchMessage == LaunchMessage::plain)
    controller.activateApplication.ifAnswered(application);
  else
    controller.activateApplication_fromIcon_location.ifAnswered(application, icon, onHomeScreen);
}

}  // namespace

void layOutHomeScreen() {
  for (const auto& page : homeScreen().pages) layOutIcons(page);
  layOutIcons(homeScreen().dock);
  homeScreen().scrollView->superview().setNeedsLayout();
}

void useLaunchMessage(LaunchMessage used) { launchMessage = used; }

void launch(SBIcon icon) { open(applicationNamed(nameOf(icon)).autoreleased(), icon); }

void openApplication(const std::string& name) {
  open(applicationNamed(NSString::stringWithUTF8String(name.c_str())).autoreleased(), {});
}

void showsWindow(const std::string& name, WindowMaker maker) { makers()[name] = std::move(maker); }

SBApplication shownApplication() { return shown().application.get(); }

void leaveApplication() {
  bridge::Strong<UIWindow> window = shown().window;
  shown() = {};
  if (!window) return;
  showStatusBar();
  homeScreenTakesTouches(true);
  homeScreen().scrollView->window().makeKeyWindow();
  layOutHomeScreen();
  UIView::animateWithDuration_animations_completion(
      launchDuration, bridge::Block<void()>([window] {
        window->transform.set({startScale, 0, 0, startScale, 0, 0});
        window->alpha.set(0);
      }),
      bridge::Block<void(BOOL)>([window](BOOL) { putAway(window); }));
}

void defineApplications() {
  defineSystemClass<Application>(own<&SBApplication::displayName, displayName>());
  defineSystemClass<UIController>(
      own<&SBUIController::sharedInstance, sharedInstance>(),
      own<&SBUIController::activateApplicationAnimated, activateAnimated>(),
      own<&SBUIController::activateApplication, activatePlain>(),
      own<&SBUIController::activateApplication_fromIcon_location, activateFromIcon>(),
      own<&SBUIController::activateApplication_fromIcon_location_activationSettings_actions,
          activateWithSettings>());
}

}  // namespace sim::springboard
