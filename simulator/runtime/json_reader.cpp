// One walk over the text, which makes each object once. Keys and numbers that come again are the object that
// they were, of which the device needs none either: a list of records has few of each.
#include "simulator/runtime/json_reader.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/null.hpp"
#include "platform/foundation/number.hpp"
#include "simulator/device/text.hpp"

namespace sim {
namespace {

using Owned = bridge::Strong<bridge::Object>;

struct MadeArray : bridge::Face<"NSArray", NSArray> {
  MESSAGE Method<"initWithObjects:count:", NSArray(const id*, NSUInteger)> initWithObjects_count;
};

struct MadeDictionary : bridge::Face<"NSDictionary", NSDictionary> {
  // Of a key that is there twice the last value counts.
  MESSAGE Method<"initWithObjects:forKeys:count:", NSDictionary(const id*, const id*, NSUInteger)>
      initWithObjects_forKeys_count;
};

struct MadeString : bridge::Face<"NSString", NSString> {
  MESSAGE Method<"initWithCharacters:length:", NSString(const char16_t*, NSUInteger)>
      initWithCharacters_length;
};

// What the last few pieces of text have been made into.
template <std::size_t places>
class Memory {
 public:
  template <class Make>
  id find(std::string_view text, Make make) {
    Place& place = all[placeOf(text)];
    if (!place.object || place.text != text) place = {text, make()};
    return place.object;
  }

 private:
  struct Place {
    std::string_view text;
    id object = nullptr;
  };
  // The ends tell texts apart best, be they keys or numbers.
  static std::size_t placeOf(std::string_view text) {
    std::size_t hash = text.size();
    for (char c : text.substr(text.size() - std::min<std::size_t>(text.size(), 8)))
      hash = hash * 31 + static_cast<unsigned char>(c);
    return hash % places;
  }

  std::array<Place, places> all;
};

class Reader {
 public:
  Reader(std::string_view text, int deepest) : left(text), depthLeft(deepest) {
    if (left.starts_with("\xEF\xBB\xBF")) left.remove_prefix(3);
  }

  // Nil when the text is no JSON.
  Owned all() {
    if (!value()) return nullptr;
    skipBlanks();
    return left.empty() ? bridge::retained(bridge::as<bridge::Object>(values.front())) : nullptr;
  }

 private:
  char next() const { return left.empty() ? '\0' : left.front(); }

  bool take(char wanted) {
    if (left.empty() || left.front() != wanted) return false;
    left.remove_prefix(1);
    return true;
  }

  bool takeWord(std::string_view word) {
    if (!left.starts_with(word)) return false;
    left.remove_prefix(word.size());
    return true;
  }

  void skipBlanks() {
    while (next() == ' ' || next() == '\n' || next() == '\t' || next() == '\r') left.remove_prefix(1);
  }

  id keep(Owned object) { return made.emplace_back(std::move(object)).get().raw; }

  // False for none.
  bool push(id object) {
    values.push_back(object);
    return object != nullptr;
  }

  // Each of these puts what it has read behind the others in `values`; false where there is no such thing.
  bool value() {
    skipBlanks();
    switch (next()) {
      case '{':
        return depthLeft > 0 && object();
      case '[':
        return depthLeft > 0 && array();
      case '"':
        return push(string());
      case 't':
        return takeWord("true") && push(NSNumber::numberWithBool(YES).raw);
      case 'f':
        return takeWord("false") && push(NSNumber::numberWithBool(NO).raw);
      case 'n':
        return takeWord("null") && push(NSNull::null().raw);
      default:
        return number();
    }
  }

  bool array() {
    const std::size_t first = values.size();
    --depthLeft;
    take('[');
    skipBlanks();
    if (!take(']')) {
      do {
        if (!value()) return false;
        skipBlanks();
      } while (take(','));
      if (!take(']')) return false;
    }
    ++depthLeft;
    const id list = keep(bridge::make<MadeArray, &MadeArray::initWithObjects_count>(values.data() + first,
                                                                                    values.size() - first));
    values.resize(first);
    return push(list);
  }

  bool object() {
    const std::size_t first = values.size(), firstKey = keys.size();
    --depthLeft;
    take('{');
    skipBlanks();
    if (!take('}')) {
      do {
        if (!member()) return false;
        skipBlanks();
      } while (take(','));
      if (!take('}')) return false;
    }
    ++depthLeft;
    const id table = keep(bridge::make<MadeDictionary, &MadeDictionary::initWithObjects_forKeys_count>(
        values.data() + first, keys.data() + firstKey, values.size() - first));
    values.resize(first);
    keys.resize(firstKey);
    return push(table);
  }

