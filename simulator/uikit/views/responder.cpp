// UIResponder.
#include "platform/uikit/responder.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/event.hpp"
#include "simulator/uikit/views/first_responder.hpp"

namespace sim::uikit {
namespace {

UIResponder nextResponder(UIResponder) { return {}; }

// Touches that a responder does not handle are the next one's.
void touchesBegan(UIResponder self, NSSet touches, UIEvent event) {
  self.nextResponder().touchesBegan_withEvent(touches, event);
}
void touchesMoved(UIResponder self, NSSet touches, UIEvent event) {
  self.nextResponder().touchesMoved_withEvent(touches, event);
}
void touchesEnded(UIResponder self, NSSet touches, UIEvent event) {
  self.nextResponder().touchesEnded_withEvent(touches, event);
}
void touchesCancelled(UIResponder self, NSSet touches, UIEvent event) {
  self.nextResponder().touchesCancelled_withEvent(touches, event);
}

}  // namespace

void defineResponder() {
  using bridge::method;
  bridge::Implementation<UIResponder>::define<NSObject>(
      method<&UIResponder::nextResponder, nextResponder>(),
      method<&UIResponder::touchesBegan_withEvent, touchesBegan>(),
      method<&UIResponder::touchesMoved_withEvent, touchesMoved>(),
      method<&UIResponder::touchesEnded_withEvent, touchesEnded>(),
      method<&UIResponder::touchesCancelled_withEvent, touchesCancelled>(),
      // The first responder.
      method<&UIResponder::isFirstResponder, responder::isFirstResponder>(),
      method<&UIResponder::canBecomeFirstResponder, responder::canBecomeFirstResponder>(),
      method<&UIResponder::becomeFirstResponder, responder::becomeFirstResponder>(),
      method<&UIResponder::canResignFirstResponder, responder::canResignFirstResponder>(),
      method<&UIResponder::resignFirstResponder, responder::resignFirstResponder>(),
      method<&UIResponder::inputView, responder::noInputView>(),
      method<&UIResponder::inputAccessoryView, responder::noInputView>());
}

}  // namespace sim::uikit
