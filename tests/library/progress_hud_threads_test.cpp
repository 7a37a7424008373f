// Notice boxes and progress views whose properties another thread changes.
#include <algorithm>

#include "controls/bar_progress_view.hpp"
#include "controls/round_progress_view.hpp"
#include "tests/library/hud_task.hpp"

namespace test {
namespace {

RQProgressHUD hudOfWorker;

TEST_F(ProgressHUDTask, ChangesThePropertiesOfTheBoxOnTheMainThread) {
  hudOfWorker = hud;
  hud->mode.set(1);
  hud->showAnimated_whileExecutingBlock(NO, Block<void()>([] {
                                          hudOfWorker.progress.set(0.25f);
                                          hudOfWorker.labelText.set("Halfway"_ns);
                                          hudOfWorker.detailsLabelText.set("There is more"_ns);
                                          hudOfWorker.labelColor.set(UIColor::redColor());
                                          Sleeping::forSeconds(1);
                                          hudOfWorker.mode.set(2);
                                          hudOfWorker.progress.set(0.75f);
                                          Sleeping::forSeconds(1);
                                        }));
  sim::settle();
  EXPECT_EQ(part<tilo::RQRoundProgressView>().progress(), 0.25f);
  EXPECT_STREQ(label(0).text().UTF8String(), "Halfway");
  EXPECT_STREQ(label(1).text().UTF8String(), "There is more");
  EXPECT_TRUE(label(0).textColor() == UIColor::redColor());
  pass(1.5);
  EXPECT_FALSE(part<tilo::RQRoundProgressView>());
  EXPECT_EQ(part<tilo::RQBarProgressView>().progress(), 0.75f);
}

TEST_F(ProgressHUDTask, LeavesTheLabelsToTheMainThread) {
  static UILabel ownLabel;
  hudOfWorker = hud, ownLabel = label(0);
  hud->showAnimated_whileExecutingBlock(NO, Block<void()>([] {
                                          hudOfWorker.labelText.set("Halfway"_ns);
                                          note(ownLabel.text() ? "changed at once" : "not changed yet");
                                        }));
  sim::settle();
  EXPECT_EQ(std::count(notes.begin(), notes.end(), "not changed yet"), 1);
  EXPECT_STREQ(ownLabel.text().UTF8String(), "Halfway");
}

TEST_F(ProgressHUDTask, MayChangeAPropertyWhileTheMainThreadReadsIt) {
  hudOfWorker = hud;
  hud->show(NO);
  dispatch::onQueue(dispatch::defaultQueue(), [] {
    for (int i = 0; i < 300; ++i) {
      const bridge::Pool pool;
      hudOfWorker.labelText.set(NSString::stringWithUTF8String(std::to_string(i).c_str()));
      hudOfWorker.progress.set(static_cast<float>(i) / 300);
    }
  });
  for (int i = 0; i < 300; ++i) {
    const bridge::Pool pool;
    NSString text = hud->labelText();
    ASSERT_LE(text.length(), 3u);
    ASSERT_LT(hud->progress(), 1);
  }
  sim::settle();
  EXPECT_STREQ(label(0).text().UTF8String(), "299");
}

// A progress view that notes when it is to be drawn anew.
struct NotedRound : bridge::Face<"TestNotedRound", tilo::RQRoundProgressView> {};
using NotedRoundClass = bridge::Implementation<NotedRound>;

void noteRedraw(NotedRound self) {
  note("redraw");
  NotedRoundClass::super<&UIView::setNeedsDisplay>(self);
}

TEST_F(ProgressHUDTask, MayChangeAProgressViewByItself) {
  NotedRoundClass::define<tilo::RQRoundProgressView>(bridge::method<&UIView::setNeedsDisplay, noteRedraw>());
  static tilo::RQRoundProgressView round;
  static tilo::RQBarProgressView bar;
  auto ownRound = bridge::make<NotedRound, &NSObject::init>();
  auto ownBar = bridge::make<tilo::RQBarProgressView, &NSObject::init>();
  round = bridge::as<tilo::RQRoundProgressView>(ownRound.get());
  bar = bridge::as<tilo::RQBarProgressView>(ownBar.get());
  view->addSubview(round);
  view->addSubview(bar);
  notes.clear();
  dispatch::onQueue(dispatch::defaultQueue(), [] {
    round.progress.set(0.5f);
    bar.progress.set(0.5f);
    bar.lineColor.set(UIColor::redColor());
    note("changed");
  });
  sim::settle();
  EXPECT_EQ(notes, (Notes{"changed", "redraw*"}));
  EXPECT_EQ(round.progress(), 0.5f);
  EXPECT_EQ(bar.progress(), 0.5f);
}

}  // namespace
}  // namespace test
