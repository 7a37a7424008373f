// The keyboard.
#include "simulator/uikit/text/keyboard.hpp"

#include <algorithm>
#include <vector>

#include "bridge/define.hpp"
#include "platform/foundation/notification_center.hpp"
#include "simulator/uikit/base/configuration.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/text/keyboard_key.hpp"
#include "simulator/uikit/text/keyboard_size.hpp"
#include "simulator/uikit/text/text_field.hpp"
#include "simulator/uikit/views/first_responder.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr double riseDuration = 0.25;  // seconds
constexpr CGFloat windowLevel = 1e7;   // above all others
constexpr Color lightColor = rgb(0xd1d4d9), darkColor = rgb(0x2b2b2d);

struct KeyboardWindow : bridge::Face<"UIRemoteKeyboardWindow", UIWindow> {};
using WindowClass = bridge::Implementation<KeyboardWindow>;

struct Keyboard {
  Strong<UIWindow> window;
  Strong<UIView> host;       // of the other two; it is what rises
  Strong<UIView> accessory;  // the first responder's, above the keys
  Strong<UIView> pad;        // the keys, or what the first responder wants instead
  std::vector<Strong<UIControl>> keys;
  KeyboardPage page{};
  bool isUp = false;
};

Keyboard& keyboard() {
  static auto& one = *new Keyboard();
  return one;
}

void post(NSString name) { NSNotificationCenter::defaultCenter().postNotificationName_object(name, {}); }

UITextField field() {
  const UIResponder first = firstResponder();
  return bridge::isKindOf<UITextField>(first) ? bridge::as<UITextField>(first) : UITextField();
}

// Keys.

bool mayEnter() { return !field().enablesReturnKeyAutomatically() || field().hasText(); }

void turnTo(KeyboardPage page);

void pressed(const Key& key) {
  if (!field()) return;  // it went down under the finger
  switch (key.kind) {
    case KeyKind::text:
      typeText(field(), NSString::stringWithUTF8String(key.text.c_str()));
      // Shift holds for one letter.
      if (keyboard().page == KeyboardPage::capitals) turnTo(KeyboardPage::letters);
      return;
    case KeyKind::space:
      return typeText(field(), " "_ns);
    case KeyKind::remove:
      return typeDelete(field());
    case KeyKind::enter:
      return typeReturn(field());
    case KeyKind::hide:
      field().resignFirstResponder();
      return;
    default:
      return turnTo(key.page);
  }
}

KeyboardLayout layoutNow() {
  const KeyboardSize size = keyboardSize();
  return {.page = keyboard().page,
          .tablet = hasTabletKeyboard(),
          .size = {screenSize().width, size.height},
          .bottomMargin = size.bottomMargin,
          .enterTitle = field().returnKeyType() == UIReturnKeyDone ? "Done" : "return"};
}

void addKey(const Key& key) {
  const bool isDark = field().keyboardAppearance() == UIKeyboardAppearanceDark;
  const bool isEnter = key.kind == KeyKind::enter;
  const bool isProminent = isEnter && field().returnKeyType() == UIReturnKeyDone && mayEnter();
  keyboard().keys.push_back(makeKey(key, isDark, isProminent, pressed));
  if (isEnter) keyboard().keys.back()->enabled.set(mayEnter());
  keyboard().pad->addSubview(keyboard().keys.back());
}

void removeKeys() {
  for (const Strong<UIControl>& key : keyboard().keys) key->removeFromSuperview();
  keyboard().keys.clear();
}

void turnTo(KeyboardPage page) {
  keyboard().page = page;
  removeKeys();
  for (const Key& key : keysOf(layoutNow())) addKey(key);
}

// Its parts.

Strong<UIView> makePad() {
  auto pad = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  const bool isDark = field().keyboardAppearance() == UIKeyboardAppearanceDark;
  const auto color = makeColor(isDark ? darkColor : lightColor);
  pad->backgroundColor.set(color);
  return pad;
}

void takeParts() {
  removeKeys();
  for (Strong<UIView>* part : {&keyboard().pad, &keyboard().accessory}) {
    if (*part) (*part)->removeFromSuperview();
    part->clear();
  }
}

KeyboardPage firstPage() {
  return field().keyboardType() == UIKeyboardTypeNumbersAndPunctuation ? KeyboardPage::numbers
                                                                       : KeyboardPage::letters;
}

// A view of the first responder's own has no keys on it.
void bringParts(UIResponder responder) {
  takeParts();
  Keyboard& all = keyboard();
  const UIView own = responder.inputView();
  all.pad = own ? retained(own) : makePad();
  all.accessory = retained(responder.inputAccessoryView());
  all.host->addSubview(all.pad);
  if (all.accessory) all.host->addSubview(all.accessory);
  if (!own) turnTo(firstPage());
}

CGFloat accessoryHeight() { return keyboard().accessory ? keyboard().accessory->bounds().size.height : 0; }

CGFloat padHeight() {
  const bool isOwn = keyboard().keys.empty();
  return isOwn ? keyboard().pad->bounds().size.height : keyboardSize().height;
}

// The parts side by side, and the whole at the screen's lower edge or below it.
void place() {
  Keyboard& all = keyboard();
  if (!all.pad) return;
  const CGSize screen = screenSize();
  const CGFloat above = accessoryHeight(), height = padHeight();
  if (all.accessory) all.accessory->frame.set({{0, 0}, {screen.width, above}});
  all.pad->frame.set({{0, above}, {screen.width, height}});
  const CGFloat top = all.isUp ? screen.height - above - height : screen.height;
  all.host->frame.set({{0, top}, {screen.width, above + height}});
}

