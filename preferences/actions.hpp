// What the buttons of the page do, each after a question where something could be lost.
#pragma once

#include "platform/preferences/list_controller.hpp"

namespace tilo::pane {

struct RootController : bridge::Face<"TiloRootController", PSListController> {
  MESSAGE Method<"nothing:", bridge::Object(PSSpecifier)> nothing;
  MESSAGE Method<"copyLayout:specifier:", void(bridge::Object, PSSpecifier)> copyLayout_specifier;
  MESSAGE Method<"restore:specifier:", void(bridge::Object, PSSpecifier)> restore_specifier;
  MESSAGE Method<"pasteLayout", void()> pasteLayout;
  MESSAGE Method<"backUp", void()> backUp;
  MESSAGE Method<"resetToDefaults", void()> resetToDefaults;
  MESSAGE Method<"respring", void()> respring;
};

void copyLayout(RootController self, bridge::Object chosen, PSSpecifier row);
void restore(RootController self, bridge::Object chosen, PSSpecifier row);
void pasteFromPasteboard(RootController self);
void backUp(RootController self);
void resetToDefaults(RootController self);
void respring(RootController self);

}  // namespace tilo::pane
