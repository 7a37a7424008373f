// What the report has from the library itself, which exports it: what became of its method table's rows, and
// the spacing that it goes by.
#include <string_view>

#include "simulator/app/report_values.hpp"
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

// A library that does not tell has null.
Json hooks(Simulation& simulation) {
  auto* told = static_cast<const Outcome*>(simulation.exported("hookOutcomes"));
  if (!told && !simulation.libraries().empty()) return nullptr;
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

// The library's exported array of four lengths.
Json framing(Simulation& simulation) {
  auto* values = static_cast<const CGFloat*>(simulation.exported("framing"));
  if (!values) return nullptr;
  return Json::array({number(values[0]), number(values[1]), number(values[2]), number(values[3])});
}

constexpr ReportRow hooksRows[] = {
    {"hooks", hooks,
     "as the library tells it: how many rows of its method table `replaced` a method (successors counted) "
     "and how many `added` one; `rows[]` with `class`, `method` (`\"-name:\"`, `\"+name:\"`), `outcome` "
     "(`\"replaced\"`, `\"added\"`, `\"refused\"`: the class had one, `\"successor\"`, `\"class missing\"`, "
     "`\"method missing\"`) and `successor`, what was replaced instead (two with a comma between them), or "
     "null"}};
constexpr ReportRow framingRows[] = {{"framing", framing,
                                      "the library's exported array: vertical and horizontal padding, side "
                                      "and top inset; null without the library"}};

}  // namespace

std::span<const ReportRow> hooksKeys() { return hooksRows; }
std::span<const ReportRow> framingKeys() { return framingRows; }

}  // namespace sim::product
