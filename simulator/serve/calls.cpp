// A function of any shape that stands before a method's implementation, notes the time and calls it: made by
// libffi, from the types of the method.
#include "simulator/serve/calls.hpp"

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <mutex>
#include <vector>

#include "bridge/runtime.hpp"
#include "simulator/runtime/hooking.hpp"
#include "simulator/serve/call_shape.hpp"

namespace sim::serve {
namespace {

using Clock = std::chrono::steady_clock;
using Nanoseconds = std::chrono::nanoseconds;

constexpr auto interval = std::chrono::milliseconds(100);
constexpr long intervals = 10;  // make up the second
constexpr auto patience = std::chrono::seconds(3);

struct Tally {
  long interval = -1;  // since the clock's beginning
  long count = 0;
  Nanoseconds time{};
};

long intervalAt(Clock::time_point moment) { return moment.time_since_epoch() / interval; }

// The tallies, and whether anybody looks: calls come from any thread.
std::mutex lock;
Clock::time_point lastAsked;
bool isWatching = false;

void stopWatching();

struct Watched {
  Class cls;
  SEL selector;
  std::unique_ptr<CallShape> shape;
  IMP behind = nullptr;
  std::array<Tally, intervals> tallies{};

  void add(Clock::time_point start, Clock::time_point end) {
    const std::lock_guard guard(lock);
    const long now = intervalAt(end);
    Tally& tally = tallies[static_cast<std::size_t>(now % intervals)];
    if (tally.interval != now) tally = {.interval = now};
    ++tally.count;
    tally.time += end - start;
  }
  Tally withinASecond(Clock::time_point end) const {
    Tally sum;
    for (const Tally& each : tallies)
      if (each.interval > intervalAt(end) - intervals) sum.count += each.count, sum.time += each.time;
    return sum;
  }
};

// Never taken back: one of a library's replacements may call what stood there when it came.
std::vector<std::unique_ptr<Watched>>& all() {
  static auto& made = *new std::vector<std::unique_ptr<Watched>>();
  return made;
}

// A method may be left by an exception.
struct Stopwatch {
  Watched& watched;
  const Clock::time_point start = Clock::now();
  ~Stopwatch() { watched.add(start, Clock::now()); }
};

void called(void* context, void* result, void** arguments) {
  Watched& watched = *static_cast<Watched*>(context);
  {
    const Stopwatch stopwatch{watched};
    watched.shape->call(watched.behind, result, arguments);
  }
  bool isForgotten;
  {
    const std::lock_guard guard(lock);
    isForgotten = isWatching && Clock::now() - lastAsked > patience;
    if (isForgotten) isWatching = false;
  }
  if (isForgotten) stopWatching();
}

bool has(const Replacement& replacement) {
  return std::ranges::any_of(all(), [&](const auto& each) {
    return each->cls == replacement.cls && sel_isEqual(each->selector, replacement.selector);
  });
}

// Methods whose types are none that a call can be made of are left out.
void findNew() {
  for (const Replacement& each : replacements()) {
    if (has(each)) continue;
    auto watched = std::make_unique<Watched>(each.cls, each.selector);
    objc_method* method = class_getInstanceMethod(each.cls, each.selector);
    watched->shape = CallShape::make(method_getTypeEncoding(method), called, watched.get());
    if (watched->shape) all().push_back(std::move(watched));
  }
}

void startWatching() {
  findNew();
  for (const auto& each : all()) each->behind = interpose(each->cls, each->selector, each->shape->function());
}

void stopWatching() {
  for (const auto& each : all()) withdraw(each->cls, each->selector, each->shape->function());
}

Json described(const Watched& watched, const Tally& tally) {
  Json libraries = Json::array();
  for (const Replacement& each : replacementsOf(watched.cls, watched.selector))
    libraries.push_back(each.library);
  return {{"class", class_getName(watched.cls)},
          {"method", methodName(watched.cls, watched.selector)},
          {"count", tally.count},
          {"seconds", std::chrono::duration<double>(tally.time).count()},
          {"libraries", std::move(libraries)}};
}

constexpr PageMessage messages[] = {{"calls", [](Simulation&, const Json&) { return callsWithinASecond(); }}};

}  // namespace

Json callsWithinASecond() {
  bool isNew;
  std::vector<std::pair<Tally, const Watched*>> found;
  {
    const std::lock_guard guard(lock);
    const auto now = Clock::now();
    lastAsked = now;
    isNew = !std::exchange(isWatching, true);
    for (const auto& each : all())
      if (const Tally tally = each->withinASecond(now); tally.count > 0)
        found.emplace_back(tally, each.get());
  }
  if (isNew) startWatching();
  std::ranges::sort(found, std::greater(), [](const auto& each) { return each.first.time; });
  Json list = Json::array();
  for (const auto& [tally, watched] : found) list.push_back(described(*watched, tally));
  return list;
}

std::span<const PageMessage> callMessages() { return messages; }

}  // namespace sim::serve
