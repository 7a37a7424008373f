// Where the sockets lie, who may reach them, and when they are there.
#include "simulator/appsupport/socket_folder.hpp"

#include <sys/socket.h>
#include <sys/stat.h>

#include <fstream>

#include "simulator/product/names.hpp"
#include "tests/simulator/appsupport/fixture.hpp"

namespace {

using namespace test;
namespace fs = std::filesystem;

class SocketFolder : public ServedCentre {
 protected:
  static mode_t mode(const fs::path& path) {
    struct stat status = {};
    EXPECT_EQ(lstat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
  }

  void expectServing() {
    heard.clear();
    Client client([&] { return sendOne(root, "hello", {}); });
    EXPECT_EQ(outcomeFor(client), Outcome::delivered);
    EXPECT_EQ(heard.size(), 1u);
  }
};

TEST_F(SocketFolder, IsForItsOwnerOnly) {
  umask(0);
  serve();
  EXPECT_EQ(mode(folder()), 0700u);
  EXPECT_EQ(mode(socket()), 0600u);
}

TEST_F(SocketFolder, IsClosedToOthersIfSomebodyOpenedIt) {
  fs::create_directories(folder());
  fs::permissions(folder(), fs::perms::all);
  serve();
  EXPECT_EQ(mode(folder()), 0700u);
  expectServing();
}

TEST_F(SocketFolder, KeepsStrangersOut) {
  if (geteuid() != 0) GTEST_SKIP() << "only the root user can become a stranger";
  serve();
  fs::permissions(root, fs::perms::all);
  Client stranger([&] {
    if (setgid(65534) != 0 || setuid(65534) != 0) return 100;
    return sendOne(root, "hello", {});
  });
  EXPECT_EQ(outcomeFor(stranger), Outcome::unserved);
  EXPECT_TRUE(heard.empty());
}

TEST_F(SocketFolder, OfSomebodyElseIsNotUsed) {
  if (geteuid() != 0) GTEST_SKIP() << "only the root user can give a folder away";
  fs::create_directories(folder());
  ASSERT_EQ(chown(folder().c_str(), 65534, 65534), 0);
  testing::internal::CaptureStderr();
  serve();
  const std::string said = testing::internal::GetCapturedStderr();
  EXPECT_NE(said.find(folder().string()), std::string::npos) << said;
  EXPECT_FALSE(sim::appsupport::serves(sim::product::settingsCentre));
}

TEST_F(SocketFolder, ThatIsALinkIsNotFollowed) {
  fs::create_directories(root / "elsewhere");
  fs::create_directories(folder().parent_path());
  fs::create_directory_symlink(root / "elsewhere", folder());
  testing::internal::CaptureStderr();
  serve();
  EXPECT_NE(testing::internal::GetCapturedStderr(), "");
  EXPECT_FALSE(sim::appsupport::serves(sim::product::settingsCentre));
  EXPECT_TRUE(fs::is_empty(root / "elsewhere"));
}

TEST_F(SocketFolder, ComesWithTheFirstServerAndGoesWithTheHomeScreen) {
  messages.emplace(root);
  EXPECT_FALSE(fs::exists(folder()));
  centre().runServerOnCurrentThread();
  EXPECT_TRUE(fs::is_socket(socket()));
  messages.reset();
  EXPECT_FALSE(fs::exists(folder()));
  EXPECT_EQ(static_cast<Outcome>(sendOne(root, "hello", {})), Outcome::unserved);
}

TEST_F(SocketFolder, GoesAtExitToo) {
  EXPECT_EXIT(
      {
        serve();
        std::exit(fs::exists(socket()) ? 7 : 8);
      },
      testing::ExitedWithCode(7), "");
  EXPECT_FALSE(fs::exists(folder()));
}

TEST_F(SocketFolder, StaysWhereAForkedProcessEnds) {
  serve();
  EXPECT_EXIT(std::exit(7), testing::ExitedWithCode(7), "");
  EXPECT_TRUE(fs::exists(socket()));
  expectServing();
}

TEST_F(SocketFolder, OfACrashedHomeScreenIsTakenOver) {
  Client crashed([&] {
    serve();
    return fs::exists(socket()) ? 9 : 1;
  });
  while (!crashed.ended()) usleep(1000);
  ASSERT_EQ(crashed.status(), 9);
  ASSERT_TRUE(fs::is_socket(socket()));
  EXPECT_EQ(static_cast<Outcome>(sendOne(root, "hello", {})), Outcome::unserved);
  serve();
  expectServing();
}

TEST_F(SocketFolder, OfALivingHomeScreenIsLeftAlone) {
  serve();
  Client second([&] {
    messages.reset();  // of this process: a copy that has no right to clear up
    serve();
    return sim::appsupport::serves(sim::product::settingsCentre) ? 1 : 0;
  });
  while (!second.ended()) usleep(1000);
  EXPECT_TRUE(fs::is_socket(socket()));
  expectServing();
}

TEST_F(SocketFolder, MayLieBelowARootWithALongPath) {
  for (int i = 0; i < 13; ++i) root /= std::string(80, 'a' + i);
  fs::create_directories(root);
  ASSERT_GT(socket().native().size(), 10 * sizeof(sockaddr_un::sun_path));
  serve();
  EXPECT_TRUE(fs::is_socket(socket()));
  expectServing();
  messages.reset();
  EXPECT_FALSE(fs::exists(folder()));
}

TEST_F(SocketFolder, HasNoPlaceForANameThatIsNone) {
  EXPECT_TRUE(sim::appsupport::socketAddress(3, std::string(70, 'x')));
  EXPECT_FALSE(sim::appsupport::socketAddress(3, std::string(71, 'x')));
  EXPECT_FALSE(sim::appsupport::socketAddress(3, "../outside"));
  EXPECT_FALSE(sim::appsupport::socketAddress(3, ""));
  // With the longest descriptor the whole name still fits.
  const auto address = sim::appsupport::socketAddress(2'147'483'647, std::string(70, 'x'));
  EXPECT_TRUE(std::string(address->sun_path).ends_with("x.sock"));
  messages.emplace(root);
  testing::internal::CaptureStderr();
  CPDistributedMessagingCenter::centerNamed("../outside"_ns).runServerOnCurrentThread();
  EXPECT_NE(testing::internal::GetCapturedStderr().find("../outside"), std::string::npos);
  EXPECT_FALSE(sim::appsupport::serves("../outside"));
}

}  // namespace
