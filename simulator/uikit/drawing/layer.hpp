// CALayer.
#pragma once

#include "platform/uikit/layer.hpp"
#include "platform/uikit/view.hpp"
#include "simulator/quartz/layer.hpp"

namespace sim::uikit {

/** The layer behind an object, which owns it. */
Layer& layerOf(CALayer layer);
/** The view that the layer belongs to; none for a layer of its own. */
UIView viewOf(CALayer layer);
/** `view` must take itself away again before it dies. */
void setView(CALayer layer, UIView view);
/** Whether the layer is a view's that is in a window. */
bool isOnScreen(CALayer layer);

// Changes that take part in animation blocks. The first three raise CALayerInvalidGeometry for what is not a
// number.

void setBounds(CALayer layer, const CGRect& bounds);
void setPosition(CALayer layer, CGPoint position);
void setFrame(CALayer layer, const CGRect& frame);
void setOpacity(CALayer layer, double opacity);
void setTransform(CALayer layer, const CGAffineTransform& transform);
void setBackgroundColor(CALayer layer, const Color& color);

}  // namespace sim::uikit
