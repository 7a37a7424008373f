// Refusals: full disks and files that cannot be read, whoever runs the tests.
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "device_fixture.hpp"
#include "probe/probe.hpp"

namespace sim {
namespace {

class RefusalTest : public DeviceTest {
 protected:
  void SetUp() override { ASSERT_EQ(probeWrite(file, "old"), 0); }

  static constexpr const char* file = "/var/mobile/Documents/file";
};

// The errno of a call that fails with -1; 0 when it does not fail.
int errorOf(long result) { return result == -1 ? errno : 0; }

TEST_F(RefusalTest, AFullDiskRefusesEveryWayOfWriting) {
  files.refuse("/var/mobile", Faults::writing, ENOSPC);
  char text[] = "/var/mobile/Documents/fileXXXXXX";
  EXPECT_EQ(probeWrite(file, "new"), ENOSPC);
  EXPECT_EQ(errorOf(open(file, O_RDWR)), ENOSPC);
  EXPECT_EQ(errorOf(mkstemp(text)), ENOSPC);
  EXPECT_EQ(errorOf(mkdir("/var/mobile/folder", 0755)), ENOSPC);
  EXPECT_EQ(errorOf(rmdir("/var/mobile/Documents")), ENOSPC);
  EXPECT_EQ(errorOf(rename(file, "/Library/file")), ENOSPC);
  EXPECT_EQ(errorOf(rename("/Library", "/var/mobile/Library2")), ENOSPC);
  EXPECT_EQ(errorOf(link("/Library/x", "/var/mobile/x")), ENOSPC);
  EXPECT_EQ(errorOf(symlink("/Library", "/var/mobile/x")), ENOSPC);
  EXPECT_EQ(errorOf(unlink(file)), ENOSPC);
  EXPECT_EQ(errorOf(chmod(file, 0600)), ENOSPC);
  EXPECT_EQ(errorOf(access(file, W_OK)), ENOSPC);
  for (const char* mode : {"w", "a", "r+"}) {
    errno = 0;
    EXPECT_EQ(fopen(file, mode), nullptr) << mode;
    EXPECT_EQ(errno, ENOSPC) << mode;
  }
  EXPECT_EQ(probeRead(file), "old");
}

TEST_F(RefusalTest, AnUnreadableFileCanBeSeenAndWritten) {
  files.refuse(file, Faults::reading, EACCES);
  EXPECT_EQ(probeRead(file), "[" + std::to_string(EACCES) + "]");
  EXPECT_EQ(errorOf(open(file, O_RDONLY)), EACCES);
  EXPECT_EQ(errorOf(open(file, O_RDWR)), EACCES);
  EXPECT_EQ(errorOf(access(file, R_OK)), EACCES);
  EXPECT_EQ(access(file, F_OK), 0);
  struct stat status;
  EXPECT_EQ(stat(file, &status), 0);
  EXPECT_EQ(probeWrite(file, "new"), 0);
}

TEST_F(RefusalTest, AnUnreadableFolderCannotBeListed) {
  files.refuse("/var/mobile/Documents", Faults::reading, EACCES);
  EXPECT_EQ(opendir("/var/mobile/Documents"), nullptr);
  EXPECT_EQ(errno, EACCES);
}

TEST_F(RefusalTest, HoldsForOtherWaysToWriteThePath) {
  files.refuse(file, Faults::both, EIO);
  for (const std::string& path :
       {std::string("var/mobile/Documents/file"), std::string("./var/mobile/Documents/file"),
        std::string("/var/mobile//Documents/./file"), std::string("/var/mobile/Library/../Documents/file"),
        files.hostPath(file).string()})
    EXPECT_EQ(errorOf(open(path.c_str(), O_RDONLY)), EIO) << path;
}

TEST_F(RefusalTest, ConcernsWholeNamesOnly) {
  files.refuse("/var/mobile/Doc", Faults::both, EIO);
  files.refuse("/var/mobile/Documents/file/", Faults::writing, EIO);
  EXPECT_EQ(probeRead(file), "old");
  EXPECT_EQ(probeWrite("/var/mobile/Documents/file2", "x"), 0);
  EXPECT_EQ(probeWrite(file, "x"), EIO);
}

TEST_F(RefusalTest, OfTheRootIsARefusalOfAllTheDeviceAndNothingElse) {
  files.refuse("/", Faults::both, EIO);
  EXPECT_EQ(probeWrite("/Library/x", "x"), EIO);
  EXPECT_EQ(probeWrite("x", "x"), EIO);
  const TemporaryRoot elsewhere;
  EXPECT_EQ(probeWrite((elsewhere.path() / "x").c_str(), "x"), 0);
}

TEST_F(RefusalTest, EndsWhenAllIsAllowed) {
  files.refuse(file, Faults::both, EIO);
  files.allowAll();
  EXPECT_EQ(probeWrite(file, "new"), 0);
  EXPECT_EQ(probeRead(file), "new");
}

TEST(Refusal, EndsWithTheFileSystem) {
  const TemporaryRoot root;
  {
    FileSystem files(root.path());
    files.refuse("/", Faults::both, EIO);
  }
  const FileSystem files(root.path());
  EXPECT_EQ(probeWrite("/Library/x", "x"), 0);
}

}  // namespace
}  // namespace sim
