// The tree of layers: order, moves, and what happens when layers die.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <vector>

#include "simulator/quartz/layer.hpp"

namespace sim {
namespace {

std::vector<Layer*> childrenOf(const Layer& layer) {
  return {layer.children().begin(), layer.children().end()};
}

TEST(LayerTree, LaterChildrenComeLast) {
  Layer parent, a, b;
  parent.addChild(a);
  parent.addChild(b);
  EXPECT_EQ(childrenOf(parent), (std::vector{&a, &b}));
  EXPECT_EQ(a.parent(), &parent);
}

TEST(LayerTree, InsertionCountsWithoutTheMovedChild) {
  Layer parent, a, b, c;
  for (Layer* child : {&a, &b, &c}) parent.addChild(*child);
  parent.insertChild(a, 1);
  EXPECT_EQ(childrenOf(parent), (std::vector{&b, &a, &c}));
  parent.insertChild(b, 99);
  EXPECT_EQ(childrenOf(parent), (std::vector{&a, &c, &b}));
  parent.insertChild(b, 0);
  EXPECT_EQ(childrenOf(parent), (std::vector{&b, &a, &c}));
}

TEST(LayerTree, AddingTakesTheChildOutOfItsOldParent) {
  Layer first, second, child;
  first.addChild(child);
  second.addChild(child);
  EXPECT_TRUE(first.children().empty());
  EXPECT_EQ(child.parent(), &second);
}

TEST(LayerTree, RemovalLeavesNoLinks) {
  Layer parent, child;
  parent.addChild(child);
  child.removeFromParent();
  child.removeFromParent();
  EXPECT_TRUE(parent.children().empty());
  EXPECT_EQ(child.parent(), nullptr);
}

TEST(LayerTree, DyingChildUnlinksItself) {
  Layer parent;
  {
    Layer child;
    parent.addChild(child);
  }
  EXPECT_TRUE(parent.children().empty());
}

TEST(LayerTree, DyingParentLeavesItsChildrenWithoutOne) {
  auto parent = std::make_unique<Layer>();
  Layer child;
  parent->addChild(child);
  parent.reset();
  EXPECT_EQ(child.parent(), nullptr);
}

TEST(LayerTree, LoopsAreRefused) {
  Layer top, middle, bottom;
  top.addChild(middle);
  middle.addChild(bottom);
  EXPECT_THROW(bottom.addChild(top), std::logic_error);
  EXPECT_THROW(top.addChild(top), std::logic_error);
  EXPECT_EQ(middle.parent(), &top);
}

}  // namespace
}  // namespace sim
