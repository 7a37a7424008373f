// Other libraries replace the methods that ours replaces, before it and after it: all of them work.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "platform/springboard/dock.hpp"
#include "platform/springboard/icon_controller.hpp"
#include "platform/springboard/icon_label.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "platform/springboard/page_control.hpp"
#include "platform/springboard/ui_controller.hpp"
#include "tests/support/home.hpp"

namespace {

using sim::Json;

std::map<std::string, int> calls;
size_t atFirst = 0;  // how many of them were called until the story was told once

// Another library's replacement of T's method: it counts, and passes everything on.
template <class T, auto Member, class Shape = typename bridge::Descriptor<Member>::template Shape<>>
struct Other;
template <class T, auto Member, class R, class... A>
struct Other<T, Member, R(A...)> {
  using Self = std::conditional_t<bridge::isClassMethod<Member>, Class, T>;
  static std::string name() {
    return std::string(T::className.text) + " " + bridge::Descriptor<Member>::name;
  }
  static R run(Self self, A... arguments) {
    ++calls[name()];
    return bridge::original<run>(self, arguments...);
  }
  static void install() {
    bridge::Outcome told = bridge::install(bridge::replace<T, Member, run>());
    EXPECT_STREQ(told.outcome, "replaced") << name();
  }
};

using Image = SBIconImageView;
using List = SBIconListView;
using Dots = SBIconListPageControl;
using Scroll = SBIconScrollView;
using Dock = SBDockIconListView;
using Controller = SBIconController;
using Label = SBIconLabelImageParameters;

// What SpringBoard itself is asked for in the course of the story. What is always answered without asking it
// further is not among these.
void replacePassedOn() {
  Other<Image, &UIView::layoutSubviews>::install();
  Other<Image, &Image::showsSquareCorners>::install();
  Other<List, &List::iconRowsForCurrentOrientation>::install();
  Other<List, &List::iconColumnsForCurrentOrientation>::install();
  Other<List, &List::iconRowsForSpacingCalculation>::install();
  Other<List, &List::iconRowsForInterfaceOrientation>::install();
  Other<List, &List::iconColumnsForInterfaceOrientation>::install();
  Other<List, &List::verticalIconPadding>::install();
  Other<List, &List::horizontalIconPadding>::install();
  Other<SBRootIconListView, &List::sideIconInset>::install();
  Other<SBIconLabelImage, &SBIconLabelImage::_rectWithDrawing_inRect_fromParameters>::install();
  Other<Label, &Label::textColor>::install();
  Other<Scroll, bridge::setterOf<&UIScrollView::contentOffset>>::install();
  Other<Dock, &UIView::layoutSubviews>::install();
  Other<Dock, &Dock::iconsInRowForSpacingCalculation>::install();
  Other<Dock, &Dock::maxIcons>::install();
  Other<Dock, &List::iconRowsForInterfaceOrientation>::install();
  Other<Dock, &Dock::maxVisibleIconRowsInterfaceOrientation>::install();
  Other<SBDockView, &SBDockView::defaultHeight>::install();
}

// Sent when SpringBoard starts.
void replaceWhatStarts() {
  Other<Scroll, &NSObject::init>::install();
  Other<Scroll, &UIView::initWithFrame>::install();
  Other<Controller, &NSObject::init>::install();
  Other<SBDockView, &SBDockView::setBackgroundAlpha>::install();
}

// Ours never asks further here: only who comes after it hears of it.
void replaceWhatEndsWithUs() {
  Other<SBRootIconListView, &List::topIconInset>::install();
  Other<Scroll, &UIResponder::touchesMoved_withEvent>::install();
  Other<Scroll, &UIResponder::touchesEnded_withEvent>::install();
  Other<Dock, &Dock::effectiveSpacing>::install();
  Other<SBFolderIconListView, &List::iconRowsForInterfaceOrientation>::install();
}

const std::vector<std::string> options{
    "--springboard", "complete",  "--device", "iPad Air 2",       "--set", "enabled=YES",
    "--set",         "quick=YES", "--set",    "forceTouch=YES",   "--set", "labels=YES",
    "--set",         "page=YES",  "--set",    "custom_preset=-1", "--set", "icons=YES",
    "--set",         "rows=4",    "--set",    "columns=6",        "--set", "horiIconPadding=30"};

const char* const story[] = {"swipe up",
                             "wait 1",
                             "increment \"Horizontal Padding\" 2",
                             "wait 4",
                             "tap \"close\"",
                             "wait 1",
                             "swipe left",
                             "wait 1",
                             "press 2",
                             "swipe right",
                             "wait 1",
                             "rotate landscape",
                             "wait 1",
                             "rotate portrait",
                             "wait 1",
                             "swipe up",
                             "wait 1",
                             "launch \"Calendar\"",
                             "wait 1",
                             "home",
                             "wait 1"};

// The report after the story was told twice, without others.
Json undisturbed() {
  std::vector<std::string> arguments = options;
  arguments.insert(arguments.end(), {"--script", "-", "--report", "-"});
  std::string lines;
  for (int time = 0; time < 2; ++time)
    for (const char* line : story) lines += std::string(line) + "\n";
  return Json::parse(test::runSimulator(arguments, lines).output);
}

// The report asks too. Whoever is not heard when it is told again has lost its place meanwhile.
Json toldTwice(test::Home& home) {
  for (const char* line : story) home.step(line);
  home.report();
  atFirst = std::exchange(calls, {}).size();
  for (const char* line : story) home.step(line);
  return home.report();
}

TEST(OtherLibraries, ThatCameBeforeChangeNothingAndGoOnWorking) {
  test::Home home(options, [](sim::Simulation&) {
    replacePassedOn();
    replaceWhatStarts();
  });
  Json report = toldTwice(home);
  EXPECT_EQ(atFirst, 23u);
  EXPECT_EQ(calls.size(), 19u) << "all but those that start";
  EXPECT_EQ(report, undisturbed());
}

TEST(OtherLibraries, ThatComeAfterChangeNothingAndGoOnWorking) {
  test::Home home(options);
  replacePassedOn();
  replaceWhatEndsWithUs();
  Json report = toldTwice(home);
  EXPECT_EQ(atFirst, 24u);
  EXPECT_EQ(calls.size(), 24u);
  EXPECT_EQ(report, undisturbed());
}

}  // namespace