// Where the screen has turned, the keys have other places.
void layoutSubviews(KeyboardWindow) {
  const Keyboard& all = keyboard();
  const bool turned = all.pad && all.pad->bounds().size.width != screenSize().width;
  if (turned && !all.keys.empty()) turnTo(all.page);
  place();
  if (turned) post("UIKeyboardDidChangeFrameNotification"_ns);
}

// Beside the keyboard, and while it goes down, touches go to what lies below.
UIView hitTest(KeyboardWindow self, CGPoint point, UIEvent event) {
  if (!keyboard().isUp) return {};
  const UIView hit = WindowClass::super<&UIView::hitTest_withEvent>(self, point, event);
  return hit == self ? UIView() : hit;
}

void makeWindow() {
  Keyboard& all = keyboard();
  if (all.window) return;
  const CGSize screen = screenSize();
  all.window = bridge::make<KeyboardWindow, &UIView::initWithFrame>(CGRect{{0, 0}, screen});
  all.window->windowLevel.set(windowLevel);
  all.host = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  all.window->addSubview(all.host);
}

// Up and down.

void move(bridge::Block<void(BOOL)> then) {
  UIView::animateWithDuration_delay_options_animations_completion(
      riseDuration, 0, UIViewAnimationOptionAllowUserInteraction | UIViewAnimationOptionBeginFromCurrentState,
      bridge::Block<void()>([] { place(); }), then);
}

void raise(UIResponder responder) {
  makeWindow();
  Keyboard& all = keyboard();
  all.window->frame.set({{0, 0}, screenSize()});
  const bool wasUp = all.isUp;
  UIView::performWithoutAnimation(bridge::Block<void()>([responder] {
    bringParts(responder);
    place();
  }));
  all.isUp = true;
  all.window->hidden.set(NO);
  if (wasUp) return place();
  post("UIKeyboardWillShowNotification"_ns);
  move([](BOOL) {
    if (keyboard().isUp) post("UIKeyboardDidShowNotification"_ns);
  });
}

void lower() {
  if (!keyboard().isUp) return;
  keyboard().isUp = false;
  post("UIKeyboardWillHideNotification"_ns);
  move([](BOOL) {
    if (keyboard().isUp) return;
    takeParts();
    keyboard().window->hidden.set(YES);
    post("UIKeyboardDidHideNotification"_ns);
  });
}

bool takesText(UIResponder responder) {
  return responder.inputView() ||
         responder.respondsToSelector(bridge::Descriptor<&UITextField::insertText>::selector());
}

void firstResponderChanged() {
  const UIResponder first = firstResponder();
  first&& takesText(first) ? raise(first) : lower();
}

Strong<UIControl>* findKey(auto matches) {
  std::vector<Strong<UIControl>>& keys = keyboard().keys;
  const auto found = std::ranges::find_if(keys, [&](const auto& key) { return matches(keyOf(key)); });
  return keyboard().isUp && found != keys.end() ? &*found : nullptr;
}

UIControl keyThat(auto matches) {
  const Strong<UIControl>* found = findKey(matches);
  return found ? found->get() : UIControl();
}

// The key that leads to a page: straight, or by way of the digits or the letters.
UIControl keyTowards(KeyboardPage page) {
  for (const KeyboardPage target : {page, KeyboardPage::numbers, KeyboardPage::letters}) {
    const UIControl key = keyThat([&](const Key& one) {
      return (one.kind == KeyKind::page || one.kind == KeyKind::shift) && one.page == target;
    });
    if (key) return key;
  }
  return {};
}

}  // namespace

CGRect keyboardFrame() {
  if (!keyboard().isUp) return {};
  const CGSize size = keyboard().host->bounds().size;
  return {{0, screenSize().height - size.height}, size};
}

UIControl keyOfKind(KeyKind kind) {
  return keyThat([kind](const Key& key) { return key.kind == kind; });
}

NextKey nextKeyFor(const std::string& character) {
  if (character == " ") return {keyOfKind(KeyKind::space), true};
  const auto types = [&](const Key& key) { return key.kind == KeyKind::text && key.text == character; };
  if (const UIControl key = keyThat(types)) return {key, true};
  for (const KeyboardPage page :
       {KeyboardPage::letters, KeyboardPage::capitals, KeyboardPage::numbers, KeyboardPage::symbols})
    if (pageTypes(page, hasTabletKeyboard(), character)) return {keyTowards(page), false};
  return {};
}

// The return key follows whether there is a text.
void keyboardHears(UITextField changed) {
  if (!(changed == firstResponder())) return;
  Strong<UIControl>* const place = findKey([](const Key& key) { return key.kind == KeyKind::enter; });
  if (!place || (*place)->enabled() == mayEnter()) return;
  const Strong<UIControl> old = *place;
  const Key key = keyOf(old);
  std::erase(keyboard().keys, old);
  old->removeFromSuperview();
  addKey(key);
}

void defineKeyboard() {
  using bridge::method;
  defineKeyboardKey();
  WindowClass::define<UIWindow>(method<&UIView::layoutSubviews, layoutSubviews>(),
                                method<&UIView::hitTest_withEvent, hitTest>());
  whenFirstResponderChanges(firstResponderChanged);
}

}  // namespace sim::uikit
