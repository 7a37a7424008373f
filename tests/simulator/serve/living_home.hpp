// A home screen that lives in the test's own process, and the pages at the other end of its socket, which the
// test is.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/json/json.hpp"
#include "tests/support/home.hpp"

namespace test {

/** What a page is told: text is JSON, what is not text a frame. */
struct Told {
  std::uint32_t page, isText;
  std::string contents;
};

/** The other end of a home screen's socket. Reads and writes envelopes by itself. */
class Pages {
 public:
  explicit Pages(int end) : socket(end) {}

  void sayBytes(std::string_view bytes);
  void sayText(std::string_view text, std::uint32_t page = 1);
  void say(const sim::Json& message, std::uint32_t page = 1) { sayText(message.dump(), page); }

  /** Waits for the next one; none when the home screen has gone. */
  std::optional<Told> next();
  /** The next one that came within so many seconds. */
  std::optional<Told> nextWithin(double seconds);
  /** The next one that is text, or one that is none; null and empty when the home screen has gone. */
  sim::Json text();
  std::string frame();
  /** Says it and waits for the next text. */
  sim::Json ask(const sim::Json& message, std::uint32_t page = 1);
  /** Nothing is said any more; what has been said is heard. */
  void hangUp();

 private:
  const int socket;
  std::string bytes;
};

class LivingHome : public testing::Test {
 protected:
  explicit LivingHome(std::vector<std::string> options = {"--stock", "--device", "iPhone 5s", "--pages",
                                                          "1"});

  /**
   * Lives until `pages`, on a thread of its own, has said what it has to say; or goes by itself before.
   * Answers what LiveHome::run does.
   */
  bool live(const std::function<void(Pages&)>& pages);
  /** The same of a page that says one thing, and is told this. */
  sim::Json toldFor(const sim::Json& message);

  Home home;
};

inline sim::Json finger(int id, const char* phase, double x, double y) {
  return {{"type", "finger"}, {"id", id}, {"phase", phase}, {"x", x}, {"y", y}};
}
inline sim::Json step(std::string_view line) { return {{"type", "step"}, {"id", 1}, {"step", line}}; }
inline sim::Json refusal(const char* reason) {
  return {{"type", "refused"}, {"id", nullptr}, {"reason", reason}};
}

}  // namespace test
