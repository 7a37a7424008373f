// Text fields in a window, with a delegate and a target that write down what they hear.
#pragma once

#include <string>

#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/text_field.hpp"
#include "simulator/uikit/text/keyboard.hpp"
#include "simulator/uikit/text/text_field.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {

// What the delegate answers.
struct FieldAnswers {
  bool begins = true, ends = true, changes = true, clears = true, returns = true;
};

inline FieldAnswers& fieldAnswers() {
  static FieldAnswers answers;
  return answers;
}

// Delegate, target of every event, and observer of the keyboard.
struct FieldListener : bridge::Face<"TestFieldListener", NSObject> {
  MESSAGE Method<"didBegin:", void(UITextField)> didBegin;
  MESSAGE Method<"changed:", void(UITextField)> changed;
  MESSAGE Method<"didEnd:", void(UITextField)> didEnd;
  MESSAGE Method<"keyboard:", void(NSNotification)> keyboard;
};
using FieldListenerClass = bridge::Implementation<FieldListener>;

class Fields : public Fingers {
 protected:
  Fields() {
    fieldAnswers() = {};
    define();
    fieldListener = make<FieldListener, &NSObject::init>();
    field = makeField({{20, 60}, {200, 30}}, "field");
    other = makeField({{20, 120}, {200, 30}}, "other");
  }
  ~Fields() override {
    window->endEditing(YES);
    NSNotificationCenter::defaultCenter().removeObserver(fieldListener);
  }

  static void define() {
    struct F {
      static BOOL shouldBegin(FieldListener, UITextField field) {
        note("should begin " + nameOf(field));
        return fieldAnswers().begins;
      }
      static void delegateBegan(FieldListener, UITextField field) { note("delegate began " + nameOf(field)); }
      static BOOL shouldEnd(FieldListener, UITextField field) {
        note("should end " + nameOf(field));
        return fieldAnswers().ends;
      }
      static void delegateEnded(FieldListener, UITextField field) { note("delegate ended " + nameOf(field)); }
      static BOOL shouldChange(FieldListener, UITextField, NSRange range, NSString text) {
        note("should change " + std::to_string(range.location) + "+" + std::to_string(range.length) + " '" +
             text.UTF8String() + "'");
        return fieldAnswers().changes;
      }
      static BOOL shouldClear(FieldListener, UITextField) {
        note("should clear");
        return fieldAnswers().clears;
      }
      static BOOL shouldReturn(FieldListener, UITextField) {
        note("should return");
        return fieldAnswers().returns;
      }
      static void didBegin(FieldListener, UITextField field) { note("began " + nameOf(field)); }
      static void changed(FieldListener, UITextField field) {
        note(std::string("changed '") + field.text().UTF8String() + "'");
      }
      static void didEnd(FieldListener, UITextField field) { note("ended " + nameOf(field)); }
      static void keyboard(FieldListener, NSNotification notification) {
        note(notification.name().UTF8String());
      }
    };
    using D = UITextFieldDelegate;
    FieldListenerClass::define<NSObject>(
        method<&D::textFieldShouldBeginEditing, F::shouldBegin>(),
        method<&D::textFieldDidBeginEditing, F::delegateBegan>(),
        method<&D::textFieldShouldEndEditing, F::shouldEnd>(),
        method<&D::textFieldDidEndEditing, F::delegateEnded>(),
        method<&D::textField_shouldChangeCharactersInRange_replacementString, F::shouldChange>(),
        method<&D::textFieldShouldClear, F::shouldClear>(),
        method<&D::textFieldShouldReturn, F::shouldReturn>(), method<&FieldListener::didBegin, F::didBegin>(),
        method<&FieldListener::changed, F::changed>(), method<&FieldListener::didEnd, F::didEnd>(),
        method<&FieldListener::keyboard, F::keyboard>());
  }

  Strong<UITextField> makeField(CGRect frame, const char* name) {
    auto made = make<UITextField, &UIView::initWithFrame>(frame);
    happenings().names[made->raw] = name;
    window->addSubview(made);
    return made;
  }

  // From then on everything is logged.
  void listen() {
    for (const auto& one : {field, other}) {
      one->delegate.set(fieldListener);
      one->addTarget_action_forControlEvents(fieldListener,
                                             bridge::Descriptor<&FieldListener::didBegin>::selector(),
                                             UIControlEventEditingDidBegin);
      one->addTarget_action_forControlEvents(fieldListener,
                                             bridge::Descriptor<&FieldListener::changed>::selector(),
                                             UIControlEventEditingChanged);
      one->addTarget_action_forControlEvents(
          fieldListener, bridge::Descriptor<&FieldListener::didEnd>::selector(), UIControlEventEditingDidEnd);
    }
  }

  void listenToKeyboard() {
    for (const NSString name : {"UIKeyboardWillShowNotification"_ns, "UIKeyboardDidShowNotification"_ns,
                                "UIKeyboardWillHideNotification"_ns, "UIKeyboardDidHideNotification"_ns})
      NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
          fieldListener, bridge::Descriptor<&FieldListener::keyboard>::selector(), name, {});
  }

  static std::string textOf(UITextField of) { return of.text().UTF8String(); }

  Strong<FieldListener> fieldListener;
  Strong<UITextField> field, other;
};

}  // namespace test
