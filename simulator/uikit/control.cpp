// UIControl.
#include "simulator/uikit/control.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/control.hpp"

namespace sim::uikit {

void defineControl() { bridge::Implementation<UIControl>::define<UIView>(); }

}  // namespace sim::uikit
