// Files that are read and replaced as a whole.
#include "simulator/device/whole_file.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "device_fixture.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

class WholeFileTest : public DeviceTest {
 protected:
  const std::string folder = "/var/mobile/Documents", file = folder + "/list.plist";

  fs::path onHost(const std::string& path) const { return files.hostPath(path); }
  std::size_t filesInFolder() const {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(onHost(folder)), {}));
  }
  struct stat statusOf(const std::string& path) const {
    struct stat status = {};
    EXPECT_EQ(::stat(onHost(path).c_str(), &status), 0);
    return status;
  }
};

TEST_F(WholeFileTest, HasAllBytesAndTheStateThatTheFileHas) {
  for (const std::size_t length : {0u, 1u, 4096u, 70000u}) {
    const std::string bytes(length, '\0');
    write(onHost(file), bytes);
    const auto read = wholeFile(file);
    ASSERT_TRUE(read) << length;
    EXPECT_EQ(read->bytes, bytes);
    EXPECT_TRUE(stateOf(file) == read->state);
  }
}

TEST_F(WholeFileTest, IsNoneWhereThereIsNone) {
  EXPECT_FALSE(wholeFile(file));
  EXPECT_FALSE(stateOf(file));
}

TEST_F(WholeFileTest, IsNoFolderAndNoPipe) {
  EXPECT_FALSE(wholeFile(folder));
  EXPECT_FALSE(stateOf(folder));
  ASSERT_EQ(::mkfifo(onHost(file).c_str(), 0600), 0);
  EXPECT_FALSE(wholeFile(file));
  EXPECT_FALSE(stateOf(file));
}

TEST_F(WholeFileTest, IsNoneThatIsRefused) {
  write(onHost(file), "text");
  files.refuse(folder, Faults::reading, EACCES);
  EXPECT_FALSE(wholeFile(file));
  EXPECT_FALSE(stateOf(file));
  files.allowAll();
  EXPECT_TRUE(wholeFile(file));
}

TEST_F(WholeFileTest, IsReplacedByAnotherAndNothingIsLeftBesideIt) {
  EXPECT_TRUE(replaceFile(file, "first"));
  EXPECT_EQ(contents(onHost(file)), "first");
  const auto before = stateOf(file);
  EXPECT_TRUE(replaceFile(file, std::string(100'000, 'x')));
  EXPECT_EQ(contents(onHost(file)), std::string(100'000, 'x'));
  EXPECT_NE(stateOf(file)->node, before->node);
  EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(WholeFileTest, ThatIsNewIsEverybodysToRead) {
  ASSERT_TRUE(replaceFile(file, "text"));
  EXPECT_EQ(statusOf(file).st_mode & 07777, 0644u);
}

TEST_F(WholeFileTest, KeepsItsRightsWhenItIsReplaced) {
  write(onHost(file), "text");
  ASSERT_EQ(::chmod(onHost(file).c_str(), 0640), 0);
  ASSERT_TRUE(replaceFile(file, "other"));
  EXPECT_EQ(statusOf(file).st_mode & 07777, 0640u);
}

// Only root can give a file away.
TEST_F(WholeFileTest, KeepsItsOwnerWhenItIsReplaced) {
  const uid_t mobile = ::geteuid() == 0 ? 501 : ::geteuid();
  write(onHost(file), "text");
  ASSERT_EQ(::chown(onHost(file).c_str(), mobile, static_cast<gid_t>(-1)), 0);
  ASSERT_TRUE(replaceFile(file, "other"));
  EXPECT_EQ(statusOf(file).st_uid, mobile);
}

TEST_F(WholeFileTest, StaysAsItIsOnADiskThatRefuses) {
  write(onHost(file), "old");
  files.refuse(folder, Faults::writing, ENOSPC);
  EXPECT_FALSE(replaceFile(file, "new"));
  EXPECT_EQ(contents(onHost(file)), "old");
  EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(WholeFileTest, TakesNoFoldersPlace) {
  fs::create_directory(onHost(file));
  EXPECT_FALSE(replaceFile(file, "text"));
  EXPECT_TRUE(fs::is_directory(onHost(file)));
  EXPECT_EQ(filesInFolder(), 1u);
}

TEST_F(WholeFileTest, TakesALinksPlaceAndLeavesWhatItLedTo) {
  write(onHost(folder + "/other"), "old");
  fs::create_symlink("other", onHost(file));
  EXPECT_TRUE(replaceFile(file, "new"));
  EXPECT_FALSE(fs::is_symlink(onHost(file)));
  EXPECT_EQ(contents(onHost(folder + "/other")), "old");
}

}  // namespace
}  // namespace sim
