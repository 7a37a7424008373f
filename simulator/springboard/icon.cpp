// SBIcon: what an icon stands for.
#include "simulator/springboard/icon.hpp"

#include "simulator/springboard/system_class.hpp"

namespace sim::springboard {
namespace {

struct IconState {
  bridge::Strong<NSString> name;
};

using Icon = bridge::Implementation<SBIcon, IconState>;

struct LocatedIcon : bridge::Face<"SBIcon", SBIcon> {
  MESSAGE Method<"displayNameForLocation:", NSString(NSInteger)> displayNameForLocation;
};

NSString displayName(SBIcon self) { return nameOf(self); }
NSString displayNameForLocation(SBIcon self, NSInteger) { return nameOf(self); }

}  // namespace

NSString nameOf(SBIcon icon) { return Icon::state(icon).name.get(); }

bridge::Strong<SBIcon> makeIcon(const std::string& name) {
  auto icon = bridge::make<SBIcon, &NSObject::init>();
  Icon::state(icon.get()).name = bridge::retained(NSString::stringWithUTF8String(name.c_str()));
  return icon;
}

void defineIcon() {
  defineSystemClass<Icon>(own<&SBIcon::displayName, displayName>(),
                          own<&LocatedIcon::displayNameForLocation, displayNameForLocation>());
}

}  // namespace sim::springboard
