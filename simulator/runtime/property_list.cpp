// GNUstep's own reading of dictionaries from files knows texts only, and complains on standard error about
// others. Its own writing of them leaves an empty file when a value has letters that are not in ASCII.
#include "simulator/runtime/property_list.hpp"

#include <string>
#include <string_view>

#include "bridge/replace.hpp"
#include "platform/foundation/data.hpp"
#include "platform/foundation/number.hpp"
#include "platform/foundation/run_loop.hpp"
#include "simulator/runtime/property_list_nesting.hpp"

namespace sim {
namespace {

struct NSPropertyListSerialization : bridge::Face<"NSPropertyListSerialization", NSObject> {
  // Data, options, format (a result), error (a result); the last two may be null.
  static constexpr bridge::ClassMethod<"NSPropertyListSerialization",
                                       "propertyListWithData:options:format:error:",
                                       bridge::Object(NSData, NSUInteger, NSUInteger*, id*)>
      propertyListWithData_options_format_error{};
  // Object, format, options, error (a result, may be null).
  static constexpr bridge::ClassMethod<"NSPropertyListSerialization",
                                       "dataWithPropertyList:format:options:error:",
                                       NSData(bridge::Object, NSUInteger, NSUInteger, id*)>
      dataWithPropertyList_format_options_error{};
};

// Seconds from the beginning of 2001 on: from the year 4 to the end of 9999. GNUstep writes earlier dates for
// ever, and later ones so that nobody can read them.
constexpr double earliest = -63e9, latest = 252'455'615'999;

bool isWritable(NSDate date) {
  const double seconds = date.timeIntervalSinceReferenceDate();
  return seconds >= earliest && seconds <= latest;
}

constexpr NSUInteger xmlFormat = 100;  // NSPropertyListXMLFormat_v1_0

constexpr std::string_view mark = "\xef\xbb\xbf";  // of byte order: U+FEFF in UTF-8

// Without a mark before it and blanks around it.
std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  if (text.starts_with(mark)) text.remove_prefix(mark.size());
  const size_t first = text.find_first_not_of(blanks);
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

// Whether it looks whole and as one of the device's forms do: binary, XML, or the old text. GNUstep takes
// anything else for a form of its own and trusts whatever lengths it finds, and reads on behind the end of an
// XML text that breaks off.
bool hasKnownForm(std::string_view text) {
  if (text.starts_with("bplist00")) return true;
  text = trimmed(text);
  if (text.empty()) return false;
  return text.starts_with('<') ? text.ends_with("</plist>") : std::string_view("{(/").contains(text[0]);
}

// Whether a piece of a text or a key begins here: behind its tag, or behind what stands for a letter.
bool beginsPiece(std::string_view xml, std::size_t at) {
  const std::string_view before = xml.substr(0, at);
  if (before.ends_with("<string>") || before.ends_with("<key>")) return true;
  if (!before.ends_with(';')) return false;
  const std::size_t reference = xml.find_last_of("&;> ", at - 2);
  return reference != xml.npos && xml[reference] == '&';
}

// GNUstep leaves two marks of byte order out where a piece of text begins with them: there two stand before.
std::string withMarksKept(std::string_view xml) {
  std::string changed;
  std::size_t taken = 0;
  for (std::size_t at = xml.find(mark); at != xml.npos; at = xml.find(mark, at + mark.size())) {
    if (!beginsPiece(xml, at)) continue;
    changed.append(xml, taken, at - taken).append(mark).append(mark);
    taken = at;
  }
  return changed.append(xml, taken);
}

// Nil for a damaged one. GNUstep raises for some of them, and reads no XML with a mark before it.
bridge::Object parsed(NSData data, std::string_view bytes) {
  if (bytes.contains(mark) && trimmed(bytes).starts_with('<')) {
    const std::string changed = withMarksKept(trimmed(bytes));
    data = NSData::dataWithBytes_length(changed.data(), changed.size());
  }
  NSUInteger format = 0;
  id error = nullptr;
  try {
    return NSPropertyListSerialization::propertyListWithData_options_format_error(data, 0, &format, &error);
  } catch (...) {
    return {};
  }
}

bridge::Wire<BOOL> writeToFile(id self, SEL, id file, bridge::Wire<BOOL> atomically) {
  return propertyListText(bridge::as<NSDictionary>(self))
      .writeToFile_atomically(bridge::as<NSString>(file), atomically != 0);
}

id dictionaryWithContentsOfFile(id, SEL, id file) { return propertyList(bridge::as<NSString>(file)).raw; }

}  // namespace

void handlePropertyListsAsTheDevice() {
  static bridge::Slot written, read;
  Class dictionary = bridge::classNamed<NSDictionary>();
  bridge::replaceMethod(dictionary, bridge::Descriptor<&NSDictionary::writeToFile_atomically>::selector(),
                        reinterpret_cast<IMP>(&writeToFile), written);
  bridge::replaceMethod(bridge::classOf(reinterpret_cast<id>(dictionary)),
                        sel_registerName("dictionaryWithContentsOfFile:"),
                        reinterpret_cast<IMP>(&dictionaryWithContentsOfFile), read);
}

bridge::Object withAllDigits(bridge::Object object) {
  if (bridge::isKindOf<NSNumber>(object)) {
    const auto number = bridge::as<NSNumber>(object);
    return *number.objCType() == 'f' ? NSNumber::numberWithDouble(number.floatValue()) : number;
  }
  if (bridge::isKindOf<NSArray>(object)) {
    const auto list = bridge::as<NSArray>(object);
    NSMutableArray made = NSMutableArray::array();
    for (NSUInteger i = 0; i < list.count(); ++i) made.addObject(withAllDigits(list.objectAtIndex(i)));
    return made;
  }
  if (bridge::isKindOf<NSDictionary>(object)) {
    const auto table = bridge::as<NSDictionary>(object);
    const NSArray keys = table.allKeys();
    NSMutableDictionary made = NSMutableDictionary::dictionary();
    for (NSUInteger i = 0; i < keys.count(); ++i)
      made.setObject_forKey(withAllDigits(table.objectForKey(keys.objectAtIndex(i))), keys.objectAtIndex(i));
    return made;
  }
  return object;
}

bool isPropertyList(bridge::Object object) {
  if (bridge::isKindOf<NSArray>(object)) {
    auto array = bridge::as<NSArray>(object);
    for (NSUInteger i = 0; i < array.count(); ++i)
      if (!isPropertyList(array.objectAtIndex(i))) return false;
    return true;
  }
  if (bridge::isKindOf<NSDictionary>(object)) {
    auto dictionary = bridge::as<NSDictionary>(object);
    NSArray keys = dictionary.allKeys();
    for (NSUInteger i = 0; i < keys.count(); ++i) {
      const bridge::Object key = keys.objectAtIndex(i);
      if (!bridge::isKindOf<NSString>(key) || !isPropertyList(dictionary.objectForKey(key))) return false;
    }
    return true;
  }
  return bridge::isKindOf<NSString>(object) || bridge::isKindOf<NSNumber>(object) ||
         bridge::isKindOf<NSData>(object) ||
         (bridge::isKindOf<NSDate>(object) && isWritable(bridge::as<NSDate>(object)));
}

NSData propertyListText(NSDictionary values) {
  return NSPropertyListSerialization::dataWithPropertyList_format_options_error(withAllDigits(values),
                                                                                xmlFormat, 0, nullptr);
}

NSDictionary propertyList(NSString file) { return propertyList(NSData::dataWithContentsOfFile(file)); }

NSDictionary propertyList(NSData data) {
  const std::string_view bytes(static_cast<const char*>(data.bytes()), data.length());
  if (!hasKnownForm(bytes) || !isNestedSanely(bytes)) return {};
  bridge::Object read = parsed(data, bytes);
  // A binary one may have keys that are no strings, and dates of no calendar, which nobody could write again.
  return bridge::isKindOf<NSDictionary>(read) && isPropertyList(read) ? bridge::as<NSDictionary>(read)
                                                                      : NSDictionary{};
}

}  // namespace sim
