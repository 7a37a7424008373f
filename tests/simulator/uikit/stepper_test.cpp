// Steppers: their values, their ends, and the finger on their halves.
#include "platform/uikit/stepper.hpp"

#include "platform/uikit/button.hpp"
#include "tests/simulator/uikit/touch_fixture.hpp"

namespace test {
namespace {

struct StepperTarget : bridge::Face<"TestStepperTarget", NSObject> {
  MESSAGE Method<"stepped:", void(UIStepper)> stepped;
};
using TargetClass = bridge::Implementation<StepperTarget>;

class Stepper : public Fingers {
 protected:
  Stepper() {
    struct Functions {
      static void stepped(StepperTarget, UIStepper stepper) { note(std::to_string(stepper.value())); }
    };
    TargetClass::define<NSObject>(method<&StepperTarget::stepped, Functions::stepped>());
    target = make<StepperTarget, &NSObject::init>();
    stepper = make<UIStepper, &UIView::initWithFrame>(CGRect{{50, 100}, {10, 10}});
    stepper->addTarget_action_forControlEvents(
        target, bridge::Descriptor<&StepperTarget::stepped>::selector(), UIControlEventValueChanged);
    window->addSubview(stepper);
  }

  void tapMinus() { tap({50 + 20, 115}); }
  void tapPlus() { tap({50 + 74, 115}); }

  Strong<StepperTarget> target;
  Strong<UIStepper> stepper;
};

TEST_F(Stepper, IsAlwaysOfOneSize) {
  EXPECT_EQ(stepper->frame(), (CGRect{{50, 100}, {94, 29}}));  // assumed
}

TEST_F(Stepper, GoesByOneFromZeroToAHundredAtFirst) {
  EXPECT_EQ(stepper->value(), 0);  // confirmed: Apple documentation of UIStepper
  stepper->value.set(150);
  EXPECT_EQ(stepper->value(), 100);
  stepper->value.set(99);
  tapPlus();
  EXPECT_EQ(stepper->value(), 100);
}

TEST_F(Stepper, TellsOfEachStepOfAFinger) {
  stepper->value.set(5);
  EXPECT_TRUE(takeLog().empty());
  tapPlus();
  tapPlus();
  tapMinus();
  EXPECT_EQ(takeLog(), (Log{"6.000000", "7.000000", "6.000000"}));
}

TEST_F(Stepper, StopsAtItsEnds) {
  stepper->minimumValue.set(1);
  stepper->maximumValue.set(2);
  tapMinus();
  EXPECT_EQ(stepper->value(), 1);  // confirmed: Apple documentation of wraps, which is off at first
  tapPlus();
  tapPlus();
  EXPECT_EQ(stepper->value(), 2);
  EXPECT_EQ(takeLog(), Log{"2.000000"});
}

TEST_F(Stepper, TakesItsValueIntoAnotherRange) {
  stepper->value.set(50);
  stepper->maximumValue.set(10);
  EXPECT_EQ(stepper->value(), 10);
  stepper->minimumValue.set(20);
  EXPECT_EQ(stepper->value(), 20);
}

}  // namespace
}  // namespace test