  bool member() {
    skipBlanks();
    const id key = next() == '"' ? this->key() : nullptr;
    if (!key) return false;
    keys.push_back(key);
    skipBlanks();
    return take(':') && value();
  }

  bool takeDigits() {
    const std::size_t before = left.size();
    while (next() >= '0' && next() <= '9') left.remove_prefix(1);
    return left.size() < before;
  }

  bool number() {
    const std::string_view from = left;
    take('-');
    if (!take('0') && !takeDigits()) return false;
    if (take('.') && !takeDigits()) return false;
    if (take('e') || take('E')) {
      if (!take('+')) take('-');
      if (!takeDigits()) return false;
    }
    const std::string_view text = from.substr(0, from.size() - left.size());
    return push(numbers.find(text, [this, text]() -> id {
      double read = 0;
      // Too large as well as too small, which is zero.
      if (std::from_chars(text.data(), text.data() + text.size(), read).ec != std::errc())
        read = std::strtod(std::string(text).c_str(), nullptr);
      return std::isfinite(read) ? keep(bridge::retained(NSNumber::numberWithDouble(read))) : nullptr;
    }));
  }

  // How many characters at the front stand for themselves, a byte each.
  std::size_t plain() const {
    std::size_t count = 0;
    while (count < left.size() && left[count] >= ' ' && left[count] != '"' && left[count] != '\\') ++count;
    return count;
  }

  id key() {
    const std::string_view from = left;
    take('"');
    const std::string_view text = left.substr(0, plain());
    left.remove_prefix(text.size());
    const bool isAll = take('"');
    const std::string_view after = std::exchange(left, from);
    if (!isAll) return string();
    const id found = names.find(text, [this] { return string(); });
    left = after;
    return found;
  }

  id string() {
    take('"');
    units.clear();
    for (;;) {
      const std::size_t run = plain();
      units.append(left.begin(), left.begin() + run);
      left.remove_prefix(run);
      if (take('"'))
        return keep(
            bridge::make<MadeString, &MadeString::initWithCharacters_length>(units.data(), units.size()));
      if (left.empty() || static_cast<unsigned char>(next()) < ' ') return nullptr;
      if (!(take('\\') ? escape() : character())) return nullptr;
    }
  }

  bool character() {
    const std::size_t length = characterLength(left);
    if (length == 0) return false;
    constexpr unsigned char kept[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t code = static_cast<unsigned char>(left[0]) & kept[length];
    for (std::size_t i = 1; i < length; ++i) code = code << 6 | (static_cast<unsigned char>(left[i]) & 0x3F);
    left.remove_prefix(length);
    if (code < 0x10000) {
      units.push_back(static_cast<char16_t>(code));
    } else {
      units.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
      units.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
    }
    return true;
  }

  bool escape() {
    constexpr std::string_view letters = "\"\\/bfnrt", meant = "\"\\/\b\f\n\r\t";
    if (take('u')) return pair();
    const std::size_t which = letters.find(next());
    if (left.empty() || which == letters.npos) return false;
    left.remove_prefix(1);
    units.push_back(static_cast<unsigned char>(meant[which]));
    return true;
  }

  // One unit of UTF-16 by its number, or two that belong together.
  bool pair() {
    const int unit = hexadecimal();
    if (unit < 0 || (unit >= 0xDC00 && unit < 0xE000)) return false;
    units.push_back(static_cast<char16_t>(unit));
    if (unit < 0xD800 || unit >= 0xE000) return true;
    const int second = takeWord("\\u") ? hexadecimal() : -1;
    units.push_back(static_cast<char16_t>(second));
    return second >= 0xDC00 && second < 0xE000;
  }

  // Four digits; less than 0 where there are none.
  int hexadecimal() {
    int number = 0;
    for (int i = 0; i < 4; ++i) {
      constexpr std::string_view digits = "0123456789abcdef0123456789ABCDEF";
      const std::size_t digit = digits.find(next());
      if (left.empty() || digit == digits.npos) return -1;
      number = number * 16 + static_cast<int>(digit % 16);
      left.remove_prefix(1);
    }
    return number;
  }

  std::string_view left;
  int depthLeft;
  std::vector<Owned> made;       // everything, once
  std::vector<id> values, keys;  // what the lists and tables that are open hold so far
  std::u16string units;
  Memory<64> names;
  Memory<2048> numbers;
};

}  // namespace

Owned readJsonText(std::string_view text, int deepest) { return Reader(text, deepest).all(); }

}  // namespace sim
