// Finding things on the screen, as somebody looks for them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/uikit/view.hpp"

namespace sim::input {

/**
 * Where to tap what bears that name, in points of the screen as it is turned. An icon bears its label, a
 * control the text of the labels within it, a label its own; icon-font glyphs, and the spaces that they leave
 * at either end, do not count. A close box is called "close", a button that bears a glyph alone as
 * `callGlyph` has it. Throws UsageError that says why when there is none, or when it is hidden, not
 * on the screen, cut off by what it lies in, disabled or covered.
 */
CGPoint findNamed(std::string_view name);
void callGlyph(std::string glyph, std::string name);
/** The same among these views and what is in them. */
CGPoint findNamed(std::string_view name, const std::vector<UIView>& trees);
/** The middle of a view where it can be tapped; otherwise throws UsageError that says why not, and calls it
 * by that name. */
CGPoint findView(UIView view, std::string_view name);

/**
 * The point nearest the middle of the screen that no icon and no label of one covers; one that keeps
 * `distance` points from `other`, where that is given. Throws UsageError when there is none.
 */
CGPoint freePoint();
CGPoint freePoint(CGPoint other, double distance);

/** The middle of a view, in points of the screen as it is turned. */
CGPoint middleOnScreen(UIView view);

/**
 * Why a finger at that point of the screen, on a part of the view, does not act on the view: words that go on
 * after its name. Empty when nothing is in its way.
 */
std::string obstacle(UIView view, UIView part, CGPoint place);

/** A text without glyphs of the private use area and without the spaces at either end then. */
std::string withoutGlyphs(std::string_view text);

}  // namespace sim::input
