// Time, messages and frames of a living home screen, in one loop that sleeps while nothing is due.
#include "simulator/serve/live_home.hpp"

#include <fmt/format.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <limits>

#include "bridge/runtime.hpp"
#include "simulator/app/report.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/appsupport/messaging_center.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/device/text.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/springboard/relaunch.hpp"
#include "simulator/time/run_loop.hpp"
#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/text/text_field.hpp"
#include "simulator/uikit/views/first_responder.hpp"

namespace sim::serve {
namespace {

using Seconds = std::chrono::duration<double>;

constexpr double never = std::numeric_limits<double>::infinity();
constexpr double clockStep = 1e-6;  // seconds: the device's clock has nothing finer
constexpr double longestWait = 60;  // seconds
// A machine that was asleep, or under a debugger, does not make the device live through the time at once.
constexpr double longestLag = 0.5;
// What has been still for so long is shown to the last bit.
constexpr double stillness = 0.15;
constexpr int deepest = 20;                       // levels of a message
constexpr std::size_t longestWaiting = 4u << 20;  // bytes of messages

bool isMoving() { return uikit::nextAnimationEvent().has_value(); }

Seconds sinceThen(std::chrono::steady_clock::time_point then) {
  return std::chrono::steady_clock::now() - then;
}

bool namesFile(const Step& step) {
  const auto isFile = [](const Kind& kind) { return kind.read == kinds::readFile; };
  return std::ranges::any_of(step.row->arguments.kinds, isFile) ||
         (step.row->orElse && std::ranges::any_of(step.row->orElse->kinds, isFile));
}

}  // namespace

LiveHome::LiveHome(Simulation& device, int channel)
    : simulation(device),
      socket(channel),
      start(std::chrono::steady_clock::now() -
            std::chrono::duration_cast<std::chrono::steady_clock::duration>(Seconds(clock::now()))) {
  keepTimeBy([this](double end) {
    isDirty = true;  // by what the step has done so far
    pump(end);
  });
}

LiveHome::~LiveHome() { keepTimeBy({}); }

bool LiveHome::run() {
  while (!isOver) {
    pump(wallClock());
    if (isOver) break;
    if (waiting.empty()) {
      wait(turn());
      continue;
    }
    const Said next = std::move(waiting.front());
    waiting.pop_front();
    waitingLength -= next.length;
    take(next);
    isDirty = true;
    listen();
  }
  return isRelaunching;
}

double LiveHome::wallClock() {
  const double lag = sinceThen(start).count() - std::max(clock::now(), woken);
  if (lag > longestLag)
    start +=
        std::chrono::duration_cast<std::chrono::steady_clock::duration>(Seconds(lag - FramePace::interval));
  return sinceThen(start).count();
}

// Up to a moment, and no further: a step goes on from there.
void LiveHome::pump(double end) {
  for (;;) {
    const bridge::Pool pool;
    const double before = clock::now();
    const double due = turn();
    stepTo(std::min(wallClock(), std::max(end, before)));
    if (due <= clock::now()) isDirty = true;
    if (appsupport::serveMessages()) {
      settle();
      isDirty = true;
    }
    drawIfDue();
    if (springboard::relaunchesAskedFor() > 0) isOver = isRelaunching = true;
    if (clock::now() + clockStep >= end || isOver) return;
    wait(std::min(end, turn()));
  }
}

// Until something is due, a message has come, or a frame is to be drawn.
void LiveHome::wait(double until) {
  if (wantsFrame()) until = std::min(until, pace.next());
  for (const auto& [page, viewer] : viewers)
    if (!isMoving() && viewer.isInexact() && viewer.isReady())
      until = std::min(until, std::max(lastChange + stillness, clock::now()));
  std::vector<pollfd> all = appsupport::messageDescriptors();
  all.push_back({socket, POLLIN, 0});
  // In whole milliseconds, as `poll` waits, each frame would be half of one late.
  const double seconds = std::clamp(until - sinceThen(start).count(), 0.0, longestWait);
  const timespec timeout{static_cast<time_t>(seconds), static_cast<long>(std::fmod(seconds, 1) * 1e9)};
  ::ppoll(all.data(), all.size(), until == never ? nullptr : &timeout, nullptr);
  woken = std::min(until, sinceThen(start).count());
  if (all.back().revents != 0) listen();
}

void LiveHome::listen() {
  if (!reader.fill(socket)) isOver = true;
  while (const auto envelope = reader.next()) {
    Said said{envelope->page, Json::read(envelope->contents, deepest).value_or(Json()),
              envelope->contents.size()};
    if (!isDrawn(said)) hear(std::move(said));
  }
}

void LiveHome::hear(Said said) {
  // Nobody waits any more for what a page has asked that has left.
  const bool leaves = said.message.isObject() && said.message.value("type") == Json("leave");
  if (leaves)
    std::erase_if(waiting, [&](const Said& each) {
      if (each.page == said.page) waitingLength -= each.length;
      return each.page == said.page;
    });
  else if (waitingLength + said.length > longestWaiting)
    return refuse(said, UsageError("too much waits to be done"));
  waitingLength += said.length;
  waiting.push_back(std::move(said));
}

// What a page has drawn is heard at once, so that frames go on while a step takes its time.
bool LiveHome::isDrawn(const Said& said) {
  if (!said.message.isObject() || said.message.value("type") != Json("drawn")) return false;
  const auto viewer = viewers.find(said.page);
  const Json frame = said.message.value("frame");
  if (viewer != viewers.end() && frame.isNumber()) viewer->second.hasDrawn(frame.get<double>());
  return true;
}

void LiveHome::send(const Envelope& envelope) {
  const std::string bytes = sealed(envelope);
  for (std::size_t done = 0; done < bytes.size() && !isOver;) {
    const ssize_t count = ::send(socket, bytes.data() + done, bytes.size() - done, MSG_NOSIGNAL);
    if (count > 0)
      done += static_cast<std::size_t>(count);
    else if (errno != EINTR)
      isOver = true;
  }
}

void LiveHome::answer(std::uint32_t page, const Json& message) { send({page, true, message.dump()}); }

void LiveHome::refuse(const Said& said, const std::exception& error) {
  const Json id = said.message.isObject() ? said.message.value("id") : Json();
  answer(said.page, {{"type", "refused"}, {"id", id}, {"reason", messageLine(error.what())}});
}

void LiveHome::take(const Said& said) {
  const bridge::Pool pool;
  try {
    if (!said.message.isObject()) throw UsageError("a message is no JSON object");
    handle(said.page, said.message);
  } catch (const UsageError& error) {
    refuse(said, error);
  } catch (const JsonError& error) {
    refuse(said, error);
  }
}

void LiveHome::handle(std::uint32_t page, const Json& message) {
  const auto type = message.value("type").get<std::string>();
  if (type == "join")
    viewers[page];
  else if (type == "leave")
    leave(page);
  else if (type == "finger")
    fingers.obey(page, message);
  else if (type == "key")
    key(page, message);
  else if (type == "step")
    step(page, message);
  else if (type == "report")
    answer(page, {{"type", "report"}, {"id", message.value("id")}, {"report", makeReport(simulation)}});
  else
    answerFor(page, type, message);
}

// What the program knows beside: an answer, or what is wrong.
void LiveHome::answerFor(std::uint32_t page, const std::string& type, const Json& message) {
  const auto& known = simulation.program().pageMessages;
  const auto row = std::ranges::find(known, type, &PageMessage::type);
  if (row == known.end()) throw UsageError(fmt::format("no message is called '{}'", type));
  Json reply{{"type", "answer"}, {"id", message.value("id")}};
  try {
    reply["answer"] = row->answer(simulation, message);
  } catch (const UsageError& error) {
    reply["error"] = messageLine(error.what());
  }
  answer(page, reply);
}

// As from a keyboard that is plugged in; who asks is told whether it has typed anything.
void LiveHome::key(std::uint32_t page, const Json& message) {
  const auto name = message.value("key").get<std::string>();
  const UIResponder responder = uikit::firstResponder();
  const bool isEdited = bridge::isKindOf<UITextField>(responder) && !name.empty() && isText(name);
  if (isEdited) {
    const UITextField field = bridge::as<UITextField>(responder);
    if (name == "Backspace")
      uikit::typeDelete(field);
    else if (name == "Enter")
      uikit::typeReturn(field);
    else
      uikit::typeText(field, NSString::stringWithUTF8String(name.c_str()));
  }
  if (const Json id = message.value("id"); !id.isNull())
    answer(page, {{"type", "answer"}, {"id", id}, {"answer", isEdited}});
}

void LiveHome::step(std::uint32_t page, const Json& message) {
  Json done{{"type", "done"}, {"id", message.value("id")}};
  try {
    const auto line = message.value("step").get<std::string>();
    if (const auto parsed = parseStep(line, "step", "/", simulation.program().steps)) {
      if (namesFile(*parsed))
        throw UsageError(fmt::format("step: a page cannot write files by '{}'", parsed->name()));
      perform(simulation, *parsed);
    }
  } catch (const UsageError& error) {
    done["error"] = messageLine(error.what());
  }
  answer(page, done);
}

void LiveHome::leave(std::uint32_t page) {
  fingers.lift(page);
  viewers.erase(page);
}

bool LiveHome::wantsFrame() const {
  return (isDirty || isMoving()) &&
         std::ranges::any_of(viewers, [](const auto& each) { return each.second.isReady(); });
}

void LiveHome::drawIfDue() {
  const double now = clock::now();
  const bool due = wantsFrame() && now >= pace.next();
  const bool isStill = !isMoving() && now >= lastChange + stillness;
  const bool refine = isStill && std::ranges::any_of(viewers, [](const auto& each) {
                        return each.second.isInexact() && each.second.isReady();
                      });
  if (!due && !refine) return;
  const Surface picture = uikit::renderScreen(now, screen);
  pace.show(now);
  // A page that is not ready yet sees what it missed when it is.
  isDirty = std::ranges::any_of(viewers, [](const auto& each) { return !each.second.isReady(); });
  for (auto& [page, viewer] : viewers) {
    viewer.miss(screen.changed());
    if (!viewer.isReady()) continue;
    const auto [isChange, message] = viewer.show(picture, !isStill);
    if (isChange) lastChange = clock::now();
    if (message) send({page, false, *message});
  }
}

}  // namespace sim::serve
