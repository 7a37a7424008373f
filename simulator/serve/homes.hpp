// The home screens that are served: one, and another beside it while a page compares them.
#pragma once

#include <array>
#include <optional>

#include "simulator/device/temporary_root.hpp"
#include "simulator/serve/pages.hpp"
#include "simulator/serve/served_home.hpp"

namespace sim::serve {

class Homes {
 public:
  /** Program and pages outlive this. */
  Homes(const Options& start, const Program& program, Pages& pages);

  /** The loop that has their descriptors; to be told before the first start, and to outlive `end`. */
  void use(lws_vhost* theirLoop) { loop = theirLoop; }
  ServedHome& at(Place place) { return homes[static_cast<std::size_t>(place)]; }
  void start(Place place, bool safely);
  /**
   * As a page's message says: another device, with the same files; the second home screen gets those of the
   * first as they are now. Throws UsageError or JsonError for what is wrong with the message.
   */
  void startAs(Place place, const Json& message);
  /** Those that are there, since libraries have changed. */
  void startAnew();
  void end();

  /** What the loop says of a descriptor: it can be read (false: it is to be closed), it can be written, it is
   * closed. */
  bool read(const lws* adopted);
  void write(const lws* adopted);
  /** What is to be done on another round of the loop. */
  void goOn();
  void lostHold(const lws* adopted);

 private:
  bool readMessages(Place place);
  void ended(Place place);

  const Program& program;
  Pages& pages;
  std::optional<TemporaryRoot> firstRoot, secondRoot;
  std::array<ServedHome, places> homes;
  lws_vhost* loop = nullptr;
};

}  // namespace sim::serve
