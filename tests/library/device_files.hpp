// Files of the device as a test lays them out, and what the library made of them.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>

#include "bridge/replace.hpp"
#include "tests/support/files.hpp"
#include "tests/support/home.hpp"

namespace test {

using Preparation = std::function<void(sim::Simulation&)>;

// A file with these contents on a device that has not started yet, an hour old.
inline void put(sim::Simulation& device, const std::string& devicePath, const std::string& contents) {
  auto place = device.fileSystem().hostPath(devicePath);
  std::filesystem::create_directories(place.parent_path());
  std::ofstream(place, std::ios::binary) << contents;
  std::filesystem::last_write_time(place,
                                   std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
}

inline Preparation having(const std::string& devicePath, const std::string& contents) {
  return [=](sim::Simulation& device) { put(device, devicePath, contents); };
}

// Looks at the device once, when the library has been loaded and SpringBoard has not begun yet: it begins by
// asking for its icon controller.
inline Preparation whenLoaded(Preparation look) {
  static Preparation looking;
  static sim::Simulation* device = nullptr;
  static bridge::Slot slot;
  using SharedInstance = bridge::ClassMethod<"SBIconController", "sharedInstance", SBIconController()>;
  static constexpr auto sharedInstance = [](id self, SEL selector) -> id {
    if (auto once = std::exchange(looking, nullptr)) once(*device);
    return reinterpret_cast<id (*)(id, SEL)>(slot.implementation())(self, selector);
  };
  return [look = std::move(look)](sim::Simulation& simulation) {
    looking = look;
    device = &simulation;
    Class meta = bridge::classOf(reinterpret_cast<id>(bridge::classNamed<SBIconController>()));
    bridge::replaceMethod(meta, SharedInstance::selector(),
                          reinterpret_cast<IMP>(static_cast<id (*)(id, SEL)>(sharedInstance)), slot);
  };
}

// The preference domain but for the count of pages, which a running home screen writes by itself.
inline sim::Json withoutPageCount(sim::Json values) {
  if (values.isObject()) values.erase("numOfPages");
  return values;
}
inline sim::Json preferencesOf(Home& home) { return withoutPageCount(home.report()["preferences"]); }

// What a file may hold, under a name for the list of tests.
struct Contents {
  const char* name;
  std::string bytes;
};
inline void PrintTo(const Contents& contents, std::ostream* out) { *out << contents.name; }

// Everything that shows whether somebody wrote a file, or put another in its place.
struct FileState {
  bool exists = false;
  std::string contents;
  ino_t inode = 0;
  timespec modified{};
  bool operator==(const FileState& other) const {
    return exists == other.exists && contents == other.contents && inode == other.inode &&
           modified.tv_sec == other.modified.tv_sec && modified.tv_nsec == other.modified.tv_nsec;
  }
};

inline FileState stateOf(sim::Simulation& device, const std::string& devicePath) {
  auto place = device.fileSystem().hostPath(devicePath);
  struct stat status{};
  if (::stat(place.c_str(), &status) != 0) return {};
  return {true, contentsOf(place), status.st_ino, status.st_mtim};
}

// Names of what a folder of the device holds.
inline std::set<std::string> namesIn(Home& home, const std::string& devicePath) {
  std::set<std::string> names;
  for (auto& entry : std::filesystem::directory_iterator(home.file(devicePath)))
    names.insert(entry.path().filename());
  return names;
}

// An XML property list of keys and values.
inline std::string propertyList(const std::string& entries) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
         "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
         "<plist version=\"1.0\">\n<dict>\n" +
         entries + "\n</dict>\n</plist>\n";
}

inline constexpr const char* preferencesFolder = "/var/mobile/Library/Preferences";
inline constexpr const char* documentsFolder = "/var/mobile/Documents";
inline constexpr const char* presetsFolder = "/var/mobile/Documents/com.wexor.tilo3/custom";
inline constexpr const char* emptyPresets = R"({"configurations":[]})";

// What SpringBoard by itself reports of its pages and folder: another process, without the library.
inline sim::Json stockLayout() {
  Run run = runSimulator({"--stock", "--report", "-"});
  EXPECT_EQ(run.status, 0) << run.errors;
  sim::Json report = sim::Json::parse(run.output);
  return {{"pages", report["pages"]}, {"folder", report["folder"]}};
}

inline sim::Json layoutOf(Home& home) {
  sim::Json report = home.report();
  return {{"pages", report["pages"]}, {"folder", report["folder"]}};
}

}  // namespace test
