// UIPasteboard: one, which holds a text.
#include "platform/uikit/pasteboard.hpp"

#include "bridge/define.hpp"

namespace sim::uikit {
namespace {

struct PasteboardState {
  bridge::Strong<NSString> text;  // a copy
};

using PasteboardClass = bridge::Implementation<UIPasteboard, PasteboardState>;

struct Copied : bridge::Face<"NSString", NSObject> {
  MESSAGE Method<"copy", NSString()> copy;
};

UIPasteboard generalPasteboard(Class) {
  static const id general = bridge::make<UIPasteboard, &NSObject::init>().leak();
  return bridge::as<UIPasteboard>(general);
}

NSString string(UIPasteboard self) { return PasteboardClass::state(self).text; }

void setString(UIPasteboard self, NSString text) {
  PasteboardClass::state(self).text = bridge::as<Copied>(text).copy();
}

}  // namespace

void definePasteboard() {
  using bridge::method;
  PasteboardClass::define<NSObject>(method<&UIPasteboard::generalPasteboard, generalPasteboard>(),
                                    bridge::property<&UIPasteboard::string, string, setString>());
}

}  // namespace sim::uikit
