// Live relayout: the icons move to the new grid without a restart.
#include <gtest/gtest.h>

#include <climits>
#include <thread>

#include "bridge/replace.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/device.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::original;
using sim::Json;

// Pages are counted when the home screen scrolls, and a notification asks for a relayout. Counts that no home
// screen has are set here, and the handler gets its message by hand.
void setPageCount(int count) { test::libraryVariable<int>("tilo::numOfPages") = count; }

void askForRelayout() { sim::springboard::homeScreen().scrollView->layout({}); }

void layoutIcons(bool onlyCurrentPage) {
  reinterpret_cast<void (*)(bool)>(test::librarySymbol("tilo::layoutIcons(bool)"))(onlyCurrentPage);
}

void forgetController() { test::libraryVariable<bridge::Strong<SBIconController>>("tilo::cont").clear(); }

void showPage(int index) {
  auto& scrollView = sim::springboard::homeScreen().scrollView;
  scrollView->contentOffset.set({index * scrollView->bounds().size.width, 0});
}

Json pagesLaidOut(test::Home& home) {
  Json pages = Json::array();
  for (auto& call : home.report()["relayouts"]) pages.push_back(call["page"]);
  return pages;
}

Json call(int page, double at, const char* entryPoint = "domino") {
  return {{"page", page}, {"duration", 0.6}, {"call", entryPoint}, {"at", at}};
}

TEST(Relayout, LaysOutEveryPageInAscendingOrder) {
  test::Home home({"--pages", "3"});
  setPageCount(3);
  askForRelayout();
  home.step("wait 0");
  EXPECT_EQ(home.report()["relayouts"], Json::array({call(0, 0), call(1, 0), call(2, 0)}));
}

TEST(Relayout, FollowsAScrolledHomeScreenAndANotification) {
  test::Home home({"--pages", "4"});
  showPage(1);
  NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                    {});
  EXPECT_EQ(pagesLaidOut(home), Json::array());
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0, 1, 2, 3}));
}

TEST(Relayout, HappensWhenItIsAskedFor) {
  test::Home home({"--pages", "2"});
  setPageCount(2);
  home.step("wait 1.25");
  EXPECT_EQ(home.report()["relayouts"], Json::array());
  askForRelayout();
  home.step("wait 5");
  EXPECT_EQ(home.report()["relayouts"], Json::array({call(0, 1.25), call(1, 1.25)}));
}

TEST(Relayout, WaitsForALaterTurn) {
  test::Home home;
  setPageCount(3);
  askForRelayout();
  layoutIcons(true);
  EXPECT_EQ(pagesLaidOut(home), Json::array());
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0, 1, 2, 0}));
}

TEST(Relayout, IsMadeAsOftenAsItIsAskedFor) {
  test::Home home;
  setPageCount(3);
  askForRelayout();
  askForRelayout();
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0, 1, 2, 0, 1, 2}));
}

TEST(Relayout, IgnoresTheNotificationItIsGiven) {
  test::Home home;
  setPageCount(1);
  sim::springboard::homeScreen().scrollView->layout("anything"_ns);
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0}));
}

TEST(Relayout, MayBeAskedForOnAnyThread) {
  static std::thread::id laidOutOn;
  struct Watch {
    static void setIconsNeedLayout(SBIconListView self) {
      laidOutOn = std::this_thread::get_id();
      original<setIconsNeedLayout>(self);
    }
  };
  test::Home home;
  bridge::install(
      bridge::replace<SBIconListView, &SBIconListView::setIconsNeedLayout, Watch::setIconsNeedLayout>());
  setPageCount(2);
  std::thread([] { layoutIcons(false); }).join();
  EXPECT_EQ(pagesLaidOut(home), Json::array());
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0, 1}));
  EXPECT_EQ(laidOutOn, std::this_thread::get_id());
}

TEST(Relayout, OfNoPagesDoesNothing) {
  test::Home home;
  for (int count : {0, -1, INT_MIN}) {
    setPageCount(count);
    askForRelayout();
    home.step("wait 1");
    EXPECT_EQ(pagesLaidOut(home), Json::array()) << count;
  }
}

TEST(Relayout, TakesTheCountOfPagesWhenItRuns) {
  test::Home home;
  setPageCount(1);
  askForRelayout();
  setPageCount(2);
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0, 1}));
}

TEST(Relayout, SkipsPagesThatAreNotThere) {
  test::Home home({"--pages", "2"});
  setPageCount(5);
  askForRelayout();
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0, 1}));
}

TEST(Relayout, WorksBeforeTheControllerReferenceIsKept) {
  test::Home home;
  setPageCount(3);
  forgetController();
  askForRelayout();
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0, 1, 2}));
}

