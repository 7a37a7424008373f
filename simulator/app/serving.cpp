// Serving other processes that send the home screen messages.
#include "simulator/app/serving.hpp"

#include <poll.h>

#include "bridge/runtime.hpp"
#include "simulator/appsupport/messaging_center.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim {

void serve() {
  bridge::Pool pool;
  if (appsupport::serveMessages()) settle();
}

void serveUntilInput(int descriptor) {
  for (;;) {
    serve();
    std::vector<pollfd> all = appsupport::messageDescriptors();
    all.push_back({descriptor, POLLIN, 0});
    // A descriptor that cannot be polled is one whose reading does not wait, or tells what is wrong.
    if (::poll(all.data(), all.size(), -1) > 0 && all.back().revents != 0) return serve();
  }
}

}  // namespace sim
