// The classes of UIKit, superclasses first, and its protocols; each class is defined in its own file.
#include "simulator/uikit/base/classes.hpp"

#include "simulator/runtime/protocols.hpp"

namespace sim::uikit {

void defineBezierPath(), defineColor(), defineDevice(), defineFont(), defineStringDrawing(), defineImage(),
    defineLayer(), defineResponder(), defineApplication(), defineView(), defineAppearance(), defineTouch(),
    defineEvent(), defineGestureRecognizer(), defineTapGestureRecognizer(), defineSwipeGestureRecognizer(),
    definePanGestureRecognizer(), defineLongPressGestureRecognizer(), defineControl(), definePageControl(),
    defineActivityIndicator(), defineImageView(), defineLabel(), defineButton(), defineSlider(),
    defineSwitch(), defineStepper(), definePasteboard(), defineTextField(), defineBarButtonItem(),
    defineToolbarButton(), defineToolbar(), defineScrollView(), definePickerView(), defineWindow(),
    defineKeyboard(), defineScreen(), defineViewController(), defineStageView(), defineAlertAction(),
    defineAlertButton(), defineAlertView(), defineAlertController();

void registerClasses() {
  declareProtocols({"UIGestureRecognizerDelegate", "UIPickerViewDataSource", "UIPickerViewDelegate",
                    "UIScrollViewDelegate", "UITextFieldDelegate"});
  const auto inOrder = [](auto... define) { (define(), ...); };
  inOrder(defineBezierPath, defineColor, defineDevice, defineFont, defineStringDrawing, defineImage,
          defineLayer, defineResponder, defineApplication, defineView, defineAppearance, defineTouch,
          defineEvent, defineGestureRecognizer, defineTapGestureRecognizer, defineSwipeGestureRecognizer,
          definePanGestureRecognizer, defineLongPressGestureRecognizer, defineControl, definePageControl,
          defineActivityIndicator, defineImageView, defineLabel, defineButton, defineSlider, defineSwitch,
          defineStepper, definePasteboard, defineTextField, defineBarButtonItem, defineToolbarButton,
          defineToolbar, defineScrollView, definePickerView, defineWindow, defineKeyboard, defineScreen,
          defineViewController, defineStageView, defineAlertAction, defineAlertButton, defineAlertView,
          defineAlertController);
}

}  // namespace sim::uikit
