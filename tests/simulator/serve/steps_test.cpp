// Lines of scripts that a page says.
#include "tests/simulator/serve/glass.hpp"
#include "tests/simulator/serve/living_home.hpp"

namespace test {
namespace {

class AStepOfAPage : public LivingHome {
 protected:
  static sim::Json done() { return {{"type", "done"}, {"id", 1}}; }
  static sim::Json doneWith(const char* error) { return {{"type", "done"}, {"id", 1}, {"error", error}}; }
};

TEST_F(AStepOfAPage, IsDone) {
  Glass glass;
  EXPECT_EQ(toldFor(step("finger 3 down 10 20")), done());
  EXPECT_EQ(glass.touches, std::vector<std::string>{"began 10 20 force 0"});
}

TEST_F(AStepOfAPage, MayBeGivenInItsOtherWay) { EXPECT_EQ(toldFor(step("tap 10 20")), done()); }

TEST_F(AStepOfAPage, MayBeNone) { EXPECT_EQ(toldFor(step("# nothing")), done()); }

TEST_F(AStepOfAPage, TellsWhatIsWrongWithIt) {
  EXPECT_EQ(toldFor(step("finger 3 up 1 1")), doneWith("step: finger 3 is not down"));
  EXPECT_NE(toldFor(step("fly"))["error"].get<std::string>().find("fly"), std::string::npos);
}

TEST_F(AStepOfAPage, WritesNoFile) {
  const std::string file = temporaryFile("kept", "as it was");
  EXPECT_EQ(toldFor(step("report " + file)), doneWith("step: a page cannot write files by 'report'"));
  EXPECT_EQ(toldFor(step("snapshot -")), doneWith("step: a page cannot write files by 'snapshot'"));
}

TEST_F(AStepOfAPage, ThatIsNoTextIsRefused) {
  const sim::Json told = toldFor({{"type", "step"}, {"id", 4}, {"step", 7}});
  EXPECT_EQ(told["type"], "refused");
  EXPECT_EQ(told["id"], 4);
}

TEST_F(AStepOfAPage, TakesItsTime) {
  live([](Pages& pages) {
    const double before = pages.ask({{"type", "report"}})["report"]["time"].get<double>();
    EXPECT_EQ(pages.ask(step("wait 0.05")), done());
    EXPECT_GE(pages.ask({{"type", "report"}})["report"]["time"].get<double>(), before + 0.05);
  });
}

}  // namespace
}  // namespace test
