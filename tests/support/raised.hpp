// Exceptions of the platform, caught.
#pragma once

#include <string>

#include "bridge/replace.hpp"
#include "platform/foundation/exception.hpp"

namespace test {

inline std::string lastRaised;

inline void noteRaise(NSException exception) {
  lastRaised = std::string(exception.name().UTF8String()) + ": " + exception.reason().UTF8String();
  bridge::original<noteRaise>(exception);
}

// "Name: reason" of the exception that `function` raises; empty when it raises none.
std::string raised(const auto& function) {
  using Raise = bridge::Descriptor<&NSException::raise>;
  if (!bridge::slot<noteRaise>.previous)
    bridge::replaceMethod(bridge::classNamed<NSException>(), Raise::selector(),
                          bridge::implementationOf<&NSException::raise, noteRaise>(),
                          bridge::slot<noteRaise>);
  lastRaised.clear();
  try {
    function();
  } catch (...) {
    return lastRaised;
  }
  return "";
}

// The name alone.
std::string raisedName(const auto& function) {
  const std::string text = raised(function);
  return text.substr(0, text.find(':'));
}

}  // namespace test
