// A home screen that follows the wall clock, is shown on pages and does what they say.
#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>

#include "simulator/json/json.hpp"
#include "simulator/quartz/screen.hpp"
#include "simulator/serve/envelope.hpp"
#include "simulator/serve/page_fingers.hpp"
#include "simulator/serve/viewer.hpp"
#include "simulator/time/frame_pace.hpp"

namespace sim {
class Simulation;
}

namespace sim::serve {

class LiveHome {
 public:
  /** Talks to the server over `socket`; both outlive this. */
  LiveHome(Simulation& simulation, int socket);
  ~LiveHome();
  LiveHome(const LiveHome&) = delete;
  LiveHome& operator=(const LiveHome&) = delete;

  /** Until the server has gone, or SpringBoard is asked to start anew: answers whether that is why. */
  bool run();

 private:
  // What a page says; null for what is no JSON.
  struct Said {
    std::uint32_t page;
    Json message;
    std::size_t length;  // bytes
  };

  void pump(double end);
  double wallClock();
  void wait(double until);
  void listen();
  bool isDrawn(const Said& said);
  void take(const Said& said);
  void refuse(const Said& said, const std::exception& error);
  void hear(Said said);
  void answer(std::uint32_t page, const Json& message);
  void send(const Envelope& envelope);

  void handle(std::uint32_t page, const Json& message);
  void answerFor(std::uint32_t page, const std::string& type, const Json& message);
  void key(std::uint32_t page, const Json& message);
  void step(std::uint32_t page, const Json& message);
  void leave(std::uint32_t page);

  bool wantsFrame() const;
  void drawIfDue();

  Simulation& simulation;
  const int socket;
  EnvelopeReader reader;
  std::deque<Said> waiting;  // until the step under way is done
  std::size_t waitingLength = 0;
  std::map<std::uint32_t, Viewer> viewers;
  PageFingers fingers;
  std::chrono::steady_clock::time_point start;  // when the device's clock stood at zero
  double lastChange = 0;                        // seconds of the device's clock
  double woken = 0;                             // when it last was, or was to be if that is sooner
  FramePace pace;
  PaintedScreen screen;
  bool isDirty = true, isOver = false, isRelaunching = false;
};

}  // namespace sim::serve
