// Messages that the library sends. sent_messages_test.cpp notes them: it stands before the runtime's
// functions.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "bridge/runtime.hpp"

namespace test {

struct SentMessages {
  static inline bool areRecorded = false;
  static inline std::map<std::string, int> all;
  // Those to classes, and those of the others whose names say that they make an object.
  static inline std::map<std::string, int> making;
};

// In alphabetical order, those that come more than once with their number: "2 count, objectAtIndex:".
inline std::string textOf(const std::map<std::string, int>& sent) {
  std::string text;
  for (const auto& [what, times] : sent)
    text += (text.empty() ? "" : ", ") + (times > 1 ? std::to_string(times) + " " : "") + what;
  return text;
}

// The third time that `path` is gone; what comes before and after it each time does not count.
inline std::string sentBy(
    const std::function<void()>& path, const std::function<void()>& before = [] {},
    const std::function<void()>& after = [] {}) {
  const bridge::Pool pool;
  for (int time = 1; time <= 3; ++time) {
    before();
    SentMessages::all.clear();
    SentMessages::making.clear();
    SentMessages::areRecorded = time == 3;
    path();
    SentMessages::areRecorded = false;
    after();
  }
  return textOf(SentMessages::all);
}

}  // namespace test
