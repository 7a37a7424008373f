// The command line.
#include "simulator/app/options.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <vector>

#include "simulator/device/temporary_root.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/product.hpp"
#include "simulator/product/start_files.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

Options parse(std::vector<std::string> words) {
  std::vector<const char*> arguments{"tilo-sim"};
  for (const std::string& word : words) arguments.push_back(word.c_str());
  return parseOptions(static_cast<int>(arguments.size()), arguments.data(), product::program().options);
}

std::string errorOf(const std::vector<std::string>& words) {
  try {
    parse(words);
  } catch (const UsageError& error) {
    return error.what();
  }
  return "no error";
}

class OptionFiles : public testing::Test {
 protected:
  TemporaryRoot folder;
  std::string file = folder.path() / "file";
  std::string missing = folder.path() / "missing";

  void SetUp() override { std::ofstream(file) << "x"; }
};

TEST(Options, WithoutArgumentsAreTheDefaults) {
  const Options options = parse({});
  EXPECT_EQ(options.device->name, "iPhone 7");
  EXPECT_EQ(options.ios.text(), "10.3.3");
  EXPECT_EQ(options.orientation, Orientation::portrait);
  EXPECT_EQ(options.pages, 3);
  EXPECT_FALSE(options.icons);
  EXPECT_FALSE(options.root || !options.libraries.empty());
  EXPECT_FALSE(options.script || options.snapshot || options.report);
  EXPECT_TRUE(options.more.empty());
  EXPECT_FALSE(options.stock || options.iconSupport || options.listing);
  EXPECT_EQ(options.loader, InjectionLoader::substrate);
  EXPECT_EQ(options.springboard, springboard::Methods::real);
}

TEST(Options, TakeValuesInBothSpellings) {
  const Options options = parse({"--device", "iPad Pro (12.9-inch)", "--ios=9.3.2", "--orientation",
                                 "landscape", "--pages=5", "--icons", "7", "--stock", "--icon-support",
                                 "--loader=sbinject", "--list-devices", "--springboard=complete"});
  EXPECT_EQ(options.device->name, "iPad Pro (12.9-inch)");
  EXPECT_EQ(options.ios.text(), "9.3.2");
  EXPECT_EQ(options.orientation, Orientation::landscape);
  EXPECT_EQ(options.pages, 5);
  EXPECT_EQ(options.icons, 7);
  EXPECT_TRUE(options.stock && options.iconSupport);
  EXPECT_EQ(options.listing, Listing::devices);
  EXPECT_EQ(options.loader, InjectionLoader::sbinject);
  EXPECT_EQ(options.springboard, springboard::Methods::complete);
}

TEST(Options, TheVersionFollowsTheDevice) {
  EXPECT_EQ(parse({"--device", "iPhone 4s"}).ios.text(), "9.3.6");
  EXPECT_EQ(errorOf({"--ios", "9.3"}), "system version '9.3': iPhone 7 ran 10.0 to 12.4.1");
  EXPECT_EQ(errorOf({"--ios", ""}), "unknown system version ''");
  EXPECT_EQ(errorOf({"--device", "iPhone 99"}), "unknown device 'iPhone 99' (--list-devices shows them)");
}

TEST(Options, AnUnknownOptionIsNamed) {
  for (const char* option : {"--window", "--record", "--devise", "extra", "-x"}) {
    const std::string error = errorOf({option});
    EXPECT_NE(error.find(option), std::string::npos) << error;
    EXPECT_EQ(error.find('\n'), std::string::npos) << error;
  }
}

TEST(Options, AnOptionWithoutItsValueIsNamed) {
  for (const char* option : {"--device", "--ios", "--pages", "--set", "--script"}) {
    const std::string error = errorOf({option});
    EXPECT_NE(error.find(option), std::string::npos) << error;
  }
}

TEST(Options, AnOptionGivenTwiceIsNamed) {
  const std::string error = errorOf({"--device", "iPhone 7", "--device", "iPhone 8"});
  EXPECT_NE(error.find("--device"), std::string::npos) << error;
}

TEST(Options, PagesAreOneToFifteen) {
  EXPECT_EQ(parse({"--pages", "15"}).pages, 15);
  EXPECT_EQ(errorOf({"--pages", "0"}), "--pages: 0 is not between 1 and 15");
  EXPECT_EQ(errorOf({"--pages", "16"}), "--pages: 16 is not between 1 and 15");
  EXPECT_EQ(errorOf({"--pages", "-1"}), "--pages: -1 is not between 1 and 15");
  for (const char* text : {"two", "2.5", "2x", "99999999999", ""})
    EXPECT_NE(errorOf({"--pages", text}).find("--pages"), std::string::npos) << text;
}

TEST(Options, IconsFitOnFifteenPages) {
  EXPECT_EQ(parse({"--icons", "360"}).icons, 360);
  EXPECT_EQ(errorOf({"--icons", "361"}), "--icons: 361 is not between 1 and 360");
  EXPECT_EQ(errorOf({"--icons", "0"}), "--icons: 0 is not between 1 and 360");
}

TEST(Options, WordsOfOtherVocabulariesAreNamed) {
  EXPECT_EQ(errorOf({"--orientation", "sideways"}), "--orientation: unknown value 'sideways'");
  EXPECT_EQ(errorOf({"--loader", "other"}), "--loader: unknown value 'other'");
  EXPECT_EQ(errorOf({"--springboard", "other"}), "--springboard: unknown value 'other'");
}

