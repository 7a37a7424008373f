// Applications on screen.
#pragma once

#include <functional>
#include <string>

#include "platform/springboard/icon.hpp"
#include "platform/springboard/ui_controller.hpp"
#include "platform/uikit/window.hpp"

namespace sim::springboard {

// Opens the application of an icon that was tapped, by the message that the version in use has for it.
void launch(SBIcon icon);

// Opens one without an icon, as when an address leads to it.
void openApplication(const std::string& name);

// Applications show their artwork, but for those that somebody makes a window for each time that they open.
using WindowMaker = std::function<bridge::Strong<UIWindow>()>;
void showsWindow(const std::string& name, WindowMaker maker);

// Up to 10.x there are two such messages, and no class dump tells which one a tap goes through.
enum class LaunchMessage { fromIcon, plain };
void useLaunchMessage(LaunchMessage used);

// The application on screen; nil when there is none.
SBApplication shownApplication();

// The home button: the application leaves the screen.
void leaveApplication();

// What an application, or another process, has changed meanwhile is seen when the icons come back.
void layOutHomeScreen();

// How long an application takes to cover the screen, or to leave it.
inline constexpr double launchDuration = 0.4;  // seconds

void defineApplications();

}  // namespace sim::springboard
