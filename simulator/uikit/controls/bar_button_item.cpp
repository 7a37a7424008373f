// UIBarButtonItem.
#include "simulator/uikit/controls/bar_button_item.hpp"

#include <fmt/format.h>

#include "bridge/define.hpp"
#include "platform/uikit/toolbar.hpp"
#include "simulator/runtime/weak.hpp"
#include "simulator/uikit/base/exception.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;

struct ItemState {
  Strong<NSString> title;  // a copy
  NSInteger style = UIBarButtonItemStylePlain;
  Weak target;
  SEL action = nullptr;
  Strong<UIView> customView;
  bool isSpace = false;
};

using ItemClass = bridge::Implementation<UIBarButtonItem, ItemState>;

struct Copied : bridge::Face<"NSString", NSObject> {
  MESSAGE Method<"copy", NSString()> copy;
};

Strong<UIBarButtonItem> init(UIBarButtonItem self) { return ItemClass::superInit<&NSObject::init>(self); }

Strong<UIBarButtonItem> initWithTitle(UIBarButtonItem self, NSString title, NSInteger style,
                                      bridge::Object target, SEL action) {
  auto made = init(self);
  ItemState& state = ItemClass::state(made.get());
  state.title = bridge::as<Copied>(title).copy();
  state.style = style;
  state.target = Weak(target);
  state.action = action;
  return made;
}

Strong<UIBarButtonItem> initWithSystemItem(UIBarButtonItem self, NSInteger item, bridge::Object target,
                                           SEL action) {
  if (item != UIBarButtonSystemItemFlexibleSpace)
    raise("NSInvalidArgumentException"_ns, fmt::format("this device has no system item {}", item));
  auto made = init(self);
  ItemState& state = ItemClass::state(made.get());
  state.isSpace = true;
  state.target = Weak(target);
  state.action = action;
  return made;
}

Strong<UIBarButtonItem> initWithCustomView(UIBarButtonItem self, UIView view) {
  auto made = init(self);
  ItemClass::state(made.get()).customView = retained(view);
  return made;
}

NSString title(UIBarButtonItem self) { return ItemClass::state(self).title; }
NSInteger style(UIBarButtonItem self) { return ItemClass::state(self).style; }
bridge::Object target(UIBarButtonItem self) { return ItemClass::state(self).target.get(); }
SEL action(UIBarButtonItem self) { return ItemClass::state(self).action; }
UIView customView(UIBarButtonItem self) { return ItemClass::state(self).customView; }

}  // namespace

bool isFlexibleSpace(UIBarButtonItem item) { return ItemClass::state(item).isSpace; }

void defineBarButtonItem() {
  using bridge::method;
  using Face = UIBarButtonItem;
  ItemClass::define<NSObject>(method<&Face::initWithTitle_style_target_action, initWithTitle>(),
                              method<&Face::initWithBarButtonSystemItem_target_action, initWithSystemItem>(),
                              method<&Face::initWithCustomView, initWithCustomView>(),
                              method<&Face::title, title>(), method<&Face::style, style>(),
                              method<&Face::target, target>(), method<&Face::action, action>(),
                              method<&Face::customView, customView>());
}

}  // namespace sim::uikit
