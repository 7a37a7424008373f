// What an icon list answers SpringBoard, and who has the word in it.
#pragma once

#include "platform/uikit/view.hpp"
#include "simulator/json/json.hpp"

namespace sim {

/**
 * Of the list that the view is or lies in; null when there is none. "class", and "answers" in the order in
 * which SpringBoard asks: "message" ("-name", "+name:"), "value", and "given", from SpringBoard's own answer
 * on what it became by each replacement: "by" and "value".
 */
Json listAnswers(UIView view);

}  // namespace sim
