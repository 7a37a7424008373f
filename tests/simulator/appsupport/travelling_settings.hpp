// Devices between which layouts and settings go, by tilo-settings.
#pragma once

#include <algorithm>

#include "tests/simulator/appsupport/fixture.hpp"
#include "tests/support/files.hpp"

namespace test {

namespace fs = std::filesystem;

inline constexpr const char* wide = "tilo:1:11.5,26,14.5,30:Wide";

class TravellingSettings : public testing::Test {
 protected:
  TravellingSettings() { makeDevice(root); }

  static void makeDevice(const fs::path& place) {
    fs::create_directories(place / "var/mobile/Library/Preferences");
  }

  test::Run run(std::vector<std::string> words) {
    words.insert(words.begin(), {"--root", root.string()});
    return runSettings(words);
  }

  void expectError(const std::vector<std::string>& words, const std::string& culprit) {
    const test::Run ended = run(words);
    EXPECT_EQ(ended.status, 2);
    EXPECT_NE(ended.errors.find(culprit), std::string::npos) << ended.errors;
    EXPECT_EQ(std::count(ended.errors.begin(), ended.errors.end(), '\n'), 1) << ended.errors;
  }

  // What another process reads, whole.
  std::string preferences() const { return read("var/mobile/Library/Preferences/com.wexor.tilo.plist"); }
  std::string layouts() const { return read("var/mobile/Documents/com.wexor.tilo3/custom/config.json"); }
  std::string read(const char* file) const {
    return fs::exists(root / file) ? contentsOf(root / file) : "(none)";
  }

  std::string backup() {
    const std::string file = (temporary.path() / "backup.json").string();
    EXPECT_EQ(run({"backup", file}).status, 0);
    return file;
  }

  // A backup as somebody has changed it.
  std::string edited(const std::string& file, const std::string& from, const std::string& to) {
    std::string text = contentsOf(file);
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << text;
    text.replace(place, from.size(), to);
    return temporaryFile("edited.json", text);
  }

  void fill() {
    run({"paste", wide});
    run({"paste", "tilo:1:1,2,3,4,scaled:Narrow"});
    run({"set", "Rows", "7"});
    run({"set", "Square Icons", "YES"});
    run({"set", "Layout", "Narrow"});
  }

  sim::TemporaryRoot temporary;
  fs::path root = temporary.path() / "device";
};

}  // namespace test
