// Each system call that changes the disk goes wrong in turn, in each way: the process goes on, nothing but
// the change under way is lost, no file is half of one, and what was begun goes at the next start.
#include "tests/support/faulty_disk.hpp"

#include "simulator/app/report_values.hpp"
#include "simulator/device/unfinished_files.hpp"
#include "simulator/runtime/property_list.hpp"
#include "tests/library/killed.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using sim::Json;
using test::DiskFault;
using test::layouts;
using test::PresetsHome;
namespace fs = std::filesystem;

struct Way {
  const char* name;
  DiskFault fault;
};
void PrintTo(const Way& way, std::ostream* out) { *out << way.name; }

class AFaultyDisk : public testing::TestWithParam<Way> {
 protected:
  // At every place of `work` in turn, until there is none any more; `check` looks at what is left each time.
  void everywhere(const fs::path& folder, const std::function<void()>& prepare,
                  const std::function<void()>& work, const std::function<void()>& later,
                  const std::function<void(int place)>& check) {
    int place = 1;
    for (;; ++place) {
      prepare();
      if (!test::FaultyDisk(GetParam().fault, place, folder).strikes(work, later)) break;
      check(place);
    }
    EXPECT_GT(place, 3);
  }

  bool folderGoes() const { return GetParam().fault == DiskFault::goneFolder; }
};

const std::vector<std::string> sliders{"horiIconPadding=10", "vertIconPadding=11", "sideIconInset=12",
                                       "topIconInset=13"};

std::vector<std::string> names(const std::string& document) {
  std::vector<std::string> all;
  for (const Json& record : Json::parse(document)["configurations"]) all.push_back(record["name"]);
  return all;
}

void expectOneFile(const fs::path& folder, const char* name, int place) {
  sim::removeUnfinishedFiles(folder);
  for (const auto& entry : fs::directory_iterator(folder))
    EXPECT_EQ(entry.path().filename(), name) << "place " << place;
}

// The layouts that are left after `work` on "one" and "two", and a later save of "four".
class PresetsOnAFaultyDisk : public AFaultyDisk {
 protected:
  void expectAfter(const std::function<void(PresetsHome&)>& work, const std::vector<std::string>& with,
                   const std::vector<std::string>& without) {
    PresetsHome home(layouts({"one", "two"}), sliders);
    home.open();
    const std::string old = home.contents(test::presetsPath);
    const fs::path folder = home.file(test::presetsFolder);
    everywhere(
        folder,
        [&] {
          fs::remove_all(folder);
          home.write(test::presetsPath, old);
        },
        [&] { work(home); }, [&] { home.panel().saveWithTitle("four"_ns); },
        [&](int place) {
          const std::vector<std::string> found = names(home.contents(test::presetsPath));
          EXPECT_TRUE(found == with || found == without)
              << "place " << place << ": " << testing::PrintToString(found);
          expectOneFile(folder, "config.json", place);
        });
  }
};

TEST_P(PresetsOnAFaultyDisk, HaveAllButTheLayoutThatWasSavedThen) {
  expectAfter([](PresetsHome& home) { home.panel().saveWithTitle("three"_ns); },
              {"one", "two", "three", "four"}, {"one", "two", "four"});
}

TEST_P(PresetsOnAFaultyDisk, HaveTheLayoutThatWasDeletedThenOrNot) {
  expectAfter([](PresetsHome& home) { home.panel().deleteSelectedLayout({}); }, {"two", "four"},
              {"one", "two", "four"});
}

class PreferencesOnAFaultyDisk : public AFaultyDisk {};

Json valuesIn(test::Home& home) {
  const bridge::Pool pool;
  return sim::plain(
      sim::propertyList(NSString::stringWithUTF8String(home.file(test::preferencesPath).string().c_str())));
}

TEST_P(PreferencesOnAFaultyDisk, HaveTheValueThatWasStoredThenWithTheNextOne) {
  test::Home home({"--set", "rows=5", "--set", "sideIconInset=1"});
  const std::string old = home.contents(test::preferencesPath);
  const fs::path folder = home.file(test::preferencesFolder);
  everywhere(
      folder,
      [&] {
        fs::create_directories(folder);
        home.write(test::preferencesPath, old);
      },
      [&] { home.save("sideIconInset"_ns, 44); },
      [&] {
        fs::create_directories(folder);
        home.save("topIconInset"_ns, 33);
      },
      [&](int place) {
        Json found = valuesIn(home);
        EXPECT_EQ(found["sideIconInset"], 44) << "place " << place;
        EXPECT_EQ(found["topIconInset"], 33) << "place " << place;
        if (!folderGoes()) EXPECT_EQ(found["rows"], 5) << "place " << place;
        expectOneFile(folder, "com.wexor.tilo.plist", place);
      });
}

TEST_P(PreferencesOnAFaultyDisk, OfAFirstStartAreNoneOrAllOfThem) {
  test::Home home;
  const std::string whole = home.contents(test::preferencesPath);
  const fs::path folder = home.file(test::preferencesFolder);
  const auto seed = reinterpret_cast<void (*)()>(test::librarySymbol("tilo::seedPreferences()"));
  const auto seeding = [seed] {
    const bridge::Pool pool;
    seed();
  };
  everywhere(
      folder,
      [&] {
        fs::remove_all(folder);
        fs::create_directories(folder);
      },
      seeding,
      [&] {
        // In the copy of the process: its end is what tells.
        const std::string found = home.contents(test::preferencesPath);
        if (!found.empty() && found != whole) std::abort();
        fs::create_directories(folder);
        seeding();
      },
      [&](int place) {
        EXPECT_EQ(home.contents(test::preferencesPath), whole) << "place " << place;
        expectOneFile(folder, "com.wexor.tilo.plist", place);
      });
}

const Way ways[] = {{"Refusal", DiskFault::refusal},
                    {"FullDisk", DiskFault::fullDisk},
                    {"CutShort", DiskFault::cutShort},
                    {"GoneFolder", DiskFault::goneFolder}};
const auto wayName = [](const auto& test) { return test.param.name; };
INSTANTIATE_TEST_SUITE_P(At, PresetsOnAFaultyDisk, testing::ValuesIn(ways), wayName);
INSTANTIATE_TEST_SUITE_P(At, PreferencesOnAFaultyDisk, testing::ValuesIn(ways), wayName);

TEST(KilledAtAnySystemCall, AStoredValueLeavesTheOldFileOrTheNewOne) {
  test::Home home({"--set", "rows=5", "--set", "sideIconInset=1"});
  const std::string old = home.contents(test::preferencesPath);
  const fs::path folder = home.file(test::preferencesFolder);
  const Json before = valuesIn(home);
  Json after = before;
  after["sideIconInset"] = 44.0;
  int with = 0, without = 0, unfinished = 0;
  for (bool killed = true; killed;) {
    home.write(test::preferencesPath, old);
    killed = test::killAtStop(with + without + 1, [&] { home.save("sideIconInset"_ns, 44); });
    const Json found = valuesIn(home);
    EXPECT_TRUE(found == before || found == after) << found;
    ++(found == before ? without : with);
    unfinished += static_cast<int>(std::distance(fs::directory_iterator(folder), {})) - 1;
    expectOneFile(folder, "com.wexor.tilo.plist", with + without);
  }
  EXPECT_GT(without, 5);
  EXPECT_GT(with, 1);
  EXPECT_GT(unfinished, 0);
}

}  // namespace
