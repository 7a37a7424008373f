// Messages on their way from another process to their target.
#include "platform/foundation/number.hpp"
#include "simulator/product/names.hpp"
#include "tests/simulator/appsupport/fixture.hpp"

namespace {

using namespace test;

class Messages : public ServedCentre {};

TEST_F(Messages, ArriveWithTheirNameAndUserInfo) {
  serve();
  Client client([&] {
    return sendOne(root, "hello",
                   {{"name"_ns, "Use Two Finger Tap Instead"_ns},
                    {"value"_ns, NSNumber::numberWithBool(YES)},
                    {"whole"_ns, NSNumber::numberWithLongLong(-5)},
                    {"half"_ns, NSNumber::numberWithDouble(0.5)}});
  });
  EXPECT_EQ(outcomeFor(client), Outcome::delivered);
  const sim::Json info = {
      {"half", 0.5}, {"name", "Use Two Finger Tap Instead"}, {"value", true}, {"whole", -5}};
  EXPECT_EQ(heard, (std::vector<Heard>{{"hello", info}}));
}

TEST_F(Messages, HaveBeenHandledWhenTheSenderHears) {
  serve();
  const auto proof = root / "handled";
  whenHeard = [&] {
    usleep(100'000);
    EXPECT_TRUE(std::filesystem::create_directory(proof));
  };
  Client client([&] { return sendOne(root, "hello", {}) * 10 + std::filesystem::exists(proof); });
  EXPECT_EQ(serveFor(client), static_cast<int>(Outcome::delivered) * 10 + 1);
}

TEST_F(Messages, WaitUntilTheyAreServed) {
  serve();
  Client client([&] { return sendOne(root, "hello", {}); });
  usleep(200'000);
  EXPECT_FALSE(client.ended());
  EXPECT_TRUE(heard.empty());
  EXPECT_EQ(outcomeFor(client), Outcome::delivered);
}

TEST_F(Messages, AreGivenUpByASenderWhoseTimeIsUp) {
  serve();
  Client client([&] { return sendOne(root, "hello", {}, std::chrono::milliseconds(50)); });
  while (!client.ended()) usleep(1000);
  EXPECT_EQ(static_cast<Outcome>(client.status()), Outcome::late);
}

TEST_F(Messages, OfAnotherNameAreDropped) {
  serve();
  Client client([&] { return sendOne(root, "goodbye", {}); });
  EXPECT_EQ(outcomeFor(client), Outcome::dropped);
  EXPECT_TRUE(heard.empty());
}

TEST_F(Messages, GoToTheTargetThatRegisteredLast) {
  serve();
  auto other = newListener();
  centre().registerForMessageName_target_selector("hello"_ns, other, hearing());
  listener.clear();  // the first is gone; the second still gets them
  Client client([&] { return sendOne(root, "hello", {}); });
  EXPECT_EQ(outcomeFor(client), Outcome::delivered);
  EXPECT_EQ(heard.size(), 1u);
}

// The device's centre neither keeps its targets nor forgets them.
TEST_F(Messages, ToATargetThatIsGoneEndTheProcess) {
  serve();
  EXPECT_EQ(listener->retainCount(), 1u);  // registering has not retained it
  listener.clear();
  Client client([&] { return sendOne(root, "hello", {}); });
  EXPECT_EXIT(while (true) sim::appsupport::serveMessages(), testing::ExitedWithCode(3),
              "CPDistributedMessagingCenter: the target of a message has been deallocated: hello");
}

TEST_F(Messages, MayEndTheirTargetAndRegisterAnother) {
  serve();
  whenHeard = [&] {
    listener = newListener();
    centre().registerForMessageName_target_selector("hello"_ns, listener, hearing());
  };
  for (std::size_t times = 1; times <= 2; ++times) {
    Client client([&] { return sendOne(root, "hello", {}); });
    EXPECT_EQ(outcomeFor(client), Outcome::delivered);
    EXPECT_EQ(heard.size(), times);
  }
}

TEST_F(Messages, ToACentreThatNobodyRunsFail) {
  EXPECT_EQ(static_cast<Outcome>(sendOne(root, "hello", {})), Outcome::unserved);
  messages.emplace(root);
  centre().registerForMessageName_target_selector("hello"_ns, listener, hearing());
  EXPECT_EQ(static_cast<Outcome>(sendOne(root, "hello", {})), Outcome::unserved);
  EXPECT_FALSE(centre().sendMessageName_userInfo("hello"_ns, {}));
  EXPECT_FALSE(sim::appsupport::serves(sim::product::settingsCentre));
}

TEST_F(Messages, GoFromACentreOfTheSameProcessToo) {
  serve();
  whenHeard = [&] {
    if (heard.size() < 3) {
      EXPECT_TRUE(centre().sendMessageName_userInfo("hello"_ns, {}));
    }
  };
  EXPECT_TRUE(centre().sendMessageName_userInfo(
      "hello"_ns, NSDictionary::dictionaryWithObject_forKey("5"_ns, "columns"_ns)));
  ASSERT_EQ(heard.size(), 3u);
  EXPECT_EQ(heard[0].userInfo, (sim::Json{{"columns", "5"}}));
  EXPECT_FALSE(centre().sendMessageName_userInfo(
      "hello"_ns, NSDictionary::dictionaryWithObject_forKey(listener, "no property list"_ns)));
}

TEST_F(Messages, ReachTheirOwnCentreOnly) {
  serve();
  auto other = CPDistributedMessagingCenter::centerNamed("com.example.other"_ns);
  EXPECT_EQ(other, CPDistributedMessagingCenter::centerNamed("com.example.other"_ns));
  EXPECT_NE(other, centre());
  auto elsewhere = newListener();
  other.registerForMessageName_target_selector("hello"_ns, elsewhere, hearing());
  EXPECT_FALSE(other.sendMessageName_userInfo("hello"_ns, {}));
  other.runServerOnCurrentThread();
  EXPECT_TRUE(other.sendMessageName_userInfo("hello"_ns, {}));
  EXPECT_TRUE(centre().sendMessageName_userInfo("hello"_ns, {}));
  EXPECT_EQ(heard.size(), 2u);
}

TEST_F(Messages, OfAHundredSendersAtOnceAllArrive) {
  serve();
  std::vector<std::unique_ptr<Client>> clients;
  for (int i = 0; i < 100; ++i)
    clients.push_back(std::make_unique<Client>(
        [&] { return sendOne(root, "hello", {{"sender"_ns, NSNumber::numberWithInt(i)}}); }));
  std::vector<bool> heardFrom(100);
  for (auto& client : clients) EXPECT_EQ(outcomeFor(*client), Outcome::delivered);
  ASSERT_EQ(heard.size(), 100u);
  for (const Heard& each : heard) heardFrom.at(each.userInfo["sender"].get<std::size_t>()) = true;
  EXPECT_EQ(std::count(heardFrom.begin(), heardFrom.end(), true), 100);
}

TEST(MessagesWithoutContent, ChangeNothingAndTheHomeScreenGoesOn) {
  const test::Run run = runSimulator({"--script", "-", "--report", "-"},
                                     "message ListPreferencesDidChangeNotification name=rows\nwait 1\n");
  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_EQ(sim::Json::parse(run.output)["preferences"]["rows"], 5);
}

}  // namespace
