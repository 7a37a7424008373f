// Asking a list, and asking each of the methods that replaced one another.
#include "simulator/app/list_answers.hpp"

#include <cstring>

#include "bridge/runtime.hpp"
#include "platform/springboard/dock.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/runtime/hooking.hpp"
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

template <class R>
Json call(IMP implementation, id target, SEL selector, NSInteger orientation) {
  const bool takesOne = std::strchr(sel_getName(selector), ':') != nullptr;
  const R value =
      takesOne ? reinterpret_cast<R (*)(id, SEL, NSInteger)>(implementation)(target, selector, orientation)
               : reinterpret_cast<R (*)(id, SEL)>(implementation)(target, selector);
  return number(static_cast<double>(value));
}

// By the letter with which the method's types begin.
Json answer(IMP implementation, id target, SEL selector, char type) {
  const NSInteger orientation = springboard::currentOrientation();
  const bool isReal = type == 'd' || type == 'f';
  return isReal ? call<CGFloat>(implementation, target, selector, orientation)
                : call<NSUInteger>(implementation, target, selector, orientation);
}

Json answersTo(id target, const char* name, const char* sign) {
  const SEL selector = sel_registerName(name);
  objc_method* method = class_getInstanceMethod(bridge::classOf(target), selector);
  if (!method) return nullptr;
  const char type = method_getTypeEncoding(method)[0];
  const std::vector<Replacement> replaced = replacementsOf(bridge::classOf(target), selector);
  const IMP own = replaced.empty() ? method_getImplementation(method) : replaced.front().previous;
  Json given = Json::array();
  given.push_back({{"by", "SpringBoard"}, {"value", answer(own, target, selector, type)}});
  for (const Replacement& each : replaced)
    given.push_back({{"by", each.library}, {"value", answer(each.implementation, target, selector, type)}});
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
