// The redirection of the device's paths: the replaced functions of the C library, called for real.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <set>

#include "device_fixture.hpp"
#include "probe/probe.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

class FileSystemTest : public DeviceTest {};

constexpr const char* notes = "/var/mobile/Documents/notes.txt";

TEST_F(FileSystemTest, AFileOfTheDeviceLiesBelowTheRoot) {
  EXPECT_EQ(probeWrite(notes, "hello"), 0);
  EXPECT_EQ(contents(files.root() / "var/mobile/Documents/notes.txt"), "hello");
  EXPECT_EQ(probeRead(notes), "hello");
  EXPECT_EQ(files.hostPath(notes), files.root() / "var/mobile/Documents/notes.txt");
}

TEST_F(FileSystemTest, APathOfTheHostIsUntouched) {
  const TemporaryRoot elsewhere;
  const std::string path = elsewhere.path() / "file";
  EXPECT_EQ(probeWrite(path.c_str(), "host"), 0);
  EXPECT_EQ(contents(path), "host");
  struct stat status;
  EXPECT_EQ(stat("/var", &status), 0);
  EXPECT_FALSE(fs::exists(files.root() / "var/tmp"));
  EXPECT_EQ(access("/var/tmp", F_OK), 0);
}

TEST_F(FileSystemTest, AFolderThatOnlyBeginsLikeTheDevicesIsTheHosts) {
  EXPECT_EQ(mkdir((files.root() / "Librarian").c_str(), 0755), 0);
  EXPECT_NE(access("/Librarian", F_OK), 0);
  EXPECT_EQ(access("/Library", F_OK), 0);
}

TEST_F(FileSystemTest, ARelativePathCountsFromTheRoot) {
  EXPECT_EQ(probeWrite("var/mobile/Documents/notes.txt", "relative"), 0);
  EXPECT_EQ(probeRead(notes), "relative");
}

TEST_F(FileSystemTest, ThePathOfTheRootItselfIsNotPutBelowTheRoot) {
  const std::string path = files.hostPath(notes);
  EXPECT_EQ(probeWrite(path.c_str(), "direct"), 0);
  EXPECT_EQ(probeRead(notes), "direct");
}

TEST_F(FileSystemTest, HasTheFoldersOfADevice) {
  for (const char* folder : {"/var/mobile/Library/Preferences", "/var/mobile/Documents", "/Applications",
                             "/Library/MobileSubstrate/DynamicLibraries", "/System/Library"}) {
    struct stat status;
    ASSERT_EQ(stat(folder, &status), 0) << folder;
    EXPECT_TRUE(S_ISDIR(status.st_mode)) << folder;
  }
  EXPECT_NE(access("/bootstrap/Library/SBInject", F_OK), 0);
}

TEST(FileSystem, TheOtherLoaderHasItsOwnFolder) {
  const TemporaryRoot root;
  const FileSystem files(root.path(), InjectionLoader::sbinject);
  EXPECT_EQ(access("/bootstrap/Library/SBInject", F_OK), 0);
  EXPECT_NE(access("/Library/MobileSubstrate/DynamicLibraries", F_OK), 0);
}

TEST(FileSystem, EndsWithItsObject) {
  const fs::path before = fs::current_path();
  const TemporaryRoot root;
  {
    const FileSystem files(root.path());
    EXPECT_EQ(fs::current_path(), files.root());
    EXPECT_EQ(probeWrite(notes, "kept"), 0);
  }
  EXPECT_EQ(fs::current_path(), before);
  EXPECT_EQ(probeRead(notes), "[" + std::to_string(ENOENT) + "]");
  EXPECT_EQ(access((root.path() / "var/mobile/Documents/notes.txt").c_str(), F_OK), 0);
}

TEST_F(FileSystemTest, ThereIsOneAtATime) {
  const TemporaryRoot other;
  EXPECT_THROW(FileSystem{other.path()}, std::logic_error);
}

TEST(FileSystem, TheHostsRootIsNotADevice) { EXPECT_THROW(FileSystem{"/"}, fs::filesystem_error); }

TEST_F(FileSystemTest, EveryFunctionThatTakesAPathIsRedirected) {
  ASSERT_EQ(probeWrite(notes, "hello"), 0);
  const fs::path host = files.hostPath(notes);
  struct stat status;
  EXPECT_EQ(stat(notes, &status), 0);
  EXPECT_EQ(status.st_size, 5);
  EXPECT_EQ(status.st_mode & 0777 & ~0640u, 0u);  // the mode that open was given went through
  EXPECT_EQ(lstat(notes, &status), 0);
  EXPECT_EQ(chmod(notes, 0600), 0);
  EXPECT_EQ(chown(notes, getuid(), getgid()), 0);
  EXPECT_EQ(link(notes, "/Library/second"), 0);
  EXPECT_TRUE(fs::equivalent(host, files.root() / "Library/second"));
  EXPECT_EQ(unlink("/Library/second"), 0);
  EXPECT_EQ(rename(notes, "/Library/renamed"), 0);
  EXPECT_FALSE(fs::exists(host));
  EXPECT_EQ(contents(files.root() / "Library/renamed"), "hello");
  const timespec times[2] = {{1, 0}, {1000, 0}};
  EXPECT_EQ(utimensat(AT_FDCWD, "/Library/renamed", times, 0), 0);
  EXPECT_EQ(stat("/Library/renamed", &status), 0);
  EXPECT_EQ(status.st_mtime, 1000);
  EXPECT_EQ(mkdir("/Library/Folder", 0755), 0);
  EXPECT_TRUE(fs::is_directory(files.root() / "Library/Folder"));
  EXPECT_EQ(rmdir("/Library/Folder"), 0);
  struct statvfs volume;
  EXPECT_EQ(statvfs("/Library", &volume), 0);
  EXPECT_EQ(chdir("/Library"), 0);
  EXPECT_EQ(fs::current_path(), files.root() / "Library");
}

