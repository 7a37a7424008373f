// What the system is told besides what matters: no options for springs, for reading JSON and for observing,
// and recognisers that their scroll view is to keep.
#include <gtest/gtest.h>

#include <set>

#include "bridge/replace.hpp"
#include "controls/round_progress_view.hpp"
#include "platform/foundation/json.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;

std::multiset<NSUInteger> given;
bridge::Slot slot;

void notedSpring(id self, SEL selector, double duration, double delay, CGFloat damping, CGFloat velocity,
                 NSUInteger options, bridge::BlockHeader* animations, bridge::BlockHeader* completion) {
  given.insert(options);
  reinterpret_cast<decltype(&notedSpring)>(slot.implementation())(self, selector, duration, delay, damping,
                                                                  velocity, options, animations, completion);
}

id notedRead(id self, SEL selector, id data, NSUInteger options, id* error) {
  given.insert(options);
  return reinterpret_cast<decltype(&notedRead)>(slot.implementation())(self, selector, data, options, error);
}

template <class Face>
void note(SEL selector, IMP noted) {
  bridge::replaceMethod(bridge::classOf(reinterpret_cast<id>(bridge::classNamed<Face>())), selector, noted,
                        slot);
}

TEST(PlainOptions, AreThoseOfSprings) {
  PanelHome home;
  note<UIView>(bridge::selector<"animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:"
                                "options:animations:completion:">(),
               reinterpret_cast<IMP>(&notedSpring));
  home.open();
  home.step("tap \"collapse\"");
  home.wait(1);
  home.step("tap \"close\"");
  home.wait(1);
  EXPECT_EQ(given, (std::multiset<NSUInteger>{0, 0, 0}));
}

TEST(PlainOptions, AreThoseOfReadingThePresetsFile) {
  PanelHome home;
  note<NSJSONSerialization>(bridge::selector<"JSONObjectWithData:options:error:">(),
                            reinterpret_cast<IMP>(&notedRead));
  home.open();
  home.step("page 1");
  home.wait(1);
  EXPECT_GE(given.size(), 1u);
  EXPECT_EQ(given.count(0), given.size());
}

void notedObservation(id self, SEL selector, id observer, id key, NSUInteger options, void* context) {
  given.insert(options);
  reinterpret_cast<decltype(&notedObservation)>(slot.implementation())(self, selector, observer, key, options,
                                                                       context);
}

TEST(PlainOptions, AreThoseOfObserving) {
  PanelHome home;
  bridge::replaceMethod(bridge::classNamed<NSObject>(),
                        bridge::selector<"addObserver:forKeyPath:options:context:">(),
                        reinterpret_cast<IMP>(&notedObservation), slot);
  (void)bridge::make<tilo::RQRoundProgressView, &NSObject::init>();
  EXPECT_GE(given.size(), 1u);
  EXPECT_EQ(given.count(0), given.size());
}

using RetainCount = bridge::Message<"retainCount", NSUInteger()>;

TEST(AScrollView, KeepsTheRecognisersThatItIsGiven) {
  PanelHome home;
  auto view = bridge::make<SBIconScrollView, &NSObject::init>();
  const auto expectKept = [](auto recognizer, auto give) {
    const NSUInteger before = RetainCount::send(recognizer.get().raw);
    give(recognizer.get());
    EXPECT_EQ(RetainCount::send(recognizer.get().raw), before + 1);
  };
  expectKept(bridge::make<UISwipeGestureRecognizer, &NSObject::init>(),
             [&](UISwipeGestureRecognizer one) { view->setSwipeGesture(one); });
  expectKept(bridge::make<UITapGestureRecognizer, &NSObject::init>(),
             [&](UITapGestureRecognizer one) { view->setTapGesture(one); });
}

}  // namespace
