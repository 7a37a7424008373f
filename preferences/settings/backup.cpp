// Writing a backup, judging one, and putting it in place.
#include "preferences/settings/backup.hpp"

#include <string_view>

#include "platform/foundation/file_manager.hpp"
#include "platform/foundation/json.hpp"
#include "preferences/settings/checks.hpp"
#include "preferences/settings/domain.hpp"
#include "preferences/settings/layouts.hpp"
#include "preferences/settings/specifiers.hpp"
#include "settings/store/keys.hpp"
#include "settings/store/presets_file.hpp"
#include "settings/store/restoration.hpp"

namespace tilo::pane {
namespace {

constexpr NSUInteger onManyLines = 1;  // NSJSONWritingPrettyPrinted
constexpr int version = 1;

NSString format() { return "Tilo backup"_ns; }

NSArray allItems() {
  NSMutableArray all = NSMutableArray::arrayWithArray(settingItems());
  NSArray unseen = unseenItems();
  for (NSUInteger i = 0; i < unseen.count(); ++i) all.addObject(unseen.objectAtIndex(i));
  return all;
}

NSDictionary itemAt(NSArray items, NSUInteger place) {
  return bridge::as<NSDictionary>(items.objectAtIndex(place));
}

// What is stored and cannot be is kept as what it is shown as, so that every backup can be restored.
NSDictionary settingsToKeep() {
  NSDictionary stored = storedValues();
  NSArray items = allItems();
  NSMutableDictionary kept = NSMutableDictionary::dictionary();
  for (NSUInteger i = 0; i < items.count(); ++i) {
    NSDictionary item = itemAt(items, i);
    if (bridge::Object value = stored.objectForKey(keyOf(item)))
      kept.setObject_forKey(nearest(item, value), keyOf(item));
  }
  return kept;
}

// A backup that has been judged: what is to be written, what is to go.
struct Judged {
  NSMutableDictionary values;
  NSMutableArray absent;
  NSArray layouts;
  NSString fault;
  NSData presets;
};

Judged wrong(NSString fault) { return {{}, {}, {}, fault, {}}; }

// A layout's position is judged by the layouts that come with it.
Checked checkedAmong(NSArray layouts, NSDictionary item, bridge::Object given) {
  if (!is(textIn(item, "choices"_ns), "layouts"_ns)) return checked(item, given);
  NSMutableArray values = NSMutableArray::array();
  for (int place = -1; place < static_cast<int>(layouts.count()) || place == 0; ++place)
    values.addObject(NSNumber::numberWithInt(place));
  NSMutableDictionary among = item.mutableCopy().autoreleased();
  among.setObject_forKey(values, "validValues"_ns);
  NSMutableArray titles = NSMutableArray::array();
  for (NSUInteger i = 0; i < values.count(); ++i)
    titles.addObject(asText(bridge::as<NSNumber>(values.objectAtIndex(i)).doubleValue()));
  among.setObject_forKey(titles, "validTitles"_ns);
  return checked(among, given);
}

Judged judge(NSDictionary document) {
  if (!is(textIn(document, "format"_ns), format())) return wrong("this is no backup of Tilo's"_ns);
  auto given = bridge::as<NSNumber>(document.objectForKey("version"_ns));
  if (!bridge::isKindOf<NSNumber>(given) || given.intValue() < 1)
    return wrong("the backup has no version"_ns);
  if (given.intValue() > version)
    return wrong(joined("the backup is of version "_ns, asText(given.intValue()),
                        ", which is later than this one knows"_ns));
  Judged judged{
      NSMutableDictionary::dictionary(), NSMutableArray::array(), listIn(document, "layouts"_ns), {}, {}};
  if (!judged.layouts) return wrong("the backup has no list of layouts"_ns);
  if (NSString fault = faultInLayouts(judged.layouts)) return wrong(fault);
  auto settings = bridge::as<NSDictionary>(document.objectForKey("settings"_ns));
  if (!bridge::isKindOf<NSDictionary>(settings)) return wrong("the backup has no settings"_ns);
  NSArray items = allItems();
  NSUInteger known = 0;
  for (NSUInteger i = 0; i < items.count(); ++i) {
    NSDictionary item = itemAt(items, i);
    bridge::Object value = settings.objectForKey(keyOf(item));
    if (!value) {
      judged.absent.addObject(keyOf(item));
      continue;
    }
    ++known;
    Checked found = checkedAmong(judged.layouts, item, value);
    if (found.fault) return wrong(joined(keyOf(item), " "_ns, found.fault));
    judged.values.setObject_forKey(found.value, keyOf(item));
  }
  NSArray keys = settings.allKeys();
  if (known == keys.count()) return judged;
  for (NSUInteger i = 0; i < keys.count(); ++i) {
    auto key = bridge::as<NSString>(keys.objectAtIndex(i));
    if (!judged.values.objectForKey(key)) return wrong(joined(key, " is no setting"_ns));
  }
  return judged;
}

// Nil where the bytes are no JSON object.
NSDictionary documentIn(NSData bytes) {
  if (bytes.length() == 0) return {};
  bridge::Object document = NSJSONSerialization::JSONObjectWithData_options_error(bytes, 0, nullptr);
  return bridge::isKindOf<NSDictionary>(document) ? bridge::as<NSDictionary>(document) : NSDictionary{};
}

using Text = std::string_view;

Text textOf(NSData bytes) { return {static_cast<const char*>(bytes.bytes()), bytes.length()}; }
NSString stringOf(Text text) {
  return bridge::make<NSString, &NSString::initWithBytes_length_encoding>(
             static_cast<const void*>(text.data()), static_cast<NSUInteger>(text.size()),
             static_cast<NSUInteger>(NSUTF8StringEncoding))
      .autoreleased();
}
NSData dataOf(NSString text) {
  const char* bytes = text.UTF8String();
  return NSData::dataWithBytes_length(bytes, Text(bytes).size());
}

constexpr Text documentHead = "{\"configurations\":", documentTail = "}";
constexpr Text layoutsHead = ",\n\"layouts\": ", layoutsTail = "\n}";

// What lies between the two; empty when they are not there.
Text between(Text head, Text text, Text tail) {
  std::size_t begin = text.rfind(head);
  if (begin == Text::npos || !text.ends_with(tail)) return {};
  begin += head.size();
  return begin + tail.size() > text.size() ? Text() : text.substr(begin, text.size() - tail.size() - begin);
}

// The presets file that a backup's layouts make: with their very letters, where these are found.
NSData presetsOf(NSData backup, NSArray layouts) {
  NSData plain = presets::document(layouts);
  Text letters = between(layoutsHead, textOf(backup), layoutsTail);
  if (letters.empty()) return plain;
  NSData same = dataOf(joined(stringOf(documentHead), stringOf(letters), stringOf(documentTail)));
  bridge::Object found = NSJSONSerialization::JSONObjectWithData_options_error(same, 0, nullptr);
  bool equal =
      bridge::isKindOf<NSDictionary>(found) &&
      bridge::as<NSObject>(bridge::as<NSDictionary>(found).objectForKey(NSString(keys::configurations)))
          .isEqual(layouts);
  return equal ? same : plain;
}

// The layouts as the presets file has them; made anew where not all of them are layouts.
NSString lettersOfLayouts() {
  NSArray kept = layoutsToKeep();
  NSData file = NSData::dataWithContentsOfFile(presets::path());
  Text letters = file ? between(documentHead, textOf(file), documentTail) : Text();
  bool plain = letters.starts_with('[') && textOf(file).starts_with(documentHead);
  if (plain) {
    bridge::Object all =
        NSJSONSerialization::JSONObjectWithData_options_error(dataOf(stringOf(letters)), 0, nullptr);
    if (bridge::as<NSObject>(all).isEqual(kept)) return stringOf(letters);
  }
  return stringOf(between(documentHead, textOf(presets::document(kept)), documentTail));
}

Judged judged(NSData bytes) {
  NSDictionary document = documentIn(bytes);
  if (!document) return wrong("the backup is no JSON, or not all of it"_ns);
  Judged found = judge(document);
  if (!found.fault) found.presets = presetsOf(bytes, found.layouts);
  return found;
}

// What is stored at keys that are no settings stays.
NSDictionary valuesWith(const Judged& backup) {
  NSMutableDictionary all = storedValues().mutableCopy().autoreleased();
  for (NSUInteger i = 0; i < backup.absent.count(); ++i)
    all.removeObjectForKey(backup.absent.objectAtIndex(i));
  all.addEntriesFromDictionary(backup.values);
  return all;
}

}  // namespace

NSString backupFolder() { return "/var/mobile/Documents/com.wexor.tilo3/backups"_ns; }

NSArray backupNames() {
  NSArray found = NSFileManager::defaultManager().contentsOfDirectoryAtPath_error(backupFolder(), nullptr);
  NSMutableArray names = NSMutableArray::array();
  NSArray sorted = found.sortedArrayUsingSelector(bridge::selector<"compare:">());
  for (NSUInteger i = sorted.count(); i > 0; --i) {
    auto name = bridge::as<NSString>(sorted.objectAtIndex(i - 1));
    if (name.hasSuffix(".json"_ns)) names.addObject(name);
  }
  return names;
}

NSString backUpTo(NSString path) {
  NSMutableDictionary document = NSMutableDictionary::dictionary();
  document.setObject_forKey(format(), "format"_ns);
  document.setObject_forKey(NSNumber::numberWithInt(version), "version"_ns);
  document.setObject_forKey(settingsToKeep(), "settings"_ns);
  NSData head = NSJSONSerialization::dataWithJSONObject_options_error(document, onManyLines, nullptr);
  // Without the brace that closes all.
  Text opened = textOf(head);
  opened = opened.substr(0, opened.rfind('}'));
  opened = opened.substr(0, opened.find_last_not_of("\n ") + 1);
  NSString text =
      joined(joined(stringOf(opened), stringOf(layoutsHead)), lettersOfLayouts(), stringOf(layoutsTail));
  if (!dataOf(text).writeToFile_atomically(path, YES)) return "the backup cannot be written"_ns;
  return {};
}

NSString restoreFrom(NSString path) {
  NSData bytes = NSData::dataWithContentsOfFile(path);
  if (!bytes) return "the backup cannot be read"_ns;
  Judged backup = judged(bytes);
  if (backup.fault) return backup.fault;
  switch (restoration::carryOut(valuesWith(backup), backup.presets)) {
    case restoration::Outcome::done:
      return {};
    case restoration::Outcome::undone:
      return "the backup cannot be put in place: the disk refuses it"_ns;
    case restoration::Outcome::pending:
      return "the disk refuses the backup now; it is put in place at the next start"_ns;
  }
}

}  // namespace tilo::pane
