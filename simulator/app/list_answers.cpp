// Asking a list, by the messages that SpringBoard sends it.
#include "simulator/app/list_answers.hpp"

#include <string_view>

#include "bridge/runtime.hpp"
#include "platform/springboard/dock.hpp"
#include "simulator/app/replaced_answers.hpp"
#include "simulator/springboard/orientation.hpp"

namespace sim {
namespace {

// Those that lists lack are left out.
constexpr const char* classMessages[] = {
    "iconRowsForInterfaceOrientation:", "iconColumnsForInterfaceOrientation:", "maxIcons",
    "maxVisibleIconRowsInterfaceOrientation:"};
constexpr const char* messages[] = {"iconRowsForCurrentOrientation",
                                    "iconColumnsForCurrentOrientation",
                                    "iconRowsForSpacingCalculation",
                                    "iconsInRowForSpacingCalculation",
                                    "verticalIconPadding",
                                    "horizontalIconPadding",
                                    "sideIconInset",
                                    "topIconInset",
                                    "spacing",
                                    "effectiveSpacing"};

Json answersTo(id target, const char* name, const char* sign) {
  if (!class_getInstanceMethod(bridge::classOf(target), sel_registerName(name))) return nullptr;
  std::vector<std::string> words;
  if (std::string_view(name).ends_with(':'))
    words.push_back(std::to_string(springboard::currentOrientation()));
  Json given = replacedAnswers(bridge::as<bridge::Object>(target), name, words, {});
  const Json value = given.back().at("value");
  return {{"message", std::string(sign) + name}, {"value", value}, {"given", std::move(given)}};
}

}  // namespace

Json listAnswers(UIView view) {
  while (view && !bridge::isKindOf<SBIconListView>(view)) view = view.superview();
  if (!view) return nullptr;
  const Class cls = bridge::classOf(view.raw);
  Json answers = Json::array();
  const auto ask = [&](id target, const char* name, const char* sign) {
    if (Json one = answersTo(target, name, sign); !one.isNull()) answers.push_back(std::move(one));
  };
  for (const char* name : messages) ask(view.raw, name, "-");
  for (const char* name : classMessages) ask(reinterpret_cast<id>(cls), name, "+");
  return {{"class", class_getName(cls)}, {"answers", std::move(answers)}};
}

}  // namespace sim
