// Sending any object any message that it answers, with arguments written as words.
#pragma once

#include <functional>
#include <span>
#include <string>

#include "bridge/object.hpp"
#include "simulator/json/json.hpp"

namespace sim {

struct Answer {
  std::string type;       // as the class runtime writes it; "v" for none
  bridge::Object object;  // where the type is an object's. Borrowed.
  Json value;             // what is printed of it: of other objects than texts, numbers and lists, the class
};

/** The object that a word of an argument stands for. */
using Meaning = std::function<bridge::Object(const std::string& word)>;

/**
 * Arguments are read by the types of the method: numbers, YES and NO, selectors, structures as their numbers
 * with commas between them, `nil` for any pointer, `main-queue`; blocks print their word when they are
 * called. Objects are what `meaning` says. Throws UsageError when there is no such method, or a word does not
 * fit.
 */
Answer invoke(bridge::Object target, const std::string& message, std::span<const std::string> words,
              const Meaning& meaning);

}  // namespace sim
