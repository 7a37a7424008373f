// UIAlertController.
#include "platform/uikit/alert_controller.hpp"

#include <vector>

#include "bridge/define.hpp"
#include "simulator/uikit/alerts/alert_view.hpp"
#include "simulator/uikit/base/array.hpp"
#include "simulator/uikit/base/exception.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

constexpr CGFloat fieldTextSize = 13;  // points

struct AlertState {
  Strong<NSString> title, message;
  std::vector<Strong<UIAlertAction>> actions;
  std::vector<Strong<UITextField>> fields;
};

using AlertClass = bridge::Implementation<UIAlertController, AlertState>;

// The private message that a button sends its alert.
struct ButtonTarget : bridge::Face<"UIAlertController", UIAlertController> {
  MESSAGE Method<"sim_actionViewTapped:", void(AlertButton)> _actionViewTapped;
};

UIAlertController makeAlert(Class, NSString title, NSString message, NSInteger style) {
  if (style != UIAlertControllerStyleAlert)
    raise("NSInternalInconsistencyException"_ns, "action sheets are not simulated, only alerts");
  auto alert = bridge::make<UIAlertController, &NSObject::init>();
  AlertState& state = AlertClass::state(alert);
  state.title = retained(title);
  state.message = retained(message);
  return std::move(alert).autoreleased();
}

NSString title(UIAlertController self) { return AlertClass::state(self).title; }
NSString message(UIAlertController self) { return AlertClass::state(self).message; }
NSInteger preferredStyle(UIAlertController) { return UIAlertControllerStyleAlert; }
NSArray actions(UIAlertController self) { return makeArray(AlertClass::state(self).actions); }

AlertView cardOf(UIAlertController self) { return bridge::as<AlertView>(self.view()); }

void showAction(UIAlertController self, UIAlertAction action) {
  const Strong<AlertButton> button = makeAlertButton(action);
  button->addTarget_action_forControlEvents(
      self, bridge::Descriptor<&ButtonTarget::_actionViewTapped>::selector(), UIControlEventTouchUpInside);
  addButton(cardOf(self), button);
}

void addAction(UIAlertController self, UIAlertAction action) {
  AlertState& state = AlertClass::state(self);
  for (const Strong<UIAlertAction>& other : state.actions)
    if (action.style() == UIAlertActionStyleCancel && other->style() == UIAlertActionStyleCancel)
      raise("NSInternalInconsistencyException"_ns,
            "UIAlertController can only have one action with a style of UIAlertActionStyleCancel");
  state.actions.push_back(retained(action));
  if (self.isViewLoaded()) showAction(self, action);
}

NSArray textFields(UIAlertController self) { return makeArray(AlertClass::state(self).fields); }

void addTextField(UIAlertController self, bridge::BlockRef<void(UITextField)> configure) {
  const auto field = bridge::make<UITextField, &UIView::initWithFrame>(CGRect{});
  field->font.set(UIFont::systemFontOfSize(fieldTextSize));
  AlertClass::state(self).fields.push_back(field);
  if (configure) configure(field);
  if (self.isViewLoaded()) addField(cardOf(self), field);
}

// Whoever is asked for a text can begin to type.
void viewDidAppear(UIAlertController self, BOOL) {
  const AlertState& state = AlertClass::state(self);
  if (!state.fields.empty()) state.fields.front()->becomeFirstResponder();
}

void loadView(UIAlertController self) {
  const AlertState& state = AlertClass::state(self);
  const Strong<AlertView> card = makeAlertView(state.title, state.message);
  self.view.set(card);
  for (const Strong<UITextField>& field : state.fields) addField(card, field);
  for (const Strong<UIAlertAction>& action : state.actions) showAction(self, action);
}

// The alert goes first; then the handler is called.
void actionViewTapped(ButtonTarget self, AlertButton button) {
  const Strong<UIAlertAction> action = retained(actionOf(button));
  self.dismissViewControllerAnimated_completion(YES, bridge::Block<void()>([action] { perform(action); }));
}

}  // namespace

void defineAlertController() {
  using bridge::method;
  using Face = UIAlertController;
  AlertClass::define<UIViewController>(
      method<&Face::alertControllerWithTitle_message_preferredStyle, makeAlert>(),
      method<&Face::title, title>(), method<&Face::message, message>(),
      method<&Face::preferredStyle, preferredStyle>(), method<&Face::addAction, addAction>(),
      method<&Face::actions, actions>(), method<&Face::addTextFieldWithConfigurationHandler, addTextField>(),
      method<&Face::textFields, textFields>(), method<&UIViewController::loadView, loadView>(),
      method<&UIViewController::viewDidAppear, viewDidAppear>(),
      method<&ButtonTarget::_actionViewTapped, actionViewTapped>());
}

}  // namespace sim::uikit
