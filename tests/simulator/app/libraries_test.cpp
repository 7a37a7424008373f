// More than one library: what each makes of the other's answer, and where they lie on the device.
#include "run.hpp"

namespace {

namespace fs = std::filesystem;
using sim::Json;
using test::Options;
using test::reportOf;

const std::string ours = (fs::canonical("/proc/self/exe").parent_path() / "libTilo.so").string();
constexpr const char* folder = "Library/MobileSubstrate/DynamicLibraries";

double padding(const Options& options) {
  return reportOf(options)["pages"][0]["verticalPadding"].get<double>();
}

// With the switches that make the library answer what is stored.
Options stored(const Options& libraries) {
  return test::joined({"--set", "enabled=YES", "--set", "icons=YES", "--set", "custom_preset=-1", "--set",
                       "vertIconPadding=20", "--set", "horiIconPadding=10", "--set", "sideIconInset=20",
                       "--set", "topIconInset=30"},
                      libraries);
}

TEST(Libraries, ThatReplaceOneMethodAnswerInTheGivenOrder) {
  const double stock = padding({"--stock"});
  EXPECT_EQ(padding({"--library", ADDING_TEN, "--library", DOUBLING}), (stock + 10) * 2);
  EXPECT_EQ(padding({"--library", DOUBLING, "--library", ADDING_TEN}), stock * 2 + 10);
}

TEST(Libraries, GoTogetherWithOursInEitherOrder) {
  const double alone = padding(stored({"--library", ours}));
  EXPECT_NE(alone, padding({"--stock"}));
  EXPECT_EQ(padding(stored({"--library", ours, "--library", ADDING_TEN, "--library", DOUBLING})),
            (alone + 10) * 2);
  // What is loaded before ours is asked by ours alone, which asks nobody while it has a value of its own.
  EXPECT_EQ(padding(stored({"--library", DOUBLING, "--library", ours})), alone);
}

TEST(Libraries, OfOthersLeaveWhatOursTellsAsItIs) {
  const Json alone = reportOf({}), last = reportOf({"--library", DOUBLING, "--library", ours});
  EXPECT_FALSE(alone["hooks"]["rows"].empty());
  EXPECT_EQ(last["hooks"], alone["hooks"]);
  EXPECT_EQ(reportOf({"--library", DOUBLING})["hooks"], nullptr);
}

TEST(Libraries, AreLinkedIntoTheLoadersFolderUnderTheirOwnNames) {
  const sim::TemporaryRoot root, other;
  const fs::path twin = other.path() / fs::path(DOUBLING).filename();
  fs::copy_file(DOUBLING, twin);
  reportOf({"--root", root.path(), "--library", DOUBLING, "--library", ours, "--library", twin});
  const std::string name = fs::path(DOUBLING).stem();
  EXPECT_EQ(fs::read_symlink(root.path() / folder / (name + ".dylib")), DOUBLING);
  EXPECT_EQ(fs::read_symlink(root.path() / folder / "Tilo.dylib"), ours);
  EXPECT_EQ(fs::read_symlink(root.path() / folder / (name + "-2.dylib")), twin);
}

TEST(Libraries, OfOneNameAreLoadedBoth) {
  const sim::TemporaryRoot other;
  const fs::path twin = other.path() / fs::path(DOUBLING).filename();
  fs::copy_file(DOUBLING, twin);
  EXPECT_EQ(padding({"--library", DOUBLING, "--library", twin}), padding({"--stock"}) * 4);
}

TEST(Libraries, ThatAreGivenTwiceAreRefused) {
  test::expectRefused({"--library", DOUBLING, "--library", ADDING_TEN, "--library", DOUBLING},
                      std::string("--library: '") + DOUBLING + "' is there twice");
}

TEST(Libraries, OfWhichOneCannotBeLoadedAreRefusedByItsName) {
  const std::string broken = test::temporaryFile("broken.so", "no library at all");
  test::expectRefused({"--library", DOUBLING, "--library", broken},
                      "the library '" + broken + "' cannot be loaded");
  test::expectRefused({"--library", DOUBLING, "--library", broken + "x"}, "--library: '" + broken + "x'");
}

TEST(Libraries, ThatReplaceWhatIsNotThereAreNamedWhenThatEndsTheProcess) {
  const test::Run run = test::runSimulator({"--library", DOUBLING, "--library", REPLACING_NOTHING});
  EXPECT_NE(run.errors.find("SBIconListView has no method 'noSuchPadding'"), std::string::npos) << run.errors;
  EXPECT_NE(run.errors.find(fs::path(REPLACING_NOTHING).stem()), std::string::npos) << run.errors;
}

Json traced(const Options& options, const std::string& script) {
  return reportOf(options, script)["answers"][0];
}

TEST(Libraries, AreNamedWithWhatEachMakesOfAnAnswer) {
  const double stock = padding({"--stock"});
  const Json told = traced({"--library", ADDING_TEN, "--library", DOUBLING},
                           "keep home SBIconController sharedInstance\nkeep list home currentRootIconList\n"
                           "trace list verticalIconPadding\nsend list verticalIconPadding\n");
  EXPECT_EQ(told["value"], (stock + 10) * 2);
  EXPECT_EQ(told["given"],
            (Json{{{"by", "SpringBoard"}, {"value", stock}},
                  {{"by", fs::path(ADDING_TEN).stem().string() + ".dylib"}, {"value", stock + 10}},
                  {{"by", fs::path(DOUBLING).stem().string() + ".dylib"}, {"value", (stock + 10) * 2}}}));
}

TEST(Libraries, AreNamedForMethodsOfClassesToo) {
  const Json told = traced({"--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=3"},
                           "trace SBIconListView iconRowsForInterfaceOrientation: 1\n");
  EXPECT_EQ(told["given"],
            (Json{{{"by", "SpringBoard"}, {"value", 6}}, {{"by", "Tilo.dylib"}, {"value", told["value"]}}}));
  EXPECT_NE(told["value"], 6);
}

TEST(Libraries, ThatReplaceNothingThereAreNotNamed) {
  const Json told = traced({}, "trace UIScreen mainScreen\n");
  EXPECT_EQ(told["given"], (Json{{{"by", "SpringBoard"}, {"value", "UIScreen"}}}));
}

TEST(Libraries, AnswerAsBeforeWhenTheyHaveBeenAskedOneByOne) {
  const Json told = reportOf({"--library", ADDING_TEN, "--library", DOUBLING},
                             "keep home SBIconController sharedInstance\nkeep list home currentRootIconList\n"
                             "trace list verticalIconPadding\ntrace list verticalIconPadding\n"
                             "send list verticalIconPadding\n")["answers"];
  EXPECT_EQ(told[0], told[1]);
  EXPECT_EQ(told[2]["value"], told[0]["value"]);
}

}  // namespace
