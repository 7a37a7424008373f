// Messages that a class has on some systems only.
#include <gtest/gtest.h>

#include "bridge/define.hpp"
#include "platform/foundation/string.hpp"

namespace {

struct Shelf : bridge::Face<"OptionalTestShelf", NSObject> {
  MESSAGE OptionalMethod<"width", double()> width;
  MESSAGE OptionalMethod<"widenBy:and:", double(double, int)> widenBy_and;
  MESSAGE OptionalMethod<"depth", double()> depth;  // which it has not
};
using ShelfClass = bridge::Implementation<Shelf>;

double width(Shelf) { return 7; }
double widen(Shelf self, double by, int times) { return self.width.ifAnswered() + by * times; }

bridge::Strong<Shelf> shelf() {
  static const bool defined = [] {
    ShelfClass::define<NSObject>(bridge::method<&Shelf::width, width>(),
                                 bridge::method<&Shelf::widenBy_and, widen>());
    return true;
  }();
  (void)defined;
  return bridge::make<Shelf, &NSObject::init>();
}

TEST(OptionalMessage, ReachesWhomAnswersIt) {
  bridge::Pool pool;
  auto own = shelf();
  EXPECT_TRUE(own->width.isAnswered());
  EXPECT_EQ(own->width.ifAnswered(), 7);
  EXPECT_EQ(own->widenBy_and.ifAnswered(0.5, 4), 9);
}

TEST(OptionalMessage, IsNotSentToWhomDoesNotAnswerIt) {
  bridge::Pool pool;
  auto own = shelf();
  EXPECT_FALSE(own->depth.isAnswered());
  EXPECT_EQ(own->depth.ifAnswered(), 0);
}

TEST(OptionalMessage, IsAnsweredByNobodyWhereThereIsNoObject) {
  EXPECT_FALSE(Shelf().width.isAnswered());
  EXPECT_EQ(Shelf().width.ifAnswered(), 0);
}

}  // namespace
