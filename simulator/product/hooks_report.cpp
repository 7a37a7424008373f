// The library tells itself what became of each row of its method table, in an array that it exports.
#include <dlfcn.h>

#include <string_view>

#include "simulator/app/simulation.hpp"
#include "simulator/product/product.hpp"

namespace sim::product {
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
Json reportHooks(Simulation& simulation) {
  void* const library = simulation.library();
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

}  // namespace sim::product
