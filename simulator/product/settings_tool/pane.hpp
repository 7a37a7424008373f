// The settings as their page in Settings knows them: its bundle, which lies beside the program, does the
// work.
#pragma once

#include <string_view>

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/number.hpp"
#include "simulator/appsupport/message.hpp"

namespace sim::product {

struct TiloSettings : bridge::Face<"TiloSettings", NSObject> {
  static constexpr bridge::ClassMethod<"TiloSettings", "useSpecifierFile:", void(NSString)>
      useSpecifierFile{};
  // What a person can set, each as a dictionary: "label", "key", "kind" and what else the specifier file
  // says.
  static constexpr bridge::ClassMethod<"TiloSettings", "items", NSArray()> items{};
  // By key or title; nil when there is none.
  static constexpr bridge::ClassMethod<"TiloSettings", "itemNamed:", NSDictionary(NSString)> itemNamed{};
  static constexpr bridge::ClassMethod<"TiloSettings", "storedValues", NSDictionary()> storedValues{};
  // The value as it is to be written; nil when there is a fault: "has to be YES or NO".
  static constexpr bridge::ClassMethod<"TiloSettings", "valueOf:given:", NSNumber(NSDictionary, NSObject)>
      valueOf_given{};
  static constexpr bridge::ClassMethod<"TiloSettings", "faultOf:given:", NSString(NSDictionary, NSObject)>
      faultOf_given{};
  // What the page shows for a stored value.
  static constexpr bridge::ClassMethod<"TiloSettings", "nearestTo:stored:", NSNumber(NSDictionary, NSObject)>
      nearestTo_stored{};
  // NO when it could not be kept.
  static constexpr bridge::ClassMethod<"TiloSettings", "store:at:", BOOL(NSNumber, NSString)> store_at{};
  static constexpr bridge::ClassMethod<"TiloSettings", "reset", BOOL()> reset{};
  // Each answers nil, or what is wrong; then nothing has changed.
  static constexpr bridge::ClassMethod<"TiloSettings", "backUpTo:", NSString(NSString)> backUpTo{};
  static constexpr bridge::ClassMethod<"TiloSettings", "restoreFrom:", NSString(NSString)> restoreFrom{};
  static constexpr bridge::ClassMethod<"TiloSettings", "pasteLayout:", NSString(NSString)> pasteLayout{};
  // Nil when there is no such layout.
  static constexpr bridge::ClassMethod<"TiloSettings", "textOfLayout:", NSString(NSString)> textOfLayout{};
};

/** Loads the bundle; throws UsageError when it cannot be. */
void loadPane();
/** The specifier file beside the program. Borrowed. */
NSString specifierFile();
/**
 * Stores what was given for a setting; answers the value as it is stored, borrowed. Throws UsageError that
 * names both, as they were `written`, where it cannot be one; then nothing has changed.
 */
NSNumber storeSetting(NSDictionary item, std::string_view name, std::string_view written, NSObject given);
/** What Settings tells the home screen of a setting's new value. Borrowed. */
appsupport::Message announcement(NSDictionary item, NSObject value);

}  // namespace sim::product
