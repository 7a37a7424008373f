// Folders for devices that are not kept, and files that were not written to their end.
#include "simulator/device/temporary_root.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <set>

#include "simulator/device/file_system.hpp"
#include "simulator/device/unfinished_files.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

std::set<std::string> namesIn(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
  return names;
}

TEST(TemporaryRoot, GoesWithAllThatIsInIt) {
  fs::path path;
  {
    const TemporaryRoot root;
    path = root.path();
    fs::create_directories(path / "a/b");
    EXPECT_TRUE(fs::is_directory(path));
  }
  EXPECT_FALSE(fs::exists(path));
}

TEST(TemporaryRoot, GoesAtExitWhenNobodyDestroysIt) {
  const TemporaryRoot place;
  ::setenv("TMPDIR", place.path().c_str(), 1);
  EXPECT_EXIT(
      {
        const TemporaryRoot root;
        FileSystem files(root.path());
        files.refuse("/", Faults::both, EACCES);
        if (!fs::exists(place.path() / root.path().filename())) std::exit(1);
        std::exit(7);
      },
      testing::ExitedWithCode(7), "");
  EXPECT_TRUE(fs::is_empty(place.path()));
  ::unsetenv("TMPDIR");
}

// The place for temporary files is a folder of the test's own.
class AbandonedRoot : public testing::Test {
 protected:
  TemporaryRoot place;

  void SetUp() override { ::setenv("TMPDIR", place.path().c_str(), 1); }
  void TearDown() override { ::unsetenv("TMPDIR"); }

  // Another process that makes one and lives on.
  static pid_t makeElsewhere() {
    int ends[2];
    EXPECT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
      const TemporaryRoot root;
      fs::create_directories(root.path() / "var/mobile");
      (void)!::write(ends[1], "x", 1);
      for (;;) ::pause();
    }
    char made = 0;
    EXPECT_EQ(::read(ends[0], &made, 1), 1);
    ::close(ends[0]);
    ::close(ends[1]);
    return child;
  }
  static void kill(pid_t child) {
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
  }
};

TEST_F(AbandonedRoot, OfAKilledProcessGoesWhenTheNextIsMade) {
  kill(makeElsewhere());
  ASSERT_EQ(namesIn(place.path()).size(), 1u);
  const TemporaryRoot next;
  EXPECT_EQ(namesIn(place.path()), std::set<std::string>{next.path().filename()});
}

TEST_F(AbandonedRoot, OfALivingProcessStays) {
  const pid_t child = makeElsewhere();
  {
    const TemporaryRoot next;
    EXPECT_EQ(namesIn(place.path()).size(), 2u);
  }
  EXPECT_EQ(namesIn(place.path()).size(), 1u);
  kill(child);
}

TEST_F(AbandonedRoot, IsNothingOfAnotherName) {
  for (const char* name : {"tilo", "tilo-sim-", "tilo-sim-notes", "tilo-sim-sevenev", "other"})
    fs::create_directory(place.path() / name);
  std::ofstream(place.path() / "tilo-sim-abcdef");  // a file
  fs::create_directory_symlink(place.path() / "other", place.path() / "tilo-sim-fedcba");
  const auto before = namesIn(place.path());
  {
    const TemporaryRoot next;
  }
  EXPECT_EQ(namesIn(place.path()), before);
}

TEST(UnfinishedFiles, AreThoseThatFoundationHadNotRenamed) {
  const TemporaryRoot folder;
  const std::set<std::string> others{"a.plist",        "config.json", "a.plistAb3xY", "config.json.damage",
                                     "note.txtAb3xYz", ".plist",      "a.plist-backu"};
  for (const std::string& name : others) std::ofstream(folder.path() / name) << "x";
  for (const char* name : {"a.plistAb3xYz", "config.json000000"}) std::ofstream(folder.path() / name) << "x";
  removeUnfinishedFiles(folder.path());
  EXPECT_EQ(namesIn(folder.path()), others);
}

TEST(UnfinishedFiles, AreNoFolders) {
  const TemporaryRoot folder;
  fs::create_directory(folder.path() / "b.plistAb3xYz");
  removeUnfinishedFiles(folder.path());
  EXPECT_EQ(namesIn(folder.path()).size(), 1u);
}

TEST(UnfinishedFiles, OfAFolderThatIsNotThereAreNone) { removeUnfinishedFiles("/nowhere/at/all"); }

}  // namespace
}  // namespace sim
