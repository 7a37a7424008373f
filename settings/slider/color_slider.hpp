// ColorSlider: a slider with a minus and a plus button at its ends and a number field under it.
#pragma once

#include "bridge/property.hpp"
#include "controls/button.hpp"
#include "platform/uikit/alert_controller.hpp"
#include "platform/uikit/slider.hpp"
#include "platform/uikit/text_field.hpp"

namespace tilo {

struct ColorSlider : bridge::Face<"ColorSlider", UISlider> {
  // The frame, in points, is that of the caption's row; the control itself is larger. The type is the key of
  // the preference that it edits.
  MESSAGE Method<"initWithFrame:type:", ColorSlider(CGRect, NSString)> initWithFrame_type;
  MESSAGE Property<"type", NSString> type;
  MESSAGE Property<"valueLabel", UITextField> valueLabel;
  MESSAGE Property<"errorLabel", UILabel> errorLabel;
  MESSAGE Property<"addButton", BButton> addButton;
  MESSAGE Property<"subtractButton", BButton> subtractButton;

  MESSAGE Method<"setDarkMode:", void(BOOL)> setDarkMode;
  MESSAGE Method<"incrementValue:", void(bridge::Object)> incrementValue;
  MESSAGE Method<"decrementValue:", void(bridge::Object)> decrementValue;
  // Ends editing; the typed text stays.
  MESSAGE Method<"cancelNumberPad", void()> cancelNumberPad;
  // Takes the typed number, or says which range it must lie in.
  MESSAGE Method<"doneWithNumberPad", void()> doneWithNumberPad;
  MESSAGE Method<"errorWithMessage:", void(NSString)> errorWithMessage;
  MESSAGE Method<"alertWithMessage:", UIAlertController(NSString)> alertWithMessage;
};

void defineColorSlider();

}  // namespace tilo
