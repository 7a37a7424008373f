// UIView's place in the tree of views.
#include <fmt/format.h>

#include <algorithm>

#include "simulator/uikit/animation/animation.hpp"
#include "simulator/uikit/base/array.hpp"
#include "simulator/uikit/base/exception.hpp"
#include "simulator/uikit/views/first_responder.hpp"
#include "simulator/uikit/views/view_methods.hpp"

namespace sim::uikit {
namespace {

using bridge::Strong;
using Subviews = std::vector<Strong<UIView>>;

Subviews::iterator find(Subviews& subviews, UIView view) {
  return std::find_if(subviews.begin(), subviews.end(), [view](const auto& one) { return one == view; });
}

// Puts the layer where the view stands among its siblings. Layers that belong to no view stay where they are.
void placeLayer(UIView parent, UIView view) {
  Layer& layer = layerOf(view);
  Layer& parentLayer = layerOf(parent);
  layer.removeFromParent();
  Subviews& siblings = stateOf(parent).subviews;
  const auto next = find(siblings, view) + 1;
  std::size_t index = parentLayer.children().size();
  if (next != siblings.end()) {
    const auto children = parentLayer.children();
    index = static_cast<std::size_t>(std::find(children.begin(), children.end(), &layerOf(next->get())) -
                                     children.begin());
  }
  parentLayer.insertChild(layer, index);
}

void insert(Subviews& subviews, Strong<UIView> view, NSInteger index) {
  const NSInteger place = std::clamp<NSInteger>(index, 0, static_cast<NSInteger>(subviews.size()));
  subviews.insert(subviews.begin() + place, std::move(view));
}

void announceWindow(UIView view, UIWindow window) {
  forEachInTree(view, [window](UIView one) {
    if (const UIViewController controller = stateOf(one).controller)
      window ? controller.viewWillAppear(NO) : controller.viewWillDisappear(NO);
    one.willMoveToWindow(window);
  });
}

void tellWindow(UIView view, UIWindow window) {
  forEachInTree(view, [window](UIView one) {
    if (!window) {
      resignForcibly(one);
      cancelAnimations(layerObjectOf(one));
    }
    one.didMoveToWindow();
    if (const UIViewController controller = stateOf(one).controller)
      window ? controller.viewDidAppear(NO) : controller.viewDidDisappear(NO);
  });
}

// Takes the view out of its superview's list and layer.
void unlink(UIView view) {
  const UIView parent = stateOf(view).superview;
  if (!parent) return;
  stateOf(view).superview = {};
  layerOf(view).removeFromParent();
  Subviews& siblings = stateOf(parent).subviews;
  const auto place = find(siblings, view);
  const Strong<UIView> last = std::move(*place);
  siblings.erase(place);
  parent.setNeedsLayout();
}

// Moves the view to a place among the subviews of `parent`, or out of the tree without one.
void move(UIView view, UIView parent, NSInteger index) {
  const Strong<UIView> alive = retained(view);
  const UIWindow oldWindow = windowOf(view);
  const UIWindow newWindow = parent ? windowOf(parent) : UIWindow();
  const bool changesWindow = !(oldWindow == newWindow);
  view.willMoveToSuperview(parent);
  if (changesWindow) announceWindow(view, newWindow);
  if (const UIView old = stateOf(view).superview) old.willRemoveSubview(view);
  unlink(view);
  if (parent) {
    insert(stateOf(parent).subviews, alive, index);
    stateOf(view).superview = parent;
    placeLayer(parent, view);
    expectLayoutBelow(parent);
    parent.setNeedsLayout();
  }
  if (changesWindow) tellWindow(view, newWindow);
  view.didMoveToSuperview();
  if (parent) parent.didAddSubview(view);
}

// Within the same superview nothing but the order changes.
void reorder(UIView parent, UIView view, NSInteger index) {
  Subviews& siblings = stateOf(parent).subviews;
  const auto place = find(siblings, view);
  Strong<UIView> moved = std::move(*place);
  siblings.erase(place);
  insert(siblings, std::move(moved), index);
  placeLayer(parent, view);
}

void put(UIView parent, UIView view, NSInteger index) {
  if (!view) return;
  if (parent.isDescendantOfView(view))
    raise("NSInvalidArgumentException"_ns,
          fmt::format("Can't add {} as a subview of {}, which is it or within it",
                      class_getName(bridge::classOf(view.raw)), class_getName(bridge::classOf(parent.raw))));
  if (stateOf(view).superview == parent)
    reorder(parent, view, index);
  else
    move(view, parent, index);
}

NSInteger inFront(UIView parent) { return static_cast<NSInteger>(stateOf(parent).subviews.size()); }

}  // namespace

UIWindow windowOf(UIView view) {
  while (stateOf(view).superview) view = stateOf(view).superview;
  return bridge::isKindOf<UIWindow>(view) ? bridge::as<UIWindow>(view) : UIWindow();
}

void forEachInTree(UIView view, const std::function<void(UIView)>& visit) {
  const Strong<UIView> alive = retained(view);
  const Subviews below = stateOf(view).subviews;
  visit(view);
  for (const Strong<UIView>& subview : below)
    if (stateOf(subview).superview == view) forEachInTree(subview, visit);
}

namespace view {

UIView superview(UIView self) { return stateOf(self).superview; }
NSArray subviews(UIView self) { return makeArray(stateOf(self).subviews); }
UIWindow window(UIView self) { return windowOf(self); }
void addSubview(UIView self, UIView view) { put(self, view, inFront(self)); }
void insertSubview(UIView self, UIView view, NSInteger index) { put(self, view, index); }

void bringSubviewToFront(UIView self, UIView view) {
  if (view && stateOf(view).superview == self) reorder(self, view, inFront(self));
}

void sendSubviewToBack(UIView self, UIView view) {
  if (view && stateOf(view).superview == self) reorder(self, view, 0);
}

void removeFromSuperview(UIView self) {
  if (stateOf(self).superview) move(self, {}, 0);
}

BOOL isDescendantOfView(UIView self, UIView view) {
  for (UIView one = self; one; one = stateOf(one).superview)
    if (one == view) return YES;
  return NO;
}

UIView viewWithTag(UIView self, NSInteger tag) {
  if (self.tag() == tag) return self;
  for (const Strong<UIView>& subview : stateOf(self).subviews)
    if (const UIView found = subview->viewWithTag(tag)) return found;
  return {};
}

}  // namespace view
}  // namespace sim::uikit