TEST(Options, SettingsHaveTypes) {
  const Options options = parse({"--set",        "on=YES",       "--set",
                                 "off=NO",       "--set",        "whole=5",
                                 "--set",        "real=5.0",     "--set=below=-13",
                                 "--set",        "power=1e3",    "--set",
                                 "text=5 icons", "--set",        "empty=",
                                 "--set",        "equation=a=b", "--set",
                                 "yes=yes",      "--set",        "plus=+4",
                                 "--set",        "inf=inf",      "--set",
                                 "list=[a,b]",   "--set",        "large=99999999999999999999",
                                 "--set",        "minus=-"});
  const std::vector<Setting> expected{{"on", true},
                                      {"off", false},
                                      {"whole", 5LL},
                                      {"real", 5.0},
                                      {"below", -13LL},
                                      {"power", 1000.0},
                                      {"text", std::string("5 icons")},
                                      {"empty", std::string()},
                                      {"equation", std::string("a=b")},
                                      {"yes", std::string("yes")},
                                      {"plus", 4LL},
                                      {"inf", std::string("inf")},
                                      {"list", std::string("[a,b]")},
                                      {"large", 1e20},
                                      {"minus", std::string("-")}};
  EXPECT_EQ(product::settingsOf(options), expected);
}

TEST(Options, OfOneKeyTheLastValueCounts) {
  const Options options = parse({"--set", "rows=5", "--set", "columns=4", "--set", "rows=NO"});
  EXPECT_EQ(product::settingsOf(options), (std::vector<Setting>{{"rows", false}, {"columns", 4LL}}));
}

TEST(Options, ASettingWithoutAKeyIsNamed) {
  EXPECT_EQ(errorOf({"--set", "rows"}), "--set: 'rows' is not KEY=VALUE");
  EXPECT_EQ(errorOf({"--set", "=5"}), "--set: '=5' is not KEY=VALUE");
  EXPECT_NE(errorOf({"--set", "a=1", "b=2"}).find("b=2"), std::string::npos);
}

TEST_F(OptionFiles, BecomeAbsolute) {
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  const Options options = parse({"--prefs", "file", "--presets=file", "--library", "file", "--script", "file",
                                 "--snapshot", "new.png", "--report", "new.json", "--root", "device/"});
  fs::current_path(before);
  EXPECT_EQ(options.more.at("--prefs"), std::vector{file});
  EXPECT_EQ(options.more.at("--presets"), std::vector{file});
  EXPECT_EQ(options.libraries, std::vector<fs::path>{file});
  EXPECT_EQ(options.script, file);
  EXPECT_EQ(options.snapshot, folder.path() / "new.png");
  EXPECT_EQ(options.report, folder.path() / "new.json");
  EXPECT_EQ(options.root, folder.path() / "device/");
}

TEST_F(OptionFiles, AMinusIsAStandardStream) {
  const Options options = parse({"--script", "-", "--report", "-"});
  EXPECT_EQ(options.script, "-");
  EXPECT_EQ(options.report, "-");
}

TEST_F(OptionFiles, ThatAreMissingAreNamed) {
  for (const std::string option : {"--prefs", "--presets", "--library", "--script"}) {
    EXPECT_EQ(errorOf({option, missing}), option + ": '" + missing + "': No such file or directory");
    EXPECT_EQ(errorOf({option, folder.path()}), option + ": '" + folder.path().string() + "' is a folder");
    EXPECT_EQ(errorOf({option, ""}), option + ": '': No such file or directory");
  }
}

TEST_F(OptionFiles, ToWriteNeedAFolder) {
  const std::string bad = missing + "/new";
  EXPECT_EQ(errorOf({"--snapshot", bad}), "--snapshot: no file can be written at '" + bad + "'");
  EXPECT_EQ(errorOf({"--report", folder.path()}),
            "--report: no file can be written at '" + folder.path().string() + "'");
  EXPECT_EQ(errorOf({"--report", ""}), "--report: no file can be written at ''");
}

TEST_F(OptionFiles, ARootIsAFolderOrNothingYet) {
  EXPECT_EQ(parse({"--root", missing}).root, missing);
  for (const std::string& bad : {file, std::string("/"), std::string("/tmp/.."), std::string()})
    EXPECT_EQ(errorOf({"--root", bad}), "--root: '" + bad + "' cannot be the device's folder");
}

TEST(Options, AFlagTakesNoValue) {
  EXPECT_EQ(errorOf({"--stock=yes"}), "--stock takes no value: '--stock=yes'");
}

TEST(Options, AnOptionIsNoValueOfTheOneBefore) {
  EXPECT_EQ(errorOf({"--device", "--stock"}), "--device lacks its value: --device NAME");
  EXPECT_EQ(errorOf({"--device=--stock"}), "unknown device '--stock' (--list-devices shows them)");
}

TEST(Options, HelpIsGivenWhateverElseIsWrong) {
  for (const char* help : {"--help", "-h"})
    EXPECT_EQ(parse({help, "--device", "iPhone 99"}).listing, Listing::help) << help;
}

TEST(Options, HaveNamesOfTheirOwnAndSomethingToSay) {
  std::set<std::string_view> names;
  for (const OptionRow& row : product::program().options) {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_TRUE(row.name.starts_with("--") && !row.help.empty()) << row.name;
  }
}

}  // namespace
}  // namespace sim
