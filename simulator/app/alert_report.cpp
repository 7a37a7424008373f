// The alert in front: what it says, how it may be answered, and what stands in its text field.
#include "simulator/app/report_parts.hpp"
#include "simulator/input/alert.hpp"

namespace sim {
namespace {

Json titles(NSArray actions) {
  Json all = Json::array();
  for (NSUInteger i = 0; i < actions.count(); ++i)
    all.push_back(plain(bridge::as<UIAlertAction>(actions.objectAtIndex(i)).title()));
  return all;
}

Json firstText(NSArray fields) {
  return fields.count() == 0 ? Json() : plain(bridge::as<UITextField>(fields.objectAtIndex(0)).text());
}

}  // namespace

Json reportAlert(Simulation&) {
  const UIAlertController alert = input::frontAlert();
  if (!alert) return nullptr;
  return {{"title", plain(alert.title())},
          {"message", plain(alert.message())},
          {"actions", titles(alert.actions())},
          {"text", firstText(alert.textFields())}};
}

}  // namespace sim
