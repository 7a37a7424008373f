// Every method of the library's classes takes nil, zero and nothing without a raise.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

#include "panel/popup_view.hpp"
#include "settings/gesture_controller.hpp"
#include "settings/log/logger.hpp"
#include "settings/store/configuration_manager.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "startup/grid/geometry.hpp"
#include "tests/library/hud_fixture.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using test::PanelHome;

struct NSMethodSignature : bridge::Face<"NSMethodSignature", NSObject> {
  static constexpr bridge::ClassMethod<"NSMethodSignature",
                                       "signatureWithObjCTypes:", NSMethodSignature(const char*)>
      signatureWithObjCTypes{};
};

// One that is told nothing has zeros for arguments.
struct NSInvocation : bridge::Face<"NSInvocation", NSObject> {
  static constexpr bridge::ClassMethod<"NSInvocation",
                                       "invocationWithMethodSignature:", NSInvocation(NSMethodSignature)>
      invocationWithMethodSignature{};
  MESSAGE Method<"setSelector:", void(SEL)> setSelector;
  MESSAGE Method<"invokeWithTarget:", void(bridge::Object)> invokeWithTarget;
};

// What asserts a view, and what is no message for anybody.
const std::set<std::string> left{"initWithView:", "initWithWindow:", "showHUDAddedTo:animated:", "dealloc",
                                 "release"};

// GNUstep's invocations know no blocks, which travel as objects do.
std::string typesOf(objc_method* method) {
  std::string types = method_getTypeEncoding(method);
  for (size_t at; (at = types.find("@?")) != types.npos;) types.erase(at + 1, 1);
  return types;
}

// Sends every method of the class to what `receiver` answers, each with nothing.
void sendAll(Class cls, const std::function<bridge::Object(const std::string&)>& receiver) {
  unsigned count = 0;
  objc_method** methods = class_copyMethodList(cls, &count);
  EXPECT_GT(count, 0u) << "nothing to send";
  for (unsigned i = 0; i < count; ++i) {
    const std::string name = sel_getName(method_getName(methods[i]));
    if (left.contains(name) || name[0] == '.') continue;
    SCOPED_TRACE(name);
    std::fprintf(stderr, "%s %s\n", class_getName(cls), name.c_str());
    const bridge::Pool turn;
    NSInvocation invocation = NSInvocation::invocationWithMethodSignature(
        NSMethodSignature::signatureWithObjCTypes(typesOf(methods[i]).c_str()));
    invocation.setSelector(method_getName(methods[i]));
    EXPECT_NO_THROW(invocation.invokeWithTarget(receiver(name)));
  }
  std::free(methods);
}

class NothingSentTo : public testing::TestWithParam<const char*> {
 protected:
  PanelHome home{{"showed-setup=NO"}};
};

// Initialisers go to an object that has none yet, everything else to one of its own that is set up.
TEST_P(NothingSentTo, AnObjectIsTaken) {
  const Class cls = objc_getClass(GetParam());
  ASSERT_TRUE(cls);
  const auto allocated = [cls] {
    return bridge::Message<"alloc", bridge::Object()>::send(reinterpret_cast<id>(cls)).leak();
  };
  sendAll(cls, [&](const std::string& name) {
    const id made = allocated();  // kept for ever: timers and threads may still be on their way
    if (name.starts_with("init")) return bridge::as<bridge::Object>(made);
    return bridge::as<bridge::Object>(bridge::Message<"init", bridge::Object()>::send(made).leak());
  });
  home.wait(5);
}

INSTANTIATE_TEST_SUITE_P(Of, NothingSentTo,
                         testing::Values("DPHLogger", "ConfigurationManager", "RQGestureController", "value",
                                         "BButton", "ColorSlider", "RQProgressHUD", "RQRoundProgressView",
                                         "RQBarProgressView", "RQPopupView"),
                         [](const auto& info) { return std::string(info.param); });

// Those that have messages of their own for the class.
class NothingSentToTheClass : public NothingSentTo {};

TEST_P(NothingSentToTheClass, IsTaken) {
  const Class cls = objc_getClass(GetParam());
  sendAll(bridge::classOf(reinterpret_cast<id>(cls)),
          [&](const std::string&) { return bridge::as<bridge::Object>(reinterpret_cast<id>(cls)); });
  home.wait(5);
}

