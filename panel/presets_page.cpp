// The panel's second page: the saved layouts in a picker, to be applied or deleted, and how one is saved.
#include "controls/described_views.hpp"
#include "controls/progress_hud.hpp"
#include "panel/popup_state.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "platform/foundation/number.hpp"
#include "platform/springboard/icon_controller.hpp"
#include "platform/uikit/alert_controller.hpp"
#include "platform/uikit/application.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/store/presets_file.hpp"
#include "settings/store/values.hpp"

namespace tilo::panel {
namespace {

using bridge::Block;

// Points.
constexpr CGSize buttonSize{100, 50};
constexpr CGFloat buttonFromBottom = 100, selectFromRight = 110, deleteLeft = 10;
constexpr CGFloat pickerTop = 20, pickerLess = 70;  // less high than the page
constexpr CGRect captionFrame{{20, 15}, {200, 30}};

constexpr double fading = 0.4;  // seconds
constexpr CGFloat blinkAlpha = 0.5;
constexpr double noticeTime = 0.7;  // seconds

void addButton(RQPopupView self, CGFloat x, NSString title, UIColor color, SEL action) {
  UIButton button = UIButton::buttonWithType(UIButtonTypeCustom);
  button.frame.set({{x, self.frame().size.height - buttonFromBottom}, buttonSize});
  button.setTitle_forState(title, UIControlStateNormal);
  button.setTitleColor_forState(color, UIControlStateNormal);
  button.addTarget_action_forControlEvents(self, action, UIControlEventTouchUpInside);
  self.scrollView().addSubview(button);
}

void addCaption(RQPopupView self, CGFloat pageLeft) {
  CGRect frame = captionFrame;
  frame.origin.x += pageLeft;
  auto caption = build(Label{.frame = frame, .text = "Saved Presets"_ns, .color = self.controlColor()});
  self.pickerLabel.set(caption);
  self.scrollView().addSubview(caption);
}

// The panel answers for the counts as well, but is not made the data source.
bridge::Strong<UIPickerView> makePicker(RQPopupView self, CGFloat pageLeft) {
  auto picker = bridge::make<UIPickerView, &NSObject::init>();
  self.pickerView.set(picker);
  picker->delegate.set(self);
  picker->frame.set(
      {{pageLeft, pickerTop}, {self.frame().size.width, self.scrollView().frame().size.height - pickerLess}});
  picker->backgroundColor.set(UIColor::colorWithRed_green_blue_alpha(255, 255, 255, 0));
  picker->showsSelectionIndicator.set(YES);
  return picker;
}

// Empty for what somebody's hand made no record, or a record without a name: it keeps its row.
NSString named(NSArray records, NSUInteger index) {
  bridge::Object record = records.objectAtIndex(index);
  bridge::Object name;
  if (bridge::isKindOf<NSDictionary>(record))
    name = bridge::as<NSDictionary>(record).objectForKey(keys::name);
  return bridge::isKindOf<NSString>(name) ? bridge::as<NSString>(name) : ""_ns;
}

UIAlertController makeAlert(NSString message) {
  return UIAlertController::alertControllerWithTitle_message_preferredStyle("Tilo 3"_ns, message,
                                                                            UIAlertControllerStyleAlert);
}

void addAction(UIAlertController alert, NSString title, NSInteger style,
               const Block<void(UIAlertAction)>& handler) {
  alert.addAction(UIAlertAction::actionWithTitle_style_handler(title, style, handler));
}

void present(UIAlertController alert) {
  UIViewController root = UIApplication::sharedApplication().keyWindow().rootViewController();
  root.presentViewController_animated_completion(alert, YES, Block<void()>([] {}));
}

void showFirstRunNotice() {
  UIAlertController alert =
      makeAlert("To access the Quick Actions again swipe up anywhere on the SpringBoard."_ns);
  addAction(alert, "Okay"_ns, UIAlertActionStyleDefault, [](UIAlertAction) {
    RQGestureController::sharedInstance().savePrefsWithKey_value(keys::showedSetup,
                                                                 NSNumber::numberWithBool(YES));
  });
  present(alert);
}

// Only the answer to the latest question counts, and only once.
void comeBack(RQPopupView self, int question) {
  int& latest = Popup::state(self).question;
  if (latest != question) return;
  ++latest;
  fadeTo(self, 1, fading);
}

// Belongs to an alert, with which it dies: the panel comes back even when the alert has never been shown, or
// has gone without a button.
class Unanswered {
 public:
  Unanswered(RQPopupView of, int which) : panel(bridge::retained(of)), question(which) {}
  Unanswered(Unanswered&&) = default;
  Unanswered& operator=(Unanswered&&) = delete;
  ~Unanswered() {
    if (panel)
      dispatch::onMainQueue([panel = std::move(panel), question = question] { comeBack(panel, question); });
  }

