// The classes of UIKit, superclasses first.
#include "simulator/uikit/classes.hpp"

#include "simulator/uikit/activity_indicator.hpp"
#include "simulator/uikit/alert_action.hpp"
#include "simulator/uikit/alert_controller.hpp"
#include "simulator/uikit/alert_view.hpp"
#include "simulator/uikit/appearance.hpp"
#include "simulator/uikit/application.hpp"
#include "simulator/uikit/bar_button_item.hpp"
#include "simulator/uikit/bezier_path.hpp"
#include "simulator/uikit/button.hpp"
#include "simulator/uikit/color.hpp"
#include "simulator/uikit/control.hpp"
#include "simulator/uikit/device.hpp"
#include "simulator/uikit/event.hpp"
#include "simulator/uikit/font.hpp"
#include "simulator/uikit/gesture_recognizer.hpp"
#include "simulator/uikit/image.hpp"
#include "simulator/uikit/image_view.hpp"
#include "simulator/uikit/keyboard.hpp"
#include "simulator/uikit/label.hpp"
#include "simulator/uikit/layer.hpp"
#include "simulator/uikit/page_control.hpp"
#include "simulator/uikit/pasteboard.hpp"
#include "simulator/uikit/picker_view.hpp"
#include "simulator/uikit/presentation.hpp"
#include "simulator/uikit/responder.hpp"
#include "simulator/uikit/screen.hpp"
#include "simulator/uikit/scroll_view.hpp"
#include "simulator/uikit/slider.hpp"
#include "simulator/uikit/string_drawing.hpp"
#include "simulator/uikit/text_field.hpp"
#include "simulator/uikit/toolbar.hpp"
#include "simulator/uikit/toolbar_button.hpp"
#include "simulator/uikit/touch.hpp"
#include "simulator/uikit/view.hpp"
#include "simulator/uikit/view_controller.hpp"
#include "simulator/uikit/window.hpp"

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
