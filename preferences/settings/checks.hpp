// What a setting may be, by its item of the specifier file.
#pragma once

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"

namespace tilo::pane {

// A value as it is to be written; or none, and why not: "has to be YES or NO".
struct Checked {
  NSNumber value;
  NSString fault;
};

// Whether an item says all that the others here ask of it. Somebody may have edited the file.
bool isSound(NSDictionary item);

// Numbers have to be of the setting's kind and in its range; of a list, the title of a choice will do.
Checked checked(NSDictionary item, bridge::Object given);

// The allowed value that comes nearest to what is stored, which may be of any kind or absent.
NSNumber nearest(NSDictionary item, bridge::Object stored);

// A number as people write it: 5, -12.5.
NSString asText(double number);
NSString joined(NSString one, NSString two, NSString three = {});

}  // namespace tilo::pane
