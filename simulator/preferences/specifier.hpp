// PSSpecifier: what a row of a page is, made from a property list.
#pragma once

#include <string>
#include <vector>

#include "platform/preferences/specifier.hpp"

namespace sim::preferences {

enum class Cell { group, link, linkList, listItem, slider, onOff, button, text };

/** What the framework itself keeps of a row. */
struct Row {
  Cell cell = Cell::group;
  std::string detail = {};  // the class of the page that it leads to
  SEL getter = nullptr, setter = nullptr, action = nullptr;
};
const Row& rowOf(PSSpecifier specifier);

/** The rows of a property list's items; throws UsageError for a cell that is not there. Borrowed. */
NSArray specifiersFrom(NSDictionary list, bridge::Object target);

bridge::Strong<PSSpecifier> makeSpecifier(NSString name, bridge::Object target, Row row);

/** What its target answers, and telling its target; nothing where the specifier names no selector. */
bridge::Object valueOf(PSSpecifier specifier);
void setValue(PSSpecifier specifier, bridge::Object value);
void performAction(PSSpecifier specifier);

/** Text of a property; empty when there is none. */
std::string textOf(PSSpecifier specifier, NSString key);
double numberOf(PSSpecifier specifier, NSString key, double otherwise);

void defineSpecifier();

}  // namespace sim::preferences
