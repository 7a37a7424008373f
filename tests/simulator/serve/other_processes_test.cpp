// What another process says to a home screen that lives on pages.
#include <sys/socket.h>

#include "bridge/block.hpp"
#include "bridge/define.hpp"
#include "platform/appsupport/messaging_center.hpp"
#include "platform/dispatch/dispatch.hpp"
#include "simulator/appsupport/message.hpp"
#include "simulator/appsupport/socket_folder.hpp"
#include "tests/simulator/serve/glass.hpp"
#include "tests/simulator/serve/living_home.hpp"
#include "tests/simulator/serve/shown_frame.hpp"

namespace test {
namespace {

namespace appsupport = sim::appsupport;

struct Hearing : bridge::Face<"TestHearing", NSObject> {
  MESSAGE Method<"hear:withUserInfo:", void(NSString, NSDictionary)> hear;
};

std::function<void()> whenHeard;

void hear(Hearing, NSString, NSDictionary) { whenHeard(); }

class AnotherProcess : public LivingHome {
 protected:
  AnotherProcess() {
    bridge::Implementation<Hearing>::define<NSObject>(bridge::method<&Hearing::hear, hear>());
    target = bridge::adopt<Hearing>(bridge::make<Hearing, &NSObject::init>().leak());
    const auto centre = CPDistributedMessagingCenter::centerNamed("centre"_ns);
    centre.runServerOnCurrentThread();
    centre.registerForMessageName_target_selector("name"_ns, target,
                                                  bridge::selector<"hear:withUserInfo:">());
    bytes = appsupport::encode({"name"_ns, {}}).value();
  }
  // Whether the home screen has heard it. By the calls of the system alone: the class runtime is the home
  // screen's.
  bool says() {
    const sim::Descriptor folder = appsupport::findSocketFolder(home.file("/"));
    const auto address = appsupport::socketAddress(folder.get(), "centre").value();
    const sim::Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    char reply = 0;
    return ::connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
           ::send(socket.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
               static_cast<ssize_t>(bytes.size()) &&
           ::recv(socket.get(), &reply, 1, 0) == 1 &&
           reply == static_cast<char>(appsupport::Reply::delivered);
  }

  Glass glass;
  std::string bytes;
  bridge::Strong<Hearing> target;
};

TEST_F(AnotherProcess, IsHeardWhileNothingElseIsDue) {
  int count = 0;
  whenHeard = [&] { ++count; };
  live([&](Pages&) { EXPECT_TRUE(says()); });
  EXPECT_EQ(count, 1);
}

// Most of what a message brings about comes a turn later.
TEST_F(AnotherProcess, ChangesWhatIsShown) {
  whenHeard = [&] {
    dispatch::onMainQueue(bridge::Block<void()>([this] { glass.paint({{0, 0}, {10, 10}}); }));
  };
  live([&](Pages& pages) {
    pages.say({{"type", "join"}});
    EXPECT_EQ(readFrame(pages.frame()).number, 1u);
    EXPECT_TRUE(says());
    EXPECT_EQ(readFrame(pages.frame()).number, 2u);
  });
}

}  // namespace
}  // namespace test
