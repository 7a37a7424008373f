// UIResponder.
#include "simulator/uikit/responder.hpp"

#include "bridge/define.hpp"
#include "platform/uikit/responder.hpp"

namespace sim::uikit {
namespace {

UIResponder nextResponder(UIResponder) { return {}; }

}  // namespace

void defineResponder() {
  bridge::Implementation<UIResponder>::define<NSObject>(
      bridge::method<&UIResponder::nextResponder, nextResponder>());
}

}  // namespace sim::uikit
