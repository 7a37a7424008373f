// A restoration is all or nothing: for the process that does it, for whoever starts after it was killed at
// any of its system calls, and for a SpringBoard that runs meanwhile.
#include <map>

#include "simulator/device/temporary_root.hpp"
#include "simulator/product/settings_tool/pane.hpp"
#include "tests/library/killed.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::Json;
using sim::product::TiloSettings;
namespace fs = std::filesystem;

constexpr const char* backupPath = "/var/mobile/Documents/backup.json";
constexpr const char* notePath = "/var/mobile/Documents/com.wexor.tilo3/restoring.plist";
constexpr const char* userFiles[] = {test::preferencesPath, test::presetsPath, notePath};

constexpr const char* backup = R"({"format": "Tilo backup", "version": 1,
  "settings": {"enabled": true, "icons": true, "rows": 7, "square": true, "horiIconPadding": 12.3, "custom_preset": 1},
  "layouts": [{"name":"First","value":0,"configurable":1,"configuration":{"horizontal_padding":1,
  "vertical_padding":2,"side_inset":3,"top_inset":4.5}}, {"name":"Second","value":1,"configurable":0,
  "configuration":{"horizontal_padding":5,"vertical_padding":6,"side_inset":7,"top_inset":8}}]
})";

std::string oldLayouts() {
  return test::temporaryFile("old.json",
                             test::presetsDocument(Json::array({test::preset("Old", 1, 11, 12, 13, 14)})));
}

class Restoration : public testing::Test {
 protected:
  Restoration()
      : home({"--root", device.path().string(), "--presets", oldLayouts(), "--set", "enabled=YES", "--set",
              "rows=3", "--set", "icons=YES", "--set", "labels=YES", "--set", "custom_preset=0", "--set",
              "somebodyElses=5"}) {
    sim::product::loadPane();
    home.write(backupPath, backup);
    before = filesNow();
  }

  // What another process reads, whole; no entry for a file that is not there.
  using Files = std::map<std::string, std::string>;
  Files filesNow() {
    Files found;
    for (const char* file : userFiles)
      if (fs::exists(home.file(file))) found[file] = home.contents(file);
    return found;
  }
  void put(const Files& files) {
    fs::remove_all(home.file("/var/mobile/Documents/com.wexor.tilo3"));
    fs::remove_all(home.file("/var/mobile/Library/Preferences"));
    fs::create_directories(home.file("/var/mobile/Library/Preferences"));
    fs::create_directories(home.file(test::presetsPath).parent_path());
    for (const auto& [file, contents] : files) home.write(file, contents);
  }

  static std::string restore() {
    bridge::Pool pool;
    const NSString fault = TiloSettings::restoreFrom(NSString::stringWithUTF8String(backupPath));
    return fault ? fault.UTF8String() : "";
  }

  // What a SpringBoard has that starts with these files.
  struct Found {
    Json preferences, presets;
    double rows;
    Files files;
    bool operator==(const Found&) const = default;
  };
  Found started(const Files& files) {
    put(files);
    const test::Run ended =
        test::runSimulator({"--root", device.path().string(), "--pages", "1", "--report", "-"});
    EXPECT_EQ(ended.status, 0) << ended.errors;
    const Json report = Json::parse(ended.output);
    return {report["preferences"].sorted(), report["presets"].sorted(),
            report["pages"][0]["rows"].get<double>(), filesNow()};
  }

  // Names and sizes of all that lies in the user's folders.
  std::map<std::string, std::size_t> sizes() {
    std::map<std::string, std::size_t> found;
    for (const auto& entry : fs::recursive_directory_iterator(home.file("/var/mobile")))
      found[entry.path()] = entry.is_regular_file() ? entry.file_size() : 0;
    return found;
  }

  // The files after a kill wherever that makes a difference to the disk, in their order, begun anew with the
  // same each time.
  std::vector<Files> killEverywhere(const Files& files, const std::function<void()>& work) {
    std::vector<Files> all{files};
    int changes = 0;
    for (bool killed = true; killed;) {
      put(files);
      killed = test::killAtChange(++changes, [this] { return std::pair(filesNow(), sizes()); }, work);
      if (Files found = filesNow(); found != all.back()) all.push_back(std::move(found));
    }
    EXPECT_GT(changes, 5);
    return all;
  }

  // Of one that was killed as soon as it was decided on.
  Files decided() {
    put(before);
    EXPECT_TRUE(test::killAtChange(1, [this] { return fs::exists(home.file(notePath)); }, [] { restore(); }));
    return filesNow();
  }

  sim::TemporaryRoot device;
  test::Home home;
  Files before;
};

TEST_F(Restoration, PutsSettingsAndLayoutsInPlace) {
  EXPECT_EQ(restore(), "");
  const Json values = home.report()["preferences"];
  EXPECT_EQ(values["rows"], 7);
  EXPECT_FALSE(values.contains("labels"));
  EXPECT_EQ(values["somebodyElses"], 5);
  EXPECT_EQ(home.report()["presets"]["configurations"].size(), 2u);
  EXPECT_FALSE(filesNow().contains(notePath));
}

