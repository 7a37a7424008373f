// A number control on the home screen of a test, and what it announces.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "bridge/define.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/application.hpp"
#include "settings/slider/color_slider.hpp"
#include "simulator/uikit/text/font.hpp"
#include "tests/support/home.hpp"

namespace test {

// Collects the objects of the notifications that it observes.
struct PressListener : bridge::Face<"TestPressListener", NSObject> {
  MESSAGE Method<"pressed:", void(NSNotification)> pressed;
};

class ColorSlider : public testing::Test {
 protected:
  using Listeners = bridge::Implementation<PressListener>;

  ColorSlider() { announced().clear(); }

  // A control as the row with the key "topIconInset" has it, on a plain card of the home screen.
  void show(float minimum = -20, float maximum = 100, float value = 5) {
    sim::uikit::registerFont("FontAwesome", "FontAwesome");  // as the panel does
    card = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{40, 100}, {300, 200}});
    card->backgroundColor.set(UIColor::whiteColor());
    slider =
        bridge::make<tilo::ColorSlider, &tilo::ColorSlider::initWithFrame_type>(frame, "topIconInset"_ns);
    slider->minimumValue.set(minimum);
    slider->maximumValue.set(maximum);
    slider->value.set(value);
    caption = bridge::make<UILabel, &UIView::initWithFrame>(CGRect{{10, 15}, {170, 30}});
    caption->text.set("Row"_ns);
    card->addSubview(caption);
    card->addSubview(slider);
    UIApplication::sharedApplication().keyWindow().addSubview(card);
    listen();
  }

  void listen() {
    struct Functions {
      static void pressed(PressListener, NSNotification notification) {
        announced().push_back(notification.object());
      }
    };
    Listeners::define<NSObject>(bridge::method<&PressListener::pressed, Functions::pressed>());
    listener = bridge::make<PressListener, &NSObject::init>();
    NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
        listener, bridge::Descriptor<&PressListener::pressed>::selector(), "slider_buttons_pressed"_ns, {});
  }

  static std::vector<bridge::Object>& announced() {
    static auto& objects = *new std::vector<bridge::Object>();
    return objects;
  }

  std::string fieldText() { return slider->valueLabel().text().UTF8String(); }
  std::string error() {
    const NSString text = slider->errorLabel().text();
    return text ? text.UTF8String() : "";
  }

  void tap(UIView view) {
    const CGRect bounds = view.bounds();
    const CGPoint middle =
        view.convertPoint_toView({bounds.size.width / 2, bounds.size.height / 2}, UIView());
    home.step("tap " + std::to_string(middle.x) + " " + std::to_string(middle.y));
  }

  static constexpr CGRect frame{{10, 50}, {255, 30}};

  Home home{{"--device", "iPhone 7", "--set", "enabled=YES", "--set", "topIconInset=12.25"}};
  bridge::Strong<UIView> card;
  bridge::Strong<UILabel> caption;
  bridge::Strong<tilo::ColorSlider> slider;
  bridge::Strong<PressListener> listener;
};

}  // namespace test
