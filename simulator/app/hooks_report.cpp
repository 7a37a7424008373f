// The library tells itself what became of each row of its method table, in an array that it exports.
#include "simulator/app/hooks_report.hpp"

#include <dlfcn.h>

#include <string_view>

namespace sim {
namespace {

struct Outcome {
  const char* className;
  const char* method;
  const char* outcome;
  const char* successor;
};

Json row(const Outcome& told) {
  return {{"class", told.className},
          {"method", told.method},
          {"outcome", told.outcome},
          {"successor", told.successor ? Json(told.successor) : Json()}};
}

}  // namespace

// A library that does not tell has null.
Json reportHooks(void* library) {
  auto* told = library ? static_cast<const Outcome*>(dlsym(library, "hookOutcomes")) : nullptr;
  if (library && !told) return nullptr;
  int replaced = 0, added = 0;
  Json rows = Json::array();
  for (; told && told->className; ++told) {
    std::string_view outcome = told->outcome;
    replaced += outcome == "replaced" || outcome == "successor";
    added += outcome == "added";
    rows.push_back(row(*told));
  }
  return {{"replaced", replaced}, {"added", added}, {"rows", std::move(rows)}};
}

}  // namespace sim