TEST_F(Restoration, MakesTheLayoutsFolderWhereThereIsNone) {
  fs::remove_all(home.file("/var/mobile/Documents/com.wexor.tilo3"));
  home.write(backupPath,
             R"({"format": "Tilo backup", "version": 1, "settings": {"rows": 7}, "layouts": []})");
  EXPECT_EQ(restore(), "");
  EXPECT_EQ(home.report()["preferences"]["rows"], 7);
  EXPECT_TRUE(fs::exists(home.file(test::presetsPath)));
}

TEST_F(Restoration, IsAllOrNothingForASpringBoardThatStartsAfterAKillAtAnySystemCall) {
  put(before);
  ASSERT_EQ(restore(), "");
  const Files after = filesNow();
  const Found old = started(before), fresh = started(after);
  ASSERT_FALSE(old == fresh);
  EXPECT_EQ(old.rows, 3);
  EXPECT_EQ(fresh.rows, 7);
  const std::vector<Files> all = killEverywhere(before, [] { restore(); });
  ASSERT_EQ(all.size(), 5u) << "the old files, the note, the settings, the layouts, and the note gone";
  for (const Files& files : all) {
    const Found found = started(files);
    EXPECT_TRUE(found == (files == before ? old : fresh)) << testing::PrintToString(files);
    // One that runs meanwhile reads the layouts anew: these are not new before all is.
    if (files.at(test::presetsPath) != before.at(test::presetsPath))
      EXPECT_EQ(files.at(test::preferencesPath), after.at(test::preferencesPath));
  }
}

TEST_F(Restoration, IsAllNewOnceDecidedOnWhateverSpringBoardIsKilledAt) {
  const Files files = decided();
  put(before);
  ASSERT_EQ(restore(), "");
  const Found fresh = started(filesNow());
  auto* finish = reinterpret_cast<void (*)()>(test::librarySymbol("tilo::restoration::finish()"));
  const std::vector<Files> killed = killEverywhere(files, [finish] {
    bridge::Pool pool;
    finish();
  });
  EXPECT_EQ(killed.size(), 4u);
  for (const Files& found : killed) EXPECT_TRUE(started(found) == fresh) << testing::PrintToString(found);
}

TEST_F(Restoration, IsFinishedByThePageAndByTheTool) {
  put(decided());
  TiloSettings::useSpecifierFile(sim::product::specifierFile());
  EXPECT_EQ(home.report()["preferences"]["rows"], 7);
  EXPECT_EQ(home.report()["presets"]["configurations"].size(), 2u);
  EXPECT_FALSE(filesNow().contains(notePath));
}

TEST_F(Restoration, LeavesAllAsItWasWhereTheDiskRefusesAnyPartOfIt) {
  for (const char* place :
       {"/var/mobile/Documents/com.wexor.tilo3", test::preferencesPath, test::presetsPath,
        "/var/mobile/Library/Preferences", "/var/mobile/Documents/com.wexor.tilo3/custom"}) {
    put(before);
    home.simulation().fileSystem().refuse(place, sim::Faults::writing, ENOSPC);
    EXPECT_EQ(restore(), "the backup cannot be put in place: the disk refuses it") << place;
    bridge::Pool pool;
    EXPECT_EQ(sim::plain(TiloSettings::storedValues())["rows"], 3) << place;
    home.simulation().fileSystem().allowAll();
    EXPECT_EQ(started(filesNow()).rows, 3) << place;
    EXPECT_EQ(home.report()["presets"]["configurations"].size(), 1u) << place;
    EXPECT_FALSE(filesNow().contains(notePath)) << place;
  }
}

TEST_F(Restoration, IsUndoneBySpringBoardWhereTheDiskRefusesTheRestOfIt) {
  put(decided());
  home.simulation().fileSystem().refuse(test::presetsPath, sim::Faults::writing, ENOSPC);
  {
    bridge::Pool pool;
    reinterpret_cast<void (*)()>(test::librarySymbol("tilo::restoration::finish()"))();
  }
  home.simulation().fileSystem().allowAll();
  EXPECT_EQ(home.report()["preferences"]["rows"], 3);
  EXPECT_FALSE(home.report()["preferences"].contains("square"));
  EXPECT_EQ(home.report()["presets"]["configurations"].size(), 1u);
  EXPECT_FALSE(filesNow().contains(notePath));
}

TEST_F(Restoration, IsNoneWhereTheNoteIsNotOurs) {
  const Found old = started(before);
  for (const char* note : {"", "rubbish", "<plist><dict></dict></plist>",
                           "<plist><dict><key>values</key><integer>1</integer><key>before</key><array/>"
                           "<key>presets</key><string>x</string></dict></plist>",
                           "bplist00"}) {
    Files files = before;
    files[notePath] = note;
    EXPECT_TRUE(started(files) == old) << note;
  }
}

}  // namespace