TEST_F(FileSystemTest, AFolderOfTheDeviceCanBeListed) {
  write(files.root() / "Library/one", "");
  std::set<std::string> names;
  DIR* folder = opendir("/Library");
  ASSERT_NE(folder, nullptr);
  while (const dirent* entry = readdir(folder)) names.insert(entry->d_name);
  closedir(folder);
  EXPECT_EQ(names, (std::set<std::string>{".", "..", "Application Support", "MobileSubstrate", "one"}));
}

TEST_F(FileSystemTest, ATemporaryFileGetsItsNameInTheCallersText) {
  char text[] = "/var/mobile/Documents/fileXXXXXX";
  const int descriptor = mkstemp(text);
  ASSERT_GE(descriptor, 0);
  close(descriptor);
  EXPECT_TRUE(std::string_view(text).starts_with("/var/mobile/Documents/file"));
  EXPECT_FALSE(std::string_view(text).ends_with("XXXXXX"));
  EXPECT_EQ(access(files.hostPath(text).c_str(), F_OK), 0);
}

TEST_F(FileSystemTest, ALinkBetweenPlacesOfTheDeviceStaysThere) {
  ASSERT_EQ(probeWrite(notes, "linked"), 0);
  ASSERT_EQ(symlink(notes, "/Library/link"), 0);
  EXPECT_EQ(probeRead("/Library/link"), "linked");
  char text[64] = {};
  EXPECT_EQ(readlink("/Library/link", text, sizeof text),
            static_cast<ssize_t>(std::string_view(notes).size()));
  EXPECT_STREQ(text, notes);
  char shortText[4] = {};
  EXPECT_EQ(readlink("/Library/link", shortText, 3), 3);
  EXPECT_STREQ(shortText, "/va");
}

TEST_F(FileSystemTest, ARealPathIsTheDevicesName) {
  ASSERT_EQ(probeWrite(notes, "x"), 0);
  ASSERT_EQ(symlink("../var/mobile/Documents", "/Library/Documents"), 0);
  char text[PATH_MAX];
  ASSERT_NE(realpath("/Library/Documents/notes.txt", text), nullptr);
  EXPECT_STREQ(text, notes);
  char* made = realpath("/Library/./Documents/..", nullptr);
  EXPECT_STREQ(made, "/var/mobile");
  free(made);
  EXPECT_EQ(realpath("/Library/nothing", text), nullptr);
}

TEST_F(FileSystemTest, ALibraryOfTheDeviceIsOpenedBelowTheRoot) {
  const char* const path = "/Library/MobileSubstrate/DynamicLibraries/Probe.dylib";
  EXPECT_EQ(dlopen(path, RTLD_NOW), nullptr);
  EXPECT_NE(dlerror(), nullptr);
  fs::copy_file(PROBE_FILE, files.hostPath(path));
  void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  void* const function = dlsym(library, "_Z9probeTimev");
  Dl_info info;
  ASSERT_NE(dladdr(function, &info), 0);
  EXPECT_EQ(info.dli_fname, files.hostPath(path));
  dlclose(library);
}

TEST_F(FileSystemTest, AProgramItselfCanStillBeOpened) {
  void* const program = dlopen(nullptr, RTLD_NOW);
  EXPECT_NE(program, nullptr);
  dlclose(program);
}

TEST_F(FileSystemTest, APathThatGrowsTooLongIsRefused) {
  std::string path = "/Library/";
  while (path.size() < PATH_MAX - 8) path += "a/";
  errno = 0;
  EXPECT_EQ(open(path.c_str(), O_RDONLY), -1);
  EXPECT_EQ(errno, ENAMETOOLONG);
  EXPECT_EQ(dlopen(path.c_str(), RTLD_NOW), nullptr);
}

TEST_F(FileSystemTest, APipeOfTheDeviceIsNotWaitedAt) {
  ASSERT_EQ(mkfifo(files.hostPath(notes).c_str(), 0600), 0);
  EXPECT_EQ(probeRead(notes), "");
  EXPECT_EQ(probeRead(notes + 1), "");  // counted from the root
  const int descriptor = open(notes, O_RDONLY);
  EXPECT_GE(descriptor, 0);
  ::close(descriptor);
  errno = 0;
  EXPECT_EQ(open(notes, O_WRONLY), -1);
  EXPECT_EQ(errno, ENXIO);
}

}  // namespace
}  // namespace sim