INSTANTIATE_TEST_SUITE_P(Of, NothingSentToTheClass,
                         testing::Values("DPHLogger", "ConfigurationManager", "RQGestureController",
                                         "BButton", "RQColorManager", "RQProgressHUD"),
                         [](const auto& info) { return std::string(info.param); });

TEST(NothingSentToAPanel, ThatIsShownIsTaken) {
  PanelHome home({"showed-setup=NO"});
  home.open();
  sendAll(bridge::classNamed<tilo::RQPopupView>(), [](const std::string& name) {
    if (!name.starts_with("init")) return bridge::Object(PanelHome::panel());
    return bridge::Object(bridge::allocate<tilo::RQPopupView>().autoreleased());
  });
  home.wait(5);
}

TEST(NothingSentToTheScrollView, IsTaken) {
  PanelHome home;
  const SBIconScrollView view = sim::springboard::homeScreen().scrollView;
  view.listCellPreferencesUpdated_withUserInfo({}, {});
  view.preferencesUpdated_withUserInfo({}, {});
  view.layout({});
  view.touchesMoved_withEvent({}, {});
  view.touchesEnded_withEvent({}, {});
  view.setSwipeGesture({});
  view.setTapGesture({});
  view.swipe({});
  EXPECT_FALSE(view.tapGesture());
}

TEST(Nothing, IsNotSavedAsALayout) {
  test::PresetsHome home(test::layouts({"one"}));
  home.open();
  home.panel().saveWithTitle({});
  EXPECT_EQ(home.names(), sim::Json::array({"one"}));
  EXPECT_EQ(home.records().size(), 1u);
}

TEST(Nothing, IsNoKeyOfThePreferences) {
  PanelHome home;
  const sim::Json before = home.report()["preferences"];
  tilo::ConfigurationManager::sharedManager().saveWithKey_value({}, NSNumber::numberWithInt(1));
  PanelHome::controller().savePrefsWithKey_value({}, NSNumber::numberWithInt(1));
  EXPECT_EQ(home.report()["preferences"], before);
}

TEST(Nothing, IsNoLineOfTheLog) {
  test::Home home;
  const tilo::DPHLogger logger = tilo::DPHLogger::sharedLogger();
  const std::string before = home.contents(test::logPath);
  logger._logString_flush({}, YES);
  EXPECT_EQ(home.contents(test::logPath), before);
}

TEST(NoWidth, IsNoPageOfAScrollView) {
  PanelHome home;
  home.open();
  home.step("page 1");
  const auto empty = bridge::make<UIScrollView, &UIView::initWithFrame>(CGRect{});
  bridge::as<UIScrollViewDelegate>(PanelHome::panel()).scrollViewDidScroll(empty);
  bridge::as<UIScrollViewDelegate>(PanelHome::panel()).scrollViewDidScroll({});
  EXPECT_EQ(PanelHome::panel().pageControl().currentPage(), 1);
  const auto narrow = bridge::make<UIScrollView, &UIView::initWithFrame>(CGRect{{0, 0}, {1, 1}});
  bridge::as<UIScrollViewDelegate>(PanelHome::panel()).scrollViewDidScroll(narrow);
  EXPECT_EQ(PanelHome::panel().pageControl().currentPage(), 0) << "a point is a width";
}

// The notice box's task on no queue in particular.
class NoQueue : public test::HUD {};

TEST_F(NoQueue, IsTheDefaultOne) {
  static bool done;
  done = false;
  hud->showAnimated_whileExecutingBlock_onQueue(NO, bridge::Block<void()>([] { done = true; }), nullptr);
  sim::settle();
  EXPECT_TRUE(done);
  EXPECT_FALSE(hud->taskInProgress());
}

TEST_F(NoQueue, AndNoBlockEndTheTaskAllTheSame) {
  hud->showAnimated_whileExecutingBlock_onQueue_completionBlock(NO, {}, nullptr, {});
  sim::settle();
  EXPECT_FALSE(hud->taskInProgress());
}

TEST_F(NoQueue, NoSelectorIsNoTask) {
  hud->showWhileExecuting_onTarget_withObject_animated(nullptr, view.get(), {}, NO);
  sim::settle();
  EXPECT_FALSE(hud->taskInProgress());
}

}  // namespace
