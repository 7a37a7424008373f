// What each library made of an answer.
#pragma once

#include <span>
#include <string>

#include "simulator/app/invocation.hpp"

namespace sim {

/**
 * What an object, or a class, answers to any message, as "given": a list of "by" ("SpringBoard", then the
 * files of the libraries that have replaced the method, in the order in which they came) and "value"; the
 * last is what whoever asks gets. The message is sent once for each of them: not for one that does more than
 * answer. Words and errors are those of `invoke`.
 */
Json replacedAnswers(bridge::Object target, const std::string& message, std::span<const std::string> words,
                     const Meaning& meaning);

}  // namespace sim