TEST(RelayoutOfTheCurrentPage, LaysOutThePageOnScreenAlone) {
  test::Home home({"--pages", "3"});
  showPage(2);
  setPageCount(1);
  layoutIcons(true);
  home.step("wait 0");
  EXPECT_EQ(home.report()["relayouts"], Json::array({call(2, 0)}));
}

TEST(RelayoutOfTheCurrentPage, NeedsNoCountOfPages) {
  test::Home home({"--pages", "3"});
  showPage(1);
  setPageCount(0);
  layoutIcons(true);
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({1}));
}

TEST(RelayoutOfTheCurrentPage, TakesThePageThatIsOnScreenWhenItRuns) {
  test::Home home({"--pages", "3"});
  layoutIcons(true);
  showPage(1);
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({1}));
}

TEST(RelayoutOfTheCurrentPage, IsOfPageZeroWhileNoControllerIsKept) {
  test::Home home({"--pages", "3"});
  showPage(2);
  forgetController();
  layoutIcons(true);
  home.step("wait 0");
  EXPECT_EQ(pagesLaidOut(home), Json::array({0}));
}

// What SpringBoard is asked, in order.
std::vector<std::string> asked;

struct Watch {
  static NSInteger index(SBIconController self) {
    asked.push_back("index");
    return original<index>(self);
  }
  static void getListView(SBIconController self, id* list, id* folder, id* relativePath, NSIndexPath path,
                          BOOL create) {
    asked.push_back("list " + std::to_string(path.indexAtPosition(0)) + (folder ? " folder" : "") +
                    (relativePath ? " path" : "") + (create ? " create" : ""));
    original<getListView>(self, list, folder, relativePath, path, create);
  }
  static void needsLayout(SBIconListView self) {
    asked.push_back("needs layout");
    original<needsLayout>(self);
  }
  static NSString version(UIDevice self) {
    asked.push_back("version");
    return original<version>(self);
  }
  static void domino(SBIconListView self, double seconds, BOOL withDomino) {
    asked.push_back("layout " + std::to_string(seconds) + " domino " + (withDomino == YES ? "YES" : "NO"));
    original<domino>(self, seconds, withDomino);
  }
  static void animated(SBIconListView self, double seconds, NSInteger type) {
    asked.push_back("layout " + std::to_string(seconds) + " type " + std::to_string(type));
    original<animated>(self, seconds, type);
  }

  static void install() {
    using bridge::replace;
    using Controller = SBIconController;
    using List = SBIconListView;
    bridge::install(replace<Controller, &Controller::currentIconListIndex, index>());
    bridge::install(
        replace<Controller, &Controller::getListView_folder_relativePath_forIndexPath_createIfNecessary,
                getListView>());
    bridge::install(replace<List, &List::setIconsNeedLayout, needsLayout>());
    bridge::install(replace<List, &List::layoutIconsIfNeeded_domino, domino>());
    bridge::install(replace<List, &List::layoutIconsIfNeeded_animationType, animated>());
    bridge::install(replace<UIDevice, &UIDevice::systemVersion, version>());
  }
};

using Asked = std::vector<std::string>;

TEST(Relayout, AsksForEachListAndTheVersionPageByPage) {
  test::Home home;
  Watch::install();
  setPageCount(2);
  askForRelayout();
  home.step("wait 0");
  const std::string layout = "layout 0.600000 domino YES";
  EXPECT_EQ(asked, (Asked{"index", "list 0 create", "needs layout", "version", layout, "list 1 create",
                          "needs layout", "version", layout}));
}

TEST(Relayout, AsksForTheCurrentPageEvenWithoutPages) {
  test::Home home;
  Watch::install();
  setPageCount(0);
  askForRelayout();
  home.step("wait 0");
  EXPECT_EQ(asked, Asked{"index"});
}

TEST(Relayout, TellsNewerSystemsTheAnimationsType) {
  test::Home home({"--ios", "11.0"});
  Watch::install();
  setPageCount(1);
  askForRelayout();
  home.step("wait 0");
  EXPECT_EQ(asked, (Asked{"index", "list 0 create", "needs layout", "version", "layout 0.600000 type 1"}));
}

struct Entry {
  const char *version, *call;
};

class RelayoutEntryPoint : public testing::TestWithParam<Entry> {};

TEST_P(RelayoutEntryPoint, FollowsTheSystemVersion) {
  test::Home home({"--device", "iPhone 6s", "--ios", GetParam().version});
  setPageCount(1);
  askForRelayout();
  home.step("wait 0");
  EXPECT_EQ(home.report()["relayouts"], Json::array({call(0, 0, GetParam().call)}));
}

