// The buttons' work, its questions and its answers.
#include "preferences/actions.hpp"

#include "platform/foundation/date_formatter.hpp"
#include "platform/foundation/file_manager.hpp"
#include "platform/frontboard/relaunch.hpp"
#include "platform/uikit/alert_controller.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/pasteboard.hpp"
#include "platform/uikit/window.hpp"
#include "preferences/settings/backup.hpp"
#include "preferences/settings/checks.hpp"
#include "preferences/settings/domain.hpp"
#include "preferences/settings/layouts.hpp"
#include "preferences/settings/specifiers.hpp"

namespace tilo::pane {
namespace {

UIAlertController alert(NSString message) {
  return UIAlertController::alertControllerWithTitle_message_preferredStyle("Tilo"_ns, message,
                                                                            UIAlertControllerStyleAlert);
}

// From what the window always shows: another page may lie over this one.
void present(UIAlertController shown) {
  UIApplication::sharedApplication()
      .keyWindow()
      .rootViewController()
      .presentViewController_animated_completion(shown, YES, {});
}

void say(NSString message) {
  UIAlertController shown = alert(message);
  shown.addAction(UIAlertAction::actionWithTitle_style_handler("OK"_ns, UIAlertActionStyleDefault, {}));
  present(shown);
}

// `then` is done when the answer is yes; "Cancel" does nothing.
template <class F>
void ask(NSString question, NSString yes, F then) {
  UIAlertController shown = alert(question);
  shown.addAction(UIAlertAction::actionWithTitle_style_handler("Cancel"_ns, UIAlertActionStyleCancel, {}));
  shown.addAction(UIAlertAction::actionWithTitle_style_handler(
      yes, UIAlertActionStyleDestructive,
      bridge::Block<void(UIAlertAction)>([then](UIAlertAction) { then(); })));
  present(shown);
}

// Everything may be another now: the home screen hears of all of it, and the rows show it.
void tellAll(RootController self) {
  NSDictionary values = storedValues();
  NSArray items = settingItems();
  for (NSUInteger i = 0; i < items.count(); ++i) {
    NSDictionary item = bridge::as<NSDictionary>(items.objectAtIndex(i));
    announce(item, nearest(item, values.objectForKey(keyOf(item))));
  }
  self.reloadSpecifiers();
}

NSString respringHint() { return "Some settings take effect after a respring."_ns; }

NSString textAt(NSArray texts, bridge::Object position) {
  auto number = bridge::as<NSNumber>(position);
  NSUInteger place = static_cast<NSUInteger>(number.integerValue());
  return place < texts.count() ? bridge::as<NSString>(texts.objectAtIndex(place)) : NSString{};
}

// "Tilo 2018-06-05 09.41.00.json"
NSString nameOfNow() {
  auto formatter = bridge::make<NSDateFormatter, &NSObject::init>();
  formatter->setDateFormat("yyyy-MM-dd HH.mm.ss"_ns);
  return joined("Tilo "_ns, formatter->stringFromDate(NSDate::date()), ".json"_ns);
}

}  // namespace

void copyLayout(RootController, bridge::Object chosen, PSSpecifier) {
  NSString line = textOfLayout(textAt(layoutNames(), chosen));
  if (!line) return say("This layout cannot be copied: it is damaged."_ns);
  UIPasteboard::generalPasteboard().string.set(line);
  say(joined("Copied: "_ns, line));
}

void pasteFromPasteboard(RootController self) {
  NSString text = UIPasteboard::generalPasteboard().string();
  if (!text) return say("There is no text to paste."_ns);
  if (NSString fault = pasteLayout(text)) return say(joined("Nothing was added: "_ns, fault, "."_ns));
  self.reloadSpecifiers();
  NSArray names = layoutNames();
  say(joined("Added: "_ns, bridge::as<NSString>(names.objectAtIndex(names.count() - 1))));
}

void backUp(RootController self) {
  NSFileManager::defaultManager().createDirectoryAtPath_withIntermediateDirectories_attributes_error(
      backupFolder(), YES, {}, nullptr);
  NSString name = nameOfNow();
  if (NSString fault = backUpTo(backupFolder().stringByAppendingPathComponent(name)))
    return say(joined("Not backed up: "_ns, fault, "."_ns));
  self.reloadSpecifiers();
  say(joined("Backed up: "_ns, name));
}

void restore(RootController self, bridge::Object chosen, PSSpecifier) {
  NSString name = textAt(backupNames(), chosen);
  if (!name) return;
  auto file = bridge::retained(backupFolder().stringByAppendingPathComponent(name));
  ask(joined("Replace all settings and layouts by those of "_ns, name, "?"_ns), "Restore"_ns, [self, file] {
    if (NSString fault = restoreFrom(file)) return say(joined("Not restored: "_ns, fault, "."_ns));
    tellAll(self);
    say(joined("Restored. "_ns, respringHint()));
  });
}

void resetToDefaults(RootController self) {
  ask("Set everything as it was at first? Saved layouts stay."_ns, "Reset"_ns, [self] {
    if (!resetSettings()) return say("Nothing was changed: the settings cannot be written."_ns);
    tellAll(self);
    say(joined("Set as at first. "_ns, respringHint()));
  });
}

void respring(RootController) {
  ask("Start SpringBoard anew?"_ns, "Respring"_ns, [] {
    NSURL back = NSURL::URLWithString("prefs:root=Tilo"_ns);
    NSObject action = SBSRelaunchAction::actionWithReason_options_targetURL(
        "Tilo"_ns, SBSRelaunchActionOptionsFadeToBlackTransition, back);
    if (!action) action = SBSRestartRenderServerAction::restartActionWithTargetRelaunchURL(back);
    if (!action) return;
    NSMutableArray actions = NSMutableArray::array();
    actions.addObject(action);
    FBSSystemService::sharedService().sendActions_withResult(NSSet::setWithArray(actions), {});
  });
}

}  // namespace tilo::pane
