// What a test's piece of code raises.
#pragma once

#include <string>

#include "bridge/replace.hpp"
#include "platform/foundation/string.hpp"

namespace test {

struct RaisingException : bridge::Face<"NSException", NSObject> {
  MESSAGE Method<"name", NSString()> name;
  MESSAGE Method<"raise", void()> raise;
};

// An exception of the platform as one of C++, which can be caught by its type.
struct Raised {
  std::string name;
};

inline void raiseAsRaised(RaisingException self) { throw Raised{self.name().UTF8String()}; }

// The name of the exception that `code` raises; empty when it raises none. From the first use on exceptions
// of the platform travel as Raised everywhere in the process.
std::string raised(auto code) {
  static const bool installed = [] {
    bridge::install(bridge::replace<RaisingException, &RaisingException::raise, raiseAsRaised>());
    return true;
  }();
  (void)installed;
  try {
    code();
  } catch (const Raised& exception) {
    return exception.name;
  }
  return "";
}

}  // namespace test
