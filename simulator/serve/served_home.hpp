// A home screen that is served: its process, which is started anew when it is asked to or has ended by
// itself, and the loop's hold on what it says.
#pragma once

#include <libwebsockets.h>

#include <memory>

#include "simulator/json/json.hpp"
#include "simulator/serve/home_process.hpp"

namespace sim::serve {

class ServedHome {
 public:
  /** The program outlives it. */
  ServedHome(const Options& start, const Program& tables) : options(start), program(tables) {}

  // What the next start goes by.
  Options options;

  /** Starts its process anew; `safely` is without libraries, as after a crash. */
  void start(lws_vhost* loop, bool safely);
  void end();
  bool isRunning() const { return process != nullptr; }
  /** What a page is told of it: what it is, and what else there is. */
  Json welcome() const;

  void send(const Envelope& envelope);
  /** Whether it has not taken so much yet that pages are to wait. */
  bool isBusy() const;
  /** Reads what there is; false when the process has gone. */
  bool read() { return process->read(); }
  std::optional<Envelope> next() { return process->next(); }

  /** The loop's news of one of its descriptors. */
  bool hasMessagesAt(const lws* adopted) const { return adopted == channel; }
  bool hasErrorsAt(const lws* adopted) const { return adopted == errors; }
  void write();
  /** Asks to be told when more can be written, where there is more. */
  void goOnWriting();
  bool readErrors() { return process->readErrors(); }
  void lostHold(const lws* adopted);

  /** Why the process has ended by itself, and nothing when it is to start anew. */
  std::optional<Fault> whyItEnded() { return process->end(); }
  /** Whether it is worth starting again without libraries. */
  bool mayComeBack() const;

 private:
  const Program& program;
  std::unique_ptr<HomeProcess> process;
  lws *channel = nullptr, *errors = nullptr;
  double started = 0;
  bool isSafe = false;
};

}  // namespace sim::serve
