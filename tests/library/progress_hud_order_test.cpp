// In which order the notice box does what others can see.
#include "bridge/replace.hpp"
#include "platform/foundation/thread.hpp"
#include "tests/library/grid_home.hpp"
#include "tests/library/hud_fixture.hpp"

namespace test {
namespace {

class ProgressHUDOrder : public HUD {};

bool inProgress = false, inSight = false;
void noteDetached(Class, SEL, bridge::Object target, bridge::Object) {
  const auto box = bridge::as<RQProgressHUD>(target);
  inProgress = box.taskInProgress(), inSight = box.alpha() > 0;
}

TEST_F(ProgressHUDOrder, IsATaskInProgressThenItsThreadThenTheBox) {
  standIn<NSThread, &NSThread::detachNewThreadSelector_toTarget_withObject, noteDetached>();
  hud->showWhileExecuting_onTarget_withObject_animated(bridge::selector<"self">(), view.get(), {}, NO);
  EXPECT_TRUE(inProgress);
  EXPECT_FALSE(inSight);
  EXPECT_EQ(hud->alpha(), 1);
}

int completions = 0;
void noteShown(RQProgressHUD self, BOOL animated) {
  completions += static_cast<bool>(self.completionBlock());
  bridge::original<noteShown>(self, animated);
}

TEST_F(ProgressHUDOrder, HasItsCompletionWhenItIsShown) {
  standIn<RQProgressHUD, &RQProgressHUD::show, noteShown>();
  const Block<void()> nothing([] {});
  hud->showAnimated_whileExecutingBlock_completionBlock(NO, nothing, nothing);
  EXPECT_EQ(completions, 1);
  hud->completionBlock.set({});
  hud->showAnimated_whileExecutingBlock_onQueue_completionBlock(NO, nothing, dispatch::defaultQueue(),
                                                                nothing);
  EXPECT_EQ(completions, 2);
  sim::settle();
}

}  // namespace
}  // namespace test
