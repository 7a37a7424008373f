// Dragging a scroll view, and what it does after it has been let go.
#pragma once

#include "simulator/uikit/scrolling/scroll_view.hpp"

namespace sim::uikit {

/** The private message that a scroll view's own recogniser sends it. */
struct ScrollViewPan : bridge::Face<"UIScrollView", UIScrollView> {
  MESSAGE Method<"sim_handlePan:", void(UIPanGestureRecognizer)> handlePan;
};

void handlePan(ScrollViewPan self, UIPanGestureRecognizer pan);
BOOL scrollShouldBegin(UIScrollView self, UIGestureRecognizer recognizer);
BOOL touchesShouldCancelInContentView(UIScrollView self, UIView view);

/** A finger has come down on the view; answers whether it stopped the content on its way. */
bool fingerDown(UIScrollView view);
/** The last finger has left the view. */
void fingersGone(UIScrollView view);

/** The recogniser that drags the view, which also keeps touches from its content for a moment. */
bridge::Strong<UIPanGestureRecognizer> makeScrollPan(UIScrollView view);
void defineScrollPan();

}  // namespace sim::uikit