INSTANTIATE_TEST_SUITE_P(Versions, RelayoutEntryPoint,
                         testing::Values(Entry{"9.2", "domino"}, Entry{"9.3.2", "domino"},
                                         Entry{"10.0", "domino"}, Entry{"10.3.3", "domino"},
                                         Entry{"11.0", "animationType"}, Entry{"11.4.1", "animationType"},
                                         Entry{"12.1", "animationType"}));

// Home screens on which the stored spacing is in force.
std::vector<std::string> withSpacing(std::vector<std::string> more = {}) {
  std::vector<std::string> options{"--set", "enabled=YES",       "--set", "custom_preset=-1",
                                   "--set", "vertIconPadding=5", "--set", "horiIconPadding=9",
                                   "--set", "sideIconInset=40",  "--set", "topIconInset=30"};
  options.insert(options.end(), more.begin(), more.end());
  return options;
}

// Where the last icon of a page's first row of four begins, in points from the left.
double fourthIcon(test::Home& home, size_t page) {
  return home.report()["pages"][page]["icons"][3]["frame"][0].get<double>();
}

TEST(Relayout, LetsTheIconsGlideForSixTenthsOfASecond) {
  test::Home home(withSpacing());
  setPageCount(3);
  constexpr double before = 40 + 3 * (60 + 9), after = 20 + 3 * (60 + 29);
  home.save("sideIconInset"_ns, 20);
  home.save("horiIconPadding"_ns, 29);
  EXPECT_EQ(fourthIcon(home, 0), before);
  askForRelayout();
  home.step("wait 0");
  EXPECT_EQ(fourthIcon(home, 0), before);
  double last = before;
  for (int tenths = 1; tenths <= 5; ++tenths) {
    home.step("wait 0.1");
    for (size_t page = 0; page < 3; ++page) {
      EXPECT_GT(fourthIcon(home, page), last) << tenths;
      EXPECT_LT(fourthIcon(home, page), after) << tenths;
    }
    last = fourthIcon(home, 2);
  }
  home.step("wait 0.1");
  for (size_t page = 0; page < 3; ++page) EXPECT_EQ(fourthIcon(home, page), after);
}

TEST(Relayout, LeavesPagesBeyondTheCountAlone) {
  test::Home home(withSpacing());
  setPageCount(2);
  home.save("sideIconInset"_ns, 20);
  askForRelayout();
  home.step("wait 1");
  Json report = home.report();
  EXPECT_EQ(report["pages"][1]["icons"][0]["frame"][0], 20);
  EXPECT_EQ(report["pages"][2]["icons"][0]["frame"][0], 40);
}

TEST(Relayout, LeavesTheDockAndTheIconsOfOtherPagesAlone) {
  test::Home home(withSpacing());
  Json before = home.report();
  home.save("sideIconInset"_ns, 20);
  home.save("vertIconPadding"_ns, 1);
  showPage(1);
  layoutIcons(true);
  home.step("wait 1");
  Json after = home.report();
  EXPECT_EQ(after["dock"], before["dock"]);
  EXPECT_EQ(after["pages"][0]["icons"], before["pages"][0]["icons"]);
  EXPECT_EQ(after["pages"][2]["icons"], before["pages"][2]["icons"]);
  EXPECT_NE(after["pages"][1]["icons"], before["pages"][1]["icons"]);
}

TEST(Relayout, TakesTheSettingsAsTheyAreWhenItRuns) {
  test::Home home(withSpacing());
  setPageCount(1);
  askForRelayout();
  home.save("sideIconInset"_ns, 12);
  home.step("wait 1");
  EXPECT_EQ(home.report()["pages"][0]["icons"][0]["frame"][0], 12);
  home.save("sideIconInset"_ns, 70);
  home.step("wait 1");
  EXPECT_EQ(home.report()["pages"][0]["icons"][0]["frame"][0], 12);
}

TEST(Relayout, PutsTheIconsIntoAnotherCountOfColumns) {
  test::Home home(withSpacing({"--set", "icons=YES", "--set", "columns=4", "--set", "rows=6"}));
  setPageCount(3);
  home.save("columns"_ns, 3);
  askForRelayout();
  home.step("wait 0.6");
  Json page = home.report()["pages"][0];
  EXPECT_EQ(page["icons"].size(), 24u);
  EXPECT_EQ(page["icons"][3]["frame"], Json::array({40, 30 + 74 + 5, 60, 74}));
  EXPECT_EQ(page["icons"][23]["frame"], Json::array({40 + 2 * (60 + 9), 30 + 7 * (74 + 5), 60, 74}));
}

}  // namespace
