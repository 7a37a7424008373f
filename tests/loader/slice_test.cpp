// The slice that ships, in a home screen on its own processor; and what else is opened there.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "simulator/device/image.hpp"
#include "simulator/device/temporary_root.hpp"
#include "tests/loader/home_screen.hpp"

namespace {

namespace image = sim::image;

#ifdef __aarch64__
const std::string architecture = "arm64";
#else
const std::string architecture = "armv7";
#endif
const std::string pane = BUILT "/TiloPane-universal";

void* opened(const std::string& file) {
  std::string error;
  void* found = image::open(file, error);
  EXPECT_NE(found, nullptr) << error;
  return found;
}

std::string refusal(const std::string& file) {
  std::string error;
  EXPECT_EQ(image::open(file, error), nullptr);
  return error;
}

// A copy of the slice with something done to it.
std::string written(const sim::TemporaryRoot& folder, const std::string& contents) {
  const std::string file = folder.path() / "slice";
  std::ofstream(file, std::ios::binary) << contents;
  return file;
}

TEST(TheSlice, LaysTheHomeScreenOutByTheSettings) {
  test::HomeScreen home(
      {"--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=5", "--set", "columns=3"});
  const sim::Json report = home.report();
  EXPECT_EQ(report["pages"][0]["rows"], 5);
  EXPECT_EQ(report["pages"][0]["columns"], 3);
}

TEST(TheSlice, IsTakenFromFilesOfDevices) { EXPECT_TRUE(image::takesDeviceFiles()); }

TEST(TheSlice, IsLoadedOnce) {
  test::HomeScreen home;
  EXPECT_EQ(opened(test::shipped), home.library());
}

TEST(TheSlice, IsLoadedFromEachFile) {
  test::HomeScreen home;
  const sim::TemporaryRoot folder;
  const std::string copy = folder.path() / "Tilo.dylib";
  std::filesystem::copy_file(test::shipped, copy);
  void* other = opened(copy);
  EXPECT_NE(other, home.library());
  EXPECT_NE(image::symbol(other, "framing"), nullptr);
  EXPECT_NE(image::symbol(other, "framing"), image::symbol(home.library(), "framing"));
}

TEST(TheSlice, HasItsSymbolsByName) {
  test::HomeScreen home;
  const void* framing = image::symbol(home.library(), "framing");
  ASSERT_NE(framing, nullptr);
  EXPECT_NE(image::symbol(home.library(), "hookOutcomes"), framing);
  EXPECT_EQ(image::symbol(home.library(), "noSymbolOfThatName"), nullptr);
}

TEST(TheSlice, HasThemForWhoeverAsksAllImages) {
  test::HomeScreen home;
  EXPECT_EQ(image::symbol(RTLD_DEFAULT, "framing"), image::symbol(home.library(), "framing"));
}

TEST(TheSlice, HasNoneOfTheProcessAndTheProcessNoneOfIts) {
  test::HomeScreen home;
  EXPECT_EQ(image::symbol(home.library(), "strlen"), nullptr);
  void* process = dlopen(nullptr, RTLD_NOW);
  EXPECT_EQ(image::symbol(process, "framing"), nullptr);
  EXPECT_EQ(image::symbol(process, "strlen"), dlsym(process, "strlen"));
}

TEST(Files, OfThisMachineAreLoadedAsItsOwn) {
  void* own = opened(BUILT "/" + architecture + "/libIconSupport.so");
  EXPECT_EQ(dlopen((BUILT "/" + architecture + "/libIconSupport.so").c_str(), RTLD_NOW | RTLD_NOLOAD), own);
}

TEST(Files, ThatAreNotThereAreRefusedByThisMachine) {
  EXPECT_NE(refusal("/nowhere").find("cannot open shared object file"), std::string::npos);
}

TEST(Files, OfFourBytesOrFewerAreNoSlices) {
  const sim::TemporaryRoot folder;
  EXPECT_NE(refusal(written(folder, "\xca\xfe\xba")).find("too short"), std::string::npos);
}

TEST(Files, ThatALoaderWouldRefuseAreRefusedByTheirProcessor) {
  const sim::TemporaryRoot folder;
  std::ifstream in(test::shipped, std::ios::binary);
  std::string contents{std::istreambuf_iterator<char>(in), {}};
  for (size_t at = 0x5000; at < contents.size(); at += 0x1000) contents[at] ^= 1;
  EXPECT_TRUE(refusal(written(folder, contents)).starts_with(architecture + ": "));
}

// Data is no code.
TEST(TheSlice, IsNamedByACrashWhateverElseIsLoaded) {
  test::HomeScreen home;
  opened(pane);
  auto framing = reinterpret_cast<void (*)()>(image::symbol(home.library(), "framing"));
  EXPECT_DEATH(framing(), "with the " + architecture + " slice running");
}

TEST(ThePage, IsLoadedByRulesOfItsOwn) {
  test::HomeScreen home;
  EXPECT_NE(opened(pane), home.library());
}

}  // namespace