 private:
  bridge::Strong<RQPopupView> panel;
  int question;
};

void setUpNameField(UITextField field) {
  field.placeholder.set("Name"_ns);
  field.clearButtonMode.set(UITextFieldViewModeWhileEditing);
  field.keyboardAppearance.set(UIKeyboardAppearanceDark);
}

NSDictionary spacingOf(RQPopupView self) {
  NSMutableDictionary spacing = NSMutableDictionary::dictionary();
  auto put = [&](Key<Kind::number> key, ColorSlider slider) {
    spacing.setObject_forKey(NSNumber::numberWithFloat(slider.value()), key);
  };
  put(keys::horizontalPadding, self.horSlider());
  put(keys::verticalPadding, self.vertSlider());
  put(keys::sideInset, self.sideSlider());
  put(keys::topInset, self.topSlider());
  return spacing;
}

// Its value is its place at this moment; later deletions do not change it.
NSDictionary makeRecord(RQPopupView self, NSString title) {
  NSMutableDictionary record = NSMutableDictionary::dictionary();
  record.setObject_forKey(title, keys::name);
  record.setObject_forKey(NSNumber::numberWithInt(static_cast<int>(self.configurations().count())),
                          keys::value);
  record.setObject_forKey(NSNumber::numberWithInt(1), keys::configurable);
  record.setObject_forKey(spacingOf(self), keys::configuration);
  return record;
}

void rewrite(RQPopupView self) {
  presets::save(self.configurations());
  self.getData();
  self.pickerView().reloadAllComponents();
}

bool isIn(NSArray list, NSInteger row) { return row >= 0 && static_cast<NSUInteger>(row) < list.count(); }
bool isInList(RQPopupView self, NSInteger row) { return isIn(self.data(), row); }

NSString titleIn(NSArray titles, NSInteger row) {
  return isIn(titles, row) ? bridge::as<NSString>(titles.objectAtIndex(static_cast<NSUInteger>(row))) : ""_ns;
}

// The row that was selected last; where the list has become too short for it, the one that the picker shows.
NSInteger chosenRow(RQPopupView self) {
  const NSInteger selected = self.rowSelected(), shown = self.pickerView().selectedRowInComponent(0);
  return isInList(self, selected) || !isInList(self, shown) ? selected : shown;
}

// The first record that bears the name of the chosen row, and every one equal to it.
void removeSelected(RQPopupView self) {
  const NSInteger row = chosenRow(self);
  if (!isInList(self, row)) return;
  NSString wanted = bridge::as<NSString>(self.data().objectAtIndex(static_cast<NSUInteger>(row)));
  NSMutableArray records = self.configurations();
  for (NSUInteger i = 0; i < records.count(); ++i) {
    if (!named(records, i).isEqualToString(wanted)) continue;
    records.removeObject(records.objectAtIndex(i));
    return;
  }
}

}  // namespace

// The select property stays empty, so "Select" can always be pressed.
void setupPickerView(RQPopupView self) {
  CGFloat width = self.frame().size.width;
  addButton(self, 2 * width - selectFromRight, "Select"_ns, self.controlColor(),
            bridge::selector<"didHitDone">());
  addButton(self, width + deleteLeft, "Delete"_ns,
            UIColor::colorWithRed_green_blue_alpha(165.0 / 255, 67.0 / 255, 77.0 / 255, 1),
            bridge::selector<"deleteSelectedLayout:">());
  auto picker = makePicker(self, width);
  addCaption(self, width);
  self.scrollView().addSubview(picker);
}

void getData(RQPopupView self) {
  // A file that has gone meanwhile is made anew of what is known.
  self.configurations.set(NSMutableArray::arrayWithArray(presets::load(self.configurations())));
  auto names = bridge::make<NSMutableArray, &NSObject::init>();
  for (NSUInteger i = 0; i < self.configurations().count(); ++i)
    names->addObject(named(self.configurations(), i));
  self.data.set(names);
  bool any = names->count() > 0;
  if (!any) self.pickerLabel().text.set("No Saved Presets"_ns);
  self.select().enabled.set(any);
}

NSMutableArray items(RQPopupView self) { return self.data(); }

NSInteger numberOfComponents(RQPopupView, UIPickerView) { return 1; }

NSInteger numberOfRows(RQPopupView self, UIPickerView, NSInteger) {
  return static_cast<NSInteger>(self.data().count());
}

// Nothing for a row that the list no longer has.
NSString titleForRow(RQPopupView self, UIPickerView, NSInteger row, NSInteger) {
  return titleIn(self.items(), row);
}

NSAttributedString attributedTitleForRow(RQPopupView self, UIPickerView, NSInteger row, NSInteger) {
  NSString title = titleIn(self.data(), row);
  NSString color = bridge::as<NSString>(NSForegroundColorAttributeName);
  return bridge::make<NSAttributedString, &NSAttributedString::initWithString_attributes>(
             title, NSDictionary::dictionaryWithObject_forKey(self.controlColor(), color))
      .autoreleased();
}

CGFloat widthForComponent(RQPopupView, UIPickerView picker, NSInteger) {
  return static_cast<CGFloat>(static_cast<int>(picker.frame().size.width));
}

void didSelectRow(RQPopupView self, UIPickerView, NSInteger row, NSInteger) {
  self.rowSelected.set(static_cast<int>(row));
}

void didHitDone(RQPopupView self) {
  const int row = static_cast<int>(chosenRow(self));
  store(self, keys::customPreset, NSNumber::numberWithInt(row));
  RQGestureController::sharedInstance().updateConfigWithValue(row);
  if (!Values(self.rootObj()).flag(keys::showedSetup)) showFirstRunNotice();
  self.hide();
}

void deleteSelectedLayout(RQPopupView self, bridge::Object) {
  bridge::Strong<RQPopupView> panel = bridge::retained(self);
  UIView::animateWithDuration_delay_options_animations_completion(
      fading, 0, UIViewAnimationOptionOverrideInheritedDuration,
      Block<void()>([panel] { panel->alpha.set(blinkAlpha); }),
      Block<void(BOOL)>([panel](BOOL) { fadeTo(panel, 1, fading); }));
  self.getData();
  removeSelected(self);
  rewrite(self);
}

// The panel is out of sight while a name is asked for.
void saveCurrentLayout(RQPopupView self, bridge::Object) {
  fadeTo(self, 0, fading);
  UIAlertController alert = makeAlert("Add custom layout"_ns);
  alert.addTextFieldWithConfigurationHandler(Block<void(UITextField)>(setUpNameField));
  // The field, not the alert, which would keep itself by its action.
  auto field = bridge::retained(bridge::as<UITextField>(alert.textFields().objectAtIndex(0)));
  auto panel = bridge::retained(self);
  const int question = ++Popup::state(self).question;
  addAction(alert, "Add"_ns, UIAlertActionStyleDefault, [panel, field, question](UIAlertAction) {
    comeBack(panel, question);
    if (NSString name = field->text(); name.length() > 0) panel->saveWithTitle(name);
  });
  addAction(alert, "Cancel"_ns, UIAlertActionStyleDestructive,
            [panel, question, alertStands = Unanswered(self, question)](UIAlertAction) {
              comeBack(panel, question);
            });
  present(alert);
}

void saveWithTitle(RQPopupView self, NSString title) {
  if (!title) return;
  self.getData();
  self.configurations().addObject(makeRecord(self, title));
  rewrite(self);
}

void exportSettings(RQPopupView self) {
  SBRootIconListView list = SBIconController::sharedInstance().currentRootIconList();
  // All are asked for before one is stored: another library's answers may follow what is stored.
  const std::pair<Key<Kind::number>, CGFloat> lengths[] = {
      {keys::sideIconInset, list.sideIconInset()},
      {keys::topIconInset, list.topIconInset()},
      {keys::horiIconPadding, list.horizontalIconPadding()},
      {keys::vertIconPadding, list.verticalIconPadding()}};
  for (const auto& [key, length] : lengths)
    RQGestureController::sharedInstance().savePrefsWithKey_value(
        key, NSNumber::numberWithFloat(static_cast<float>(length)));
  RQProgressHUD notice = RQProgressHUD::showHUDAddedTo_animated(self, YES);
  notice.mode.set(RQProgressHUDModeText);
  notice.labelText.set("Exported Current Icon Layout"_ns);
  notice.hide_afterDelay(YES, noticeTime);
}

void openSettings(RQPopupView self) {
  UIApplication::sharedApplication().openURL(NSURL::URLWithString("prefs:root=Tilo"_ns));
  self.didHitCancel();
}

}  // namespace tilo::panel
