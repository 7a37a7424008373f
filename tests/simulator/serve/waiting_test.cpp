// What is said while a step takes its time waits, up to a limit.
#include <future>

#include "tests/simulator/serve/glass.hpp"
#include "tests/simulator/serve/living_home.hpp"

namespace test {
namespace {

constexpr std::size_t most = 4u << 20;  // bytes

class WhatWaits : public LivingHome {
 protected:
  // Lives while a step is under way, and calls `pages` when it is.
  void liveDuringAStep(const std::function<void(Pages&)>& meanwhile) {
    std::promise<void> begins;
    glass.whenTouched = [&] {
      glass.whenTouched = [] {};
      begins.set_value();
    };
    live([&](Pages& pages) {
      pages.say(step("drag 10 10 20 20 1.5"));
      begins.get_future().wait();
      meanwhile(pages);
    });
  }

  // A step that does nothing, of so many bytes in all.
  static std::string filling(std::size_t length) {
    const std::string begin = R"({"type":"step","id":2,"step":"#)", end = "\"}";
    return begin + std::string(length - begin.size() - end.size(), 'x') + end;
  }
  static sim::Json tooMuch(int id) {
    return {{"type", "refused"}, {"id", id}, {"reason", "too much waits to be done"}};
  }
  static sim::Json report(int id) { return {{"type", "report"}, {"id", id}}; }
  static sim::Json leave() { return {{"type", "leave"}}; }

  Glass glass;
};

TEST_F(WhatWaits, IsDoneInTurn) {
  liveDuringAStep([](Pages& pages) {
    pages.say(report(5));
    pages.say(report(6), 2);
    EXPECT_EQ(pages.text()["type"], "done");
    EXPECT_EQ(pages.text()["id"], 5);
    EXPECT_EQ(pages.text()["id"], 6);
  });
}

TEST_F(WhatWaits, MayBeFourMebibytes) {
  liveDuringAStep([](Pages& pages) {
    pages.sayText(filling(most));
    pages.say(report(5));
    EXPECT_EQ(pages.text(), tooMuch(5));
    EXPECT_EQ(pages.text()["id"], 1);
    EXPECT_EQ(pages.text()["id"], 2);
    EXPECT_EQ(pages.ask(report(6))["type"], "report");
  });
}

TEST_F(WhatWaits, IsNoByteMore) {
  liveDuringAStep([](Pages& pages) {
    pages.sayText(filling(most - 100));
    pages.sayText(filling(101));
    EXPECT_EQ(pages.text(), tooMuch(2));
    pages.sayText(filling(100));
    EXPECT_EQ(pages.text()["id"], 1);
  });
}

TEST_F(WhatWaits, IsForgottenOfAPageThatLeaves) {
  liveDuringAStep([](Pages& pages) {
    pages.say(report(5), 2);
    pages.say(report(6), 3);
    pages.say(leave(), 2);
    pages.say(report(7), 2);
    EXPECT_EQ(pages.text()["type"], "done");
    EXPECT_EQ(pages.text()["id"], 6);
    EXPECT_EQ(pages.text()["id"], 7);
  });
}

TEST_F(WhatWaits, MakesRoomWhenItsPageLeaves) {
  liveDuringAStep([](Pages& pages) {
    pages.sayText(filling(most - 100), 2);
    pages.say(leave(), 2);
    pages.sayText(filling(most - 100), 3);
    EXPECT_EQ(pages.text()["type"], "done");
    EXPECT_EQ(pages.text()["id"], 2);
  });
}

TEST_F(WhatWaits, OfOthersTakesItsRoomWhenAPageLeaves) {
  liveDuringAStep([](Pages& pages) {
    pages.sayText(filling(most), 2);
    pages.say(leave(), 3);
    pages.say(report(5));
    EXPECT_EQ(pages.text(), tooMuch(5));
  });
}

TEST_F(WhatWaits, LetsAPageLeaveHoweverMuchItIs) {
  liveDuringAStep([](Pages& pages) {
    pages.sayText(filling(most), 2);
    pages.say(leave(), 3);
    EXPECT_EQ(pages.text()["id"], 1);
    EXPECT_EQ(pages.text()["id"], 2);
    EXPECT_EQ(pages.ask(report(8))["id"], 8);
  });
}

TEST_F(WhatWaits, EndsWithTheServer) {
  live([](Pages& pages) {
    pages.say(step("wait 600"));
    pages.say(report(5));
  });
}

}  // namespace
}  // namespace test
