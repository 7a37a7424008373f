// RapidJSON walks over the text, and each object is made once. Keys and numbers that come again are the
// object that they were, of which the device needs none either: a list of records has few of each.
#include "simulator/runtime/json_reader.hpp"

// Its stack, while it is empty, reckons with null; the sanitizers look at nothing else less closely.
#pragma clang attribute push(__attribute__((no_sanitize("pointer-overflow"))), apply_to = function)
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>
#pragma clang attribute pop

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/foundation/dictionary.hpp"
#include "platform/foundation/null.hpp"
#include "platform/foundation/number.hpp"
#include "simulator/device/text.hpp"

namespace sim {
namespace {

using Owned = bridge::Strong<bridge::Object>;
using Count = rapidjson::SizeType;

struct MadeArray : bridge::Face<"NSArray", NSArray> {
  MESSAGE Method<"initWithObjects:count:", NSArray(const id*, NSUInteger)> initWithObjects_count;
};

struct MadeDictionary : bridge::Face<"NSDictionary", NSDictionary> {
  // Of a key that is there twice the last value counts.
  MESSAGE Method<"initWithObjects:forKeys:count:", NSDictionary(const id*, const id*, NSUInteger)>
      initWithObjects_forKeys_count;
};

// What the last few keys or numbers have been made into.
template <class Read, std::size_t places>
class Memory {
 public:
  // `make` is asked for what is not known.
  template <class Given, class Make>
  id find(const Given& read, std::size_t hash, Make make) {
    Place& place = all[hash % places];
    if (!place.object || place.read != read) place.read = read, place.object = make();
    return place.object;
  }

 private:
  struct Place {
    Read read{};
    id object = nullptr;
  };
  std::array<Place, places> all;
};

// Told of each piece of a text, in its order; false ends the walk.
class Maker {
 public:
  explicit Maker(int deepest) : depthLeft(deepest) {}

  // Of a whole text there is one.
  id whole() const { return values.front(); }

  bool Null() { return push(NSNull::null().raw); }
  bool Bool(bool value) { return push(NSNumber::numberWithBool(value).raw); }

  // RapidJSON's own numbers are wrong, or none, about zeros with an exponent and at either end of the range.
  bool RawNumber(const char* text, Count length, bool) {
    double value = 0;
    const auto read = std::from_chars(text, text + length, value);
    // Nearly nothing is told like too much.
    if (read.ec != std::errc()) value = std::strtod(std::string(text, length).c_str(), nullptr);
    if (!std::isfinite(value)) return false;
    // Whole numbers differ in their first bits alone; times the golden ratio, in the first eleven of the
    // product.
    const auto bits = std::bit_cast<std::uint64_t>(value);
    return push(numbers.find(bits, bits * 0x9E3779B97F4A7C15 >> 53,
                             [&] { return keep(bridge::retained(NSNumber::numberWithDouble(value))); }));
  }
  // These are told as they are written.
  bool Int(int) { return false; }
  bool Uint(unsigned) { return false; }
  bool Int64(std::int64_t) { return false; }
  bool Uint64(std::uint64_t) { return false; }
  bool Double(double) { return false; }

  bool String(const char* text, Count length, bool) { return push(string({text, length})); }

  bool Key(const char* text, Count length, bool) {
    const std::string_view key(text, length);
    keys.push_back(names.find(key, std::hash<std::string_view>()(key), [&] { return string(key); }));
    return keys.back();
  }

  bool StartArray() { return depthLeft-- > 0; }
  bool StartObject() { return depthLeft-- > 0; }

  bool EndArray(Count count) {
    ++depthLeft;
    const std::size_t first = values.size() - count;
    const id list =
        keep(bridge::make<MadeArray, &MadeArray::initWithObjects_count>(values.data() + first, count));
    values.resize(first);
    return push(list);
  }

  bool EndObject(Count count) {
    ++depthLeft;
    const std::size_t first = values.size() - count, firstKey = keys.size() - count;
    const id table = keep(bridge::make<MadeDictionary, &MadeDictionary::initWithObjects_forKeys_count>(
        values.data() + first, keys.data() + firstKey, count));
    values.resize(first);
    keys.resize(firstKey);
    return push(table);
  }

 private:
  id keep(Owned object) { return made.emplace_back(std::move(object)).get().raw; }

  bool push(id object) {
    values.push_back(object);
    return object;
  }

  id string(std::string_view text) {
    if (!isUtf8(text)) return nullptr;
    return keep(bridge::make<NSString, &NSString::initWithBytes_length_encoding>(text.data(), text.size(),
                                                                                 NSUTF8StringEncoding));
  }

  int depthLeft;
  std::vector<Owned> made;       // everything, once
  std::vector<id> values, keys;  // what the lists and tables that are open hold so far
  Memory<std::string, 64> names;
  Memory<std::uint64_t, 2048> numbers;
};

}  // namespace

Owned readJsonText(std::string_view text, int deepest) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  rapidjson::MemoryStream stream(text.data(), text.size());
  rapidjson::Reader reader;
  Maker maker(deepest);
  // To the reader a NUL is the end.
  if (!reader.Parse<rapidjson::kParseNumbersAsStringsFlag>(stream, maker) || stream.Tell() < text.size())
    return nullptr;
  return bridge::retained(bridge::as<bridge::Object>(maker.whole()));
}

}  // namespace sim
