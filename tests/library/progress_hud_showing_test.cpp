// How a notice box comes and goes: animations, times, and what its end brings about.
#include "bridge/define.hpp"
#include "tests/library/hud_fixture.hpp"

namespace test {
namespace {

struct Delegate : bridge::Face<"TestHUDDelegate", NSObject> {
  MESSAGE Method<"hudWasHidden:", void(RQProgressHUD)> hudWasHidden;
};

std::vector<std::string> notes;
using Notes = std::vector<std::string>;
RQProgressHUD hiddenHud;

void hudWasHidden(Delegate, RQProgressHUD hud) {
  notes.push_back(hud.superview() ? "hidden" : "hidden and removed");
  hiddenHud = hud;
}

class ProgressHUDShowing : public HUD {
 protected:
  ProgressHUDShowing() {
    bridge::Implementation<Delegate>::define<NSObject>(
        bridge::method<&Delegate::hudWasHidden, hudWasHidden>());
    delegate = bridge::make<Delegate, &NSObject::init>();
    hud->delegate.set(bridge::as<tilo::RQProgressHUDDelegate>(delegate.get()));
  }

  void noteCompletion() {
    hud->completionBlock.set(Block<void()>([] { notes.push_back("completed"); }));
  }

  Strong<Delegate> delegate;
};

// Animations. The curve is slow at both ends, so half of the way is gone at half of the time.

TEST_F(ProgressHUDShowing, WithoutAnimationIsThereAtOnce) {
  hud->show(NO);
  EXPECT_EQ(alpha(), 1);
  EXPECT_EQ(scale(), 1);
}

TEST_F(ProgressHUDShowing, FadesInWithinThreeTenths) {
  hud->show(YES);
  EXPECT_EQ(alpha(), 0);
  pass(0.15);
  EXPECT_NEAR(alpha(), 0.5, 0.01);
  EXPECT_EQ(scale(), 1);
  pass(0.149);
  EXPECT_LT(alpha(), 1);
  pass(0.001);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(ProgressHUDShowing, ZoomsOutFromOneAndAHalf) {
  hud->animationType.set(1);
  hud->show(YES);
  EXPECT_EQ(alpha(), 0);
  EXPECT_EQ(scale(), 1.5);
  pass(0.15);
  EXPECT_NEAR(alpha(), 0.5, 0.01);
  EXPECT_NEAR(scale(), 1.25, 0.01);
  pass(0.15);
  EXPECT_EQ(alpha(), 1);
  EXPECT_EQ(scale(), 1);
}

TEST_F(ProgressHUDShowing, ZoomsInFromAHalf) {
  hud->animationType.set(2);
  hud->show(YES);
  EXPECT_EQ(alpha(), 0);
  EXPECT_EQ(scale(), 0.5);
  pass(0.15);
  EXPECT_NEAR(scale(), 0.75, 0.01);
  pass(0.15);
  EXPECT_EQ(alpha(), 1);
  EXPECT_EQ(scale(), 1);
}

TEST_F(ProgressHUDShowing, DoesNotZoomWithoutAnimation) {
  for (const NSInteger type : {1, 2}) {
    hud->animationType.set(type);
    hud->show(NO);
    EXPECT_EQ(scale(), 1);
    hud->hide(NO);
    EXPECT_EQ(scale(), 1);
    EXPECT_EQ(alpha(), 0);
  }
}

TEST_F(ProgressHUDShowing, FadesOutToAlmostNothingAndIsThenGone) {
  hud->show(NO);
  hud->hide(YES);
  EXPECT_EQ(hud->alpha(), CGFloat{0.02f});
  EXPECT_EQ(alpha(), 1);
  pass(0.15);
  EXPECT_NEAR(alpha(), 0.51, 0.01);
  EXPECT_EQ(scale(), 1);
  pass(0.1499);
  EXPECT_NEAR(alpha(), 0.02, 0.001);
  EXPECT_FALSE(hud->isFinished());
  pass(0.0002);
  EXPECT_EQ(alpha(), 0);
  EXPECT_TRUE(hud->isFinished());
}

TEST_F(ProgressHUDShowing, ZoomsOutToAHalf) {
  hud->animationType.set(1);
  hud->show(NO);
  hud->hide(YES);
  EXPECT_EQ(scale(), 1);
  pass(0.15);
  EXPECT_NEAR(scale(), 0.75, 0.01);
  pass(0.1499);
  EXPECT_NEAR(scale(), 0.5, 0.001);
}

TEST_F(ProgressHUDShowing, ZoomsInToOneAndAHalf) {
  hud->animationType.set(2);
  hud->show(NO);
  hud->hide(YES);
  pass(0.15);
  EXPECT_NEAR(scale(), 1.25, 0.01);
  pass(0.1499);
  EXPECT_NEAR(scale(), 1.5, 0.001);
}

TEST_F(ProgressHUDShowing, AgainBeginsWithItsOwnSize) {
  hud->animationType.set(1);
  hud->show(NO);
  hud->hide(YES);
  pass(1);
  hud->animationType.set(0);
  hud->show(YES);
  EXPECT_EQ(scale(), 1);
  pass(0.3);
  EXPECT_EQ(alpha(), 1);
  EXPECT_FALSE(hud->isFinished());
}

TEST_F(ProgressHUDShowing, HiddenWithoutAnimationIsGoneAtOnce) {
  hud->show(NO);
  hud->hide(NO);
  EXPECT_EQ(alpha(), 0);
  EXPECT_EQ(notes, Notes{"hidden"});
}

TEST_F(ProgressHUDShowing, HiddenBeforeItWasShownIsGoneAtOnceThoughAnimated) {
  hud->hide(YES);
  EXPECT_EQ(hud->alpha(), 0);
  EXPECT_TRUE(hud->isFinished());
  EXPECT_EQ(notes, Notes{"hidden"});
}

// Times.

TEST_F(ProgressHUDShowing, HasNoGraceTimeUnlessATaskIsInProgress) {
  hud->graceTime.set(0.25f);
  hud->show(NO);
  pass(1);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(ProgressHUDShowing, WaitsForTheGraceTimeToTheMillisecond) {
  hud->graceTime.set(0.25f);
  hud->taskInProgress.set(YES);
  hud->show(NO);
  pass(0.249);
  EXPECT_EQ(alpha(), 0);
  pass(0.001);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(ProgressHUDShowing, IsAskedForTwiceWithinOneGraceTime) {
  hud->graceTime.set(0.25f);
  hud->taskInProgress.set(YES);
  hud->show(NO);
  pass(0.2);
  hud->show(NO);
  pass(0.049);
  EXPECT_EQ(alpha(), 0);
  pass(0.002);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(ProgressHUDShowing, HasOneGraceTimeHoweverOftenItIsAskedFor) {
  hud->graceTime.set(0.25f);
  hud->taskInProgress.set(YES);
  hud->show(NO);
  pass(0.2);
  hud->show(NO);
  pass(0.1);
  hud->hide(NO);
  pass(1);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(ProgressHUDShowing, HasAGraceTimeEveryTime) {
  hud->graceTime.set(0.25f);
  hud->taskInProgress.set(YES);
  for (int times = 0; times < 2; ++times) {
    hud->show(NO);
    pass(0.249);
    EXPECT_EQ(alpha(), 0);
    pass(0.001);
    EXPECT_EQ(alpha(), 1);
    hud->hide(NO);
  }
}

TEST_F(ProgressHUDShowing, WithoutAGraceTimeEndsTheOneBefore) {
  hud->graceTime.set(0.25f);
  hud->taskInProgress.set(YES);
  hud->show(NO);
  hud->graceTime.set(0);
  hud->show(NO);
  EXPECT_EQ(alpha(), 1);
  hud->hide(NO);
  pass(1);
  EXPECT_EQ(alpha(), 0);
  hud->graceTime.set(0.25f);
  hud->show(NO);
  pass(0.25);
  EXPECT_EQ(alpha(), 1);
}

TEST_F(ProgressHUDShowing, AfterTheGraceTimeIsAnimatedAsWasAsked) {
  hud->graceTime.set(0.25f);
  hud->taskInProgress.set(YES);
  hud->show(YES);
  pass(0.25);
  EXPECT_EQ(alpha(), 0);
  pass(0.15);
  EXPECT_NEAR(alpha(), 0.5, 0.01);
}

TEST_F(ProgressHUDShowing, IsNotShownWhenTheTaskEndsWithinTheGraceTime) {
  hud->graceTime.set(0.25f);
  hud->taskInProgress.set(YES);
  hud->show(NO);
  pass(0.2);
  hud->taskInProgress.set(NO);
  pass(1);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(ProgressHUDShowing, StaysForItsLeastTimeToTheMillisecond) {
  hud->minShowTime.set(1);
  hud->show(NO);
  pass(0.2);
  hud->hide(NO);
  pass(0.799);
  EXPECT_EQ(alpha(), 1);
  pass(0.001);
  EXPECT_EQ(alpha(), 0);
  EXPECT_EQ(notes, Notes{"hidden"});
}

TEST_F(ProgressHUDShowing, IsHiddenAtOnceAfterItsLeastTime) {
  hud->minShowTime.set(1);
  hud->show(NO);
  pass(1);
  hud->hide(NO);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(ProgressHUDShowing, AfterItsLeastTimeIsAnimatedAsWasAsked) {
  hud->minShowTime.set(1);
  hud->show(NO);
  pass(0.2);
  hud->hide(YES);
  pass(0.8);
  EXPECT_EQ(alpha(), 1);
  pass(0.15);
  EXPECT_NEAR(alpha(), 0.51, 0.01);
}

TEST_F(ProgressHUDShowing, HasNoLeastTimeBeforeItWasShown) {
  hud->minShowTime.set(1);
  hud->hide(NO);
  EXPECT_EQ(notes, Notes{"hidden"});
}

TEST_F(ProgressHUDShowing, WithoutALeastTimeIsHiddenAtOnceThoughTheClockWasSetBack) {
  {
    const sim::clock::DueTimers ahead;
    hud->show(NO);
  }
  hud->hide(NO);
  EXPECT_EQ(notes, Notes{"hidden"});
}

TEST_F(ProgressHUDShowing, HiddenTwiceWithinItsLeastTimeEndsOnce) {
  hud->minShowTime.set(1);
  hud->show(NO);
  hud->hide(NO);
  pass(0.1);
  hud->hide(NO);
  pass(5);
  EXPECT_EQ(notes, Notes{"hidden"});
}

TEST_F(ProgressHUDShowing, IsHiddenAfterADelayToTheMillisecond) {
  hud->show(NO);
  hud->hide_afterDelay(NO, 0.7);
  pass(0.699);
  EXPECT_EQ(alpha(), 1);
  pass(0.001);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(ProgressHUDShowing, IsHiddenAfterADelayAnimatedAsWasAsked) {
  hud->show(NO);
  hud->hide_afterDelay(YES, 0.7);
  pass(0.7);
  EXPECT_EQ(alpha(), 1);
  pass(0.15);
  EXPECT_NEAR(alpha(), 0.51, 0.01);
}

TEST_F(ProgressHUDShowing, ThatEndsForgetsItsDelayedHidings) {
  hud->show(NO);
  hud->hide_afterDelay(NO, 2);
  hud->hide(NO);
  pass(0.5);
  hud->show(NO);
  pass(5);
  EXPECT_EQ(alpha(), 1);
  EXPECT_EQ(notes, Notes{"hidden"});
}

// Its end.

TEST_F(ProgressHUDShowing, EndsWithTheCompletionAndThenTheDelegate) {
  noteCompletion();
  hud->removeFromSuperViewOnHide.set(YES);
  hud->show(NO);
  hud->hide(NO);
  EXPECT_EQ(notes, (Notes{"completed", "hidden and removed"}));
  EXPECT_TRUE(hiddenHud == hud.get());
}

TEST_F(ProgressHUDShowing, CompletesOnce) {
  noteCompletion();
  hud->show(NO);
  hud->hide(NO);
  EXPECT_FALSE(hud->completionBlock());
  hud->show(NO);
  hud->hide(NO);
  EXPECT_EQ(notes, (Notes{"completed", "hidden", "hidden"}));
}

TEST_F(ProgressHUDShowing, MayBeginAgainInItsCompletion) {
  static RQProgressHUD same;
  same = hud;
  hud->completionBlock.set(Block<void()>([] { same.show(NO); }));
  hud->show(NO);
  hud->hide(NO);
  EXPECT_EQ(alpha(), 1);
  hud->hide(YES);
  EXPECT_EQ(alpha(), 1);
  pass(0.3);
  EXPECT_EQ(alpha(), 0);
}

TEST_F(ProgressHUDShowing, StaysInItsViewUnlessItIsToBeRemoved) {
  hud->show(NO);
  hud->hide(NO);
  EXPECT_TRUE(hud->superview() == view.get());
  hud->removeFromSuperViewOnHide.set(YES);
  hud->show(NO);
  hud->hide(NO);
  EXPECT_FALSE(hud->superview());
}

TEST_F(ProgressHUDShowing, AsksNothingOfADelegateThatDoesNotAnswer) {
  auto mute = bridge::make<NSObject, &NSObject::init>();
  hud->delegate.set(bridge::as<tilo::RQProgressHUDDelegate>(mute.get()));
  hud->show(NO);
  hud->hide(NO);
  EXPECT_TRUE(hud->isFinished());
}

TEST_F(ProgressHUDShowing, LivesUntilItsAnimationIsOver) {
  hud->removeFromSuperViewOnHide.set(YES);
  {
    const bridge::Pool pool;
    hud->show(NO);
    hud->hide(YES);
    hud->removeFromSuperview();
    hud.clear();
  }
  pass(1);
  EXPECT_EQ(notes, Notes{"hidden and removed"});
}

TEST_F(ProgressHUDShowing, IsReportedWhileItIsShown) {
  EXPECT_EQ(home.report()["hud"], nullptr);
  hud->mode.set(5);
  hud->labelText.set("Exported"_ns);
  hud->show(YES);
  EXPECT_EQ(home.report()["hud"], (sim::Json{{"text", "Exported"}, {"mode", 5}, {"alpha", 0}}));
  home.step("wait 0.3");
  EXPECT_EQ(home.report()["hud"]["alpha"], 1);
  hud->hide(NO);
  EXPECT_EQ(home.report()["hud"], nullptr);
}

}  // namespace
}  // namespace test
