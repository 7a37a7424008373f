// What becomes of a message: an answer, or a refusal that says why.
#include "tests/simulator/serve/living_home.hpp"

namespace test {
namespace {

class AMessageOfAPage : public LivingHome {
 protected:
  sim::Json toldForText(const std::string& text) {
    sim::Json told;
    live([&](Pages& pages) {
      pages.sayText(text);
      told = pages.text();
    });
    return told;
  }
};

TEST_F(AMessageOfAPage, IsAnsweredToThatPageAsText) {
  live([](Pages& pages) {
    pages.say({{"type", "report"}}, 0x10203);
    const auto told = pages.next();
    ASSERT_TRUE(told);
    EXPECT_EQ(told->page, 0x10203u);
    EXPECT_EQ(told->isText, 1u);
  });
}

TEST_F(AMessageOfAPage, AskingForTheReportGetsIt) {
  const sim::Json told = toldFor({{"type", "report"}, {"id", "my own"}});
  EXPECT_EQ(told["type"], "report");
  EXPECT_EQ(told["id"], "my own");
  EXPECT_EQ(told["report"]["device"], "iPhone 5s");
}

TEST_F(AMessageOfAPage, OfAnUnknownTypeIsRefusedByName) {
  const sim::Json expected{{"type", "refused"}, {"id", 7}, {"reason", "no message is called 'hello'"}};
  EXPECT_EQ(toldFor({{"type", "hello"}, {"id", 7}}), expected);
}

TEST_F(AMessageOfAPage, OfATypeThatIsNoTextIsRefused) {
  for (const sim::Json& type : {sim::Json(), sim::Json(1), sim::Json::array()}) {
    const sim::Json told = toldFor({{"type", type}, {"id", 3}});
    EXPECT_EQ(told["type"], "refused");
    EXPECT_EQ(told["id"], 3);
  }
}

TEST_F(AMessageOfAPage, ThatIsNoObjectIsRefused) {
  for (const char* text :
       {"", "x", "[1]", "7", "\"join\"", "null", "{\"type\":\"report\"", "{\"type\":\"\xff\"}"})
    EXPECT_EQ(toldForText(text), refusal("a message is no JSON object")) << text;
}

TEST_F(AMessageOfAPage, MayHaveTwentyLevels) {
  const auto nested = [](std::size_t levels) {
    return R"({"type":"report","more":)" + std::string(levels, '[') + std::string(levels, ']') + "}";
  };
  EXPECT_EQ(toldForText(nested(19))["type"], "report");
  EXPECT_EQ(toldForText(nested(20)), refusal("a message is no JSON object"));
}

TEST_F(AMessageOfAPage, ThatTheProgramAnswersGetsTheAnswer) {
  const sim::Json told = toldFor({{"type", "view-at"}, {"id", 5}, {"x", -3}, {"y", 10}});
  const sim::Json expected{{"type", "answer"}, {"id", 5}, {"answer", nullptr}};
  EXPECT_EQ(told, expected);
}

TEST_F(AMessageOfAPage, ThatTheProgramDoesNotLikeIsAnsweredWithTheReason) {
  const sim::Json told = toldFor({{"type", "view"}, {"id", 5}, {"view", "0x1"}});
  const sim::Json expected{{"type", "answer"}, {"id", 5}, {"error", "no view has the id '0x1'"}};
  EXPECT_EQ(told, expected);
}

TEST_F(AMessageOfAPage, WithAValueOfAnotherKindIsRefused) {
  const sim::Json told = toldFor({{"type", "view-at"}, {"id", 5}, {"x", "left"}, {"y", 1}});
  EXPECT_EQ(told["type"], "refused");
  EXPECT_EQ(told["id"], 5);
  EXPECT_NE(told["reason"], "");
}

TEST_F(AMessageOfAPage, IsHeardInPortions) {
  live([](Pages& pages) {
    const std::string text = R"({"type":"report"})", head("\x11\0\0\0\1\0\0\0\1\0\0\0", 12);
    pages.sayBytes(head.substr(0, 5));
    EXPECT_FALSE(pages.nextWithin(0.01));
    pages.sayBytes(head.substr(5) + text.substr(0, 4));
    EXPECT_FALSE(pages.nextWithin(0.01));
    pages.sayBytes(text.substr(4));
    EXPECT_EQ(pages.text()["type"], "report");
  });
}

TEST_F(AMessageOfAPage, ThatHasDrawnIsNotAnswered) {
  live([](Pages& pages) {
    for (const sim::Json& frame : {sim::Json(), sim::Json("all"), sim::Json(-1), sim::Json(1e300)})
      pages.say({{"type", "drawn"}, {"frame", frame}}, 2);
    EXPECT_EQ(pages.ask({{"type", "report"}})["type"], "report");
  });
}

// More than the socket holds at once.
TEST_F(AMessageOfAPage, IsAnsweredAtAnyLength) {
  live([](Pages& pages) {
    const std::string id(900'000, 'x');
    EXPECT_EQ(pages.ask({{"type", "report"}, {"id", id}})["id"], sim::Json(id));
  });
}

TEST_F(AMessageOfAPage, ThatNobodyWaitsForEndsTheHomeScreen) {
  EXPECT_FALSE(
      live([](Pages& pages) { pages.say({{"type", "report"}, {"id", std::string(900'000, 'x')}}); }));
}

}  // namespace
}  // namespace test
