// Tasks for whose time the box is shown: on a thread of their own, or on a queue.
#include "controls/progress_hud_parts.hpp"
#include "platform/foundation/thread.hpp"

namespace tilo::hud {
namespace {

using bridge::Block;

// On the default queue, without one.
void run(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block, dispatch_queue_s* queue) {
  self.taskInProgress.set(YES);
  dispatch::onQueue(queue ? queue : dispatch::defaultQueue(),
                    [alive = retained(self), work = Block<void()>(block)] {
                      if (work) work();
                      dispatch::onMainQueue([alive] { bridge::as<Own>(alive.get()).cleanUp(); });
                    });
  self.show(animated);
}

}  // namespace

void release(RQProgressHUD self) {
  if (NSThread::isMainThread()) return HUD::super<&Own::release>(self);
  dispatch::onMainQueue([self] { HUD::super<&Own::release>(self); });
}

void showWhileExecuting(RQProgressHUD self, SEL action, bridge::Object target, bridge::Object object,
                        BOOL animated) {
  HUD::state(self).task = {action, retained(target), retained(object)};
  self.taskInProgress.set(YES);
  NSThread::detachNewThreadSelector_toTarget_withObject(bridge::selector<"launchExecution">(), self, {});
  self.show(animated);
}

// On the task's thread.
void launchExecution(RQProgressHUD self) {
  const bridge::Pool pool;
  const Task& task = HUD::state(self).task;
  if (task.action)
    bridge::as<NSPerforming>(task.target.get()).performSelector_withObject(task.action, task.object);
  bridge::as<NSThreadPerformAdditions>(self).performSelectorOnMainThread_withObject_waitUntilDone(
      bridge::selector<"cleanUp">(), {}, NO);
}

void cleanUp(RQProgressHUD self) {
  self.taskInProgress.set(NO);
  const Task ended = std::exchange(HUD::state(self).task, {});
  self.hide(HUD::state(self).useAnimation);
}

void showWithBlock(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block) {
  run(self, animated, block, nullptr);
}

void showWithBlockThen(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block,
                       bridge::BlockRef<void()> completion) {
  self.completionBlock.set(completion);
  run(self, animated, block, nullptr);
}

void showWithBlockOnQueue(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block,
                          dispatch_queue_s* queue) {
  run(self, animated, block, queue);
}

void showWithBlockOnQueueThen(RQProgressHUD self, BOOL animated, bridge::BlockRef<void()> block,
                              dispatch_queue_s* queue, bridge::BlockRef<void()> completion) {
  self.completionBlock.set(completion);
  run(self, animated, block, queue);
}

}  // namespace tilo::hud
