// SBIcon: what an icon stands for.
#include "simulator/springboard/icon.hpp"

#include "bridge/define.hpp"

namespace sim::springboard {
namespace {

struct IconState {
  bridge::Strong<NSString> name;
};

using Icon = bridge::Implementation<SBIcon, IconState>;

NSString displayName(SBIcon self) { return Icon::state(self).name.get(); }

}  // namespace

bridge::Strong<SBIcon> makeIcon(const std::string& name) {
  auto icon = bridge::make<SBIcon, &NSObject::init>();
  Icon::state(icon.get()).name = bridge::retained(NSString::stringWithUTF8String(name.c_str()));
  return icon;
}

void defineIcon() { Icon::define<NSObject>(bridge::method<&SBIcon::displayName, displayName>()); }

}  // namespace sim::springboard
