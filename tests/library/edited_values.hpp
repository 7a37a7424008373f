// Values of kinds that somebody's hand may have put where a number is expected.
#pragma once

#include <limits>
#include <string>
#include <vector>

#include "platform/foundation/array.hpp"
#include "platform/foundation/data.hpp"
#include "platform/foundation/number.hpp"
#include "platform/foundation/run_loop.hpp"
#include "tests/library/device_files.hpp"

namespace test {

struct Edited {
  const char* name;
  const char* xml;  // as a property list has it
  bridge::Object (*object)();
};
inline void PrintTo(const Edited& edited, std::ostream* out) { *out << edited.name; }

inline bridge::Object emptyData() { return bridge::ClassMethod<"NSData", "data", NSData()>()(); }

// Kinds that are no number at all.
inline const std::vector<Edited> wrongKinds{
    {"AList", "<array><integer>3</integer></array>",
     [] {
       NSMutableArray list = NSMutableArray::array();
       list.addObject(NSNumber::numberWithInt(3));
       return bridge::Object(list);
     }},
    {"ATable", "<dict><key>value</key><integer>3</integer></dict>",
     [] {
       return bridge::Object(
           NSDictionary::dictionaryWithObject_forKey(NSNumber::numberWithInt(3), "value"_ns));
     }},
    {"ADate", "<date>2026-01-01T00:00:00Z</date>", [] { return bridge::Object(NSDate::date()); }},
    {"Data", "<data>AAEC</data>", emptyData},
};

// Strings without a number.
inline const std::vector<Edited> wrongTexts{
    {"AWord", "<string>many</string>", [] { return bridge::Object("many"_ns); }},
    {"AnEmptyText", "<string></string>", [] { return bridge::Object(""_ns); }},
};

// Numbers that are none, as numbers and as strings.
inline const std::vector<Edited> noNumbers{
    {"NoNumber", "<real>nan</real>",
     [] { return bridge::Object(NSNumber::numberWithDouble(std::numeric_limits<double>::quiet_NaN())); }},
    {"AnInfiniteOne", "<real>+infinity</real>",
     [] { return bridge::Object(NSNumber::numberWithDouble(std::numeric_limits<double>::infinity())); }},
    {"AnInfiniteOneBelowZero", "<real>-infinity</real>",
     [] { return bridge::Object(NSNumber::numberWithFloat(-std::numeric_limits<float>::infinity())); }},
    {"NanInLetters", "<string>nan</string>", [] { return bridge::Object("nan"_ns); }},
    {"InfinityInLetters", "<string>inf</string>", [] { return bridge::Object("inf"_ns); }},
};

inline const std::vector<Edited> endlessTexts{
    {"TooManyDigits", "<string>1e999</string>", [] { return bridge::Object("1e999"_ns); }},
    {"TooManyDigitsBelowZero", "<string>-1e999</string>", [] { return bridge::Object("-1e999"_ns); }},
};

inline std::vector<Edited> together(std::initializer_list<const std::vector<Edited>*> lists) {
  std::vector<Edited> all;
  for (const auto* list : lists) all.insert(all.end(), list->begin(), list->end());
  return all;
}

inline std::string editedName(const auto& info) { return info.param.name; }

}  // namespace test
