// The notification centre as the device has it: an observer that dies is dropped.
#include "platform/foundation/notification_center.hpp"

#include <gtest/gtest.h>

#include <set>

#include "bridge/define.hpp"
#include "simulator/runtime/foundation.hpp"

namespace {

struct Listener : bridge::Face<"TestListener", NSObject> {
  MESSAGE Method<"hear:", void(bridge::Object)> hear;
};

struct ListenerState {
  int number = 0;
};

using ListenerClass = bridge::Implementation<Listener, ListenerState>;

// Who heard something; in which order observers are told is not promised.
std::multiset<int> heard;
using Heard = std::multiset<int>;

void hear(Listener self, bridge::Object) { heard.insert(ListenerClass::state(self).number); }

NSNotificationCenter center() { return NSNotificationCenter::defaultCenter(); }

class NotificationCenter : public testing::Test {
 protected:
  NotificationCenter() {
    sim::prepareFoundation();
    ListenerClass::define<NSObject>(bridge::method<&Listener::hear, hear>());
  }

  static bridge::Strong<Listener> newListener(int number) {
    auto listener = bridge::make<Listener, &NSObject::init>();
    ListenerClass::state(listener.get()).number = number;
    center().addObserver_selector_name_object(listener.get(), bridge::selector<"hear:">(), "Dinner"_ns, {});
    return listener;
  }

  static void post() { center().postNotificationName_object("Dinner"_ns, {}); }

  bridge::Pool pool;
};

TEST_F(NotificationCenter, TellsEveryObserverOfTheNameAtOnce) {
  auto one = newListener(1), two = newListener(2);
  post();
  EXPECT_EQ(heard, (Heard{1, 2}));
  center().postNotificationName_object("Supper"_ns, {});
  EXPECT_EQ(heard, (Heard{1, 2}));
}

TEST_F(NotificationCenter, DropsObserversThatDie) {
  auto one = newListener(1), two = newListener(2), three = newListener(3);
  two.clear();
  post();
  EXPECT_EQ(heard, (Heard{1, 3}));
  one.clear();
  three.clear();
  post();
  EXPECT_EQ(heard, (Heard{1, 3}));
}

TEST_F(NotificationCenter, DropsADeadObserverOfSeveralNames) {
  auto one = newListener(1);
  center().addObserver_selector_name_object(one.get(), bridge::selector<"hear:">(), "Supper"_ns, {});
  one.clear();
  post();
  center().postNotificationName_object("Supper"_ns, {});
  EXPECT_EQ(heard, Heard{});
}

TEST_F(NotificationCenter, KeepsNoObserverAlive) {
  auto one = newListener(1);
  EXPECT_EQ(one->retainCount(), 1u);
}

TEST_F(NotificationCenter, TellsAnObserverAsOftenAsItWasAdded) {
  auto one = newListener(1);
  center().addObserver_selector_name_object(one.get(), bridge::selector<"hear:">(), "Dinner"_ns, {});
  post();
  EXPECT_EQ(heard, (Heard{1, 1}));
}

TEST_F(NotificationCenter, TellsAnObserverNothingAfterItWasRemoved) {
  auto one = newListener(1);
  center().removeObserver(one.get());
  post();
  EXPECT_EQ(heard, Heard{});
}

TEST_F(NotificationCenter, DoesNotTakeANewObjectForADeadOne) {
  for (int i = 0; i < 100; ++i) newListener(i).clear();
  auto fresh = bridge::make<Listener, &NSObject::init>();
  post();
  EXPECT_EQ(heard, Heard{});
}

}  // namespace
