// The classes of UIKit, superclasses first.
#include "simulator/uikit/base/classes.hpp"

#include "simulator/uikit/alerts/alert_action.hpp"
#include "simulator/uikit/alerts/alert_controller.hpp"
#include "simulator/uikit/alerts/alert_view.hpp"
#include "simulator/uikit/alerts/presentation.hpp"
#include "simulator/uikit/base/appearance.hpp"
#include "simulator/uikit/base/application.hpp"
#include "simulator/uikit/base/device.hpp"
#include "simulator/uikit/base/pasteboard.hpp"
#include "simulator/uikit/base/screen.hpp"
#include "simulator/uikit/controls/activity_indicator.hpp"
#include "simulator/uikit/controls/bar_button_item.hpp"
#include "simulator/uikit/controls/button.hpp"
#include "simulator/uikit/controls/control.hpp"
#include "simulator/uikit/controls/page_control.hpp"
#include "simulator/uikit/controls/picker_view.hpp"
#include "simulator/uikit/controls/slider.hpp"
#include "simulator/uikit/controls/toolbar.hpp"
#include "simulator/uikit/controls/toolbar_button.hpp"
#include "simulator/uikit/drawing/bezier_path.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "simulator/uikit/drawing/image.hpp"
#include "simulator/uikit/drawing/layer.hpp"
#include "simulator/uikit/gestures/event.hpp"
#include "simulator/uikit/gestures/gesture_recognizer.hpp"
#include "simulator/uikit/gestures/touch.hpp"
#include "simulator/uikit/scrolling/scroll_view.hpp"
#include "simulator/uikit/text/font.hpp"
#include "simulator/uikit/text/keyboard.hpp"
#include "simulator/uikit/text/label.hpp"
#include "simulator/uikit/text/string_drawing.hpp"
#include "simulator/uikit/text/text_field.hpp"
#include "simulator/uikit/views/image_view.hpp"
#include "simulator/uikit/views/responder.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/view_controller.hpp"
#include "simulator/uikit/views/window.hpp"

namespace sim::uikit {

void registerClasses() {
  defineBezierPath();
  defineColor();
  defineDevice();
  defineFont();
  defineStringDrawing();
  defineImage();
  defineLayer();
  defineResponder();
  defineApplication();
  defineView();
  defineAppearance();
  defineTouch();
  defineEvent();
  defineGestureRecognizer();
  defineTapGestureRecognizer();
  defineSwipeGestureRecognizer();
  definePanGestureRecognizer();
  defineLongPressGestureRecognizer();
  defineControl();
  definePageControl();
  defineActivityIndicator();
  defineImageView();
  defineLabel();
  defineButton();
  defineSlider();
  definePasteboard();
  defineTextField();
  defineBarButtonItem();
  defineToolbarButton();
  defineToolbar();
  defineScrollView();
  definePickerView();
  defineWindow();
  defineKeyboard();
  defineScreen();
  defineViewController();
  defineStageView();
  defineAlertAction();
  defineAlertButton();
  defineAlertView();
  defineAlertController();
}

}  // namespace sim::uikit
