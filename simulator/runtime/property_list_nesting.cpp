// Counts what opens and closes in XML and in the old text; follows the references of the binary form, and
// reckons where its objects end.
#include "simulator/runtime/property_list_nesting.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace sim {
namespace {

constexpr int deepest = 512;
constexpr std::uint64_t mostObjects = 1'000'000;

constexpr auto npos = std::string_view::npos;

// Takes off what stands before the first `end` and that too; false when there is none.
bool skipBehind(std::string_view& text, std::string_view end) {
  const std::size_t at = text.find(end);
  if (at == npos) return false;
  text.remove_prefix(at + end.size());
  return true;
}

// Takes a tag off, quotes heeded; nothing when it does not end.
std::optional<std::string_view> takeTag(std::string_view& text) {
  char quote = '\0';
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char c = text[index];
    if (quote != '\0')
      quote = c == quote ? '\0' : quote;
    else if (c == '"' || c == '\'')
      quote = c;
    else if (c == '>')
      return std::exchange(text, text.substr(index + 1)).substr(0, index + 1);
  }
  return std::nullopt;
}

// What a tag adds to the depth.
int opening(std::string_view tag) {
  for (const std::string_view name : {"array", "dict"}) {
    if (tag.starts_with("</") && tag.substr(2).starts_with(name)) return -1;
    if (!tag.substr(1).starts_with(name)) continue;
    const std::string_view rest = tag.substr(1 + name.size());
    return rest.substr(std::min(rest.find_first_not_of(" \t\r\n"), rest.size())) == "/>" ? 0 : 1;
  }
  return 0;
}

bool isSaneXml(std::string_view text) {
  int depth = 0;
  for (std::size_t at; (at = text.find('<')) != npos;) {
    text.remove_prefix(at);
    if (text.starts_with("<!--")) {
      if (!skipBehind(text, "-->")) return false;
    } else if (text.starts_with("<![CDATA[")) {
      if (!skipBehind(text, "]]>")) return false;
    } else if (text.starts_with("<?")) {
      if (!skipBehind(text, "?>")) return false;
    } else {
      const auto tag = takeTag(text);
      // Declarations of its own no property list has, and they could stand for anything.
      if (!tag || (tag->starts_with("<!") && tag->contains('['))) return false;
      depth += opening(*tag);
      if (depth > deepest) return false;
    }
  }
  return true;
}

bool isSaneText(std::string_view text) {
  int depth = 0;
  while (!text.empty()) {
    const char c = text.front();
    if (text.starts_with("/*")) {
      if (!skipBehind(text, "*/")) return false;
    } else if (text.starts_with("//")) {
      text.remove_prefix(std::min(text.find('\n'), text.size()));
    } else if (c == '"') {
      for (std::size_t at = 1;; at += text[at] == '\\' ? 2 : 1) {
        if (at >= text.size()) return false;
        if (text[at] != '"') continue;
        text.remove_prefix(at + 1);
        break;
      }
    } else {
      depth += (c == '(' || c == '{') - (c == ')' || c == '}');
      if (depth > deepest) return false;
      text.remove_prefix(1);
    }
  }
  return true;
}

// The objects of a binary property list by their numbers.
class BinaryList {
 public:
  explicit BinaryList(std::string_view all) : bytes(all) {}

  bool isSane() {
    constexpr std::size_t trailer = 32;
    if (bytes.size() < trailer) return false;
    const std::size_t at = bytes.size() - trailer;
    offsetSize = number(at + 6, 1), referenceSize = number(at + 7, 1);
    const std::uint64_t count = number(at + 8, 8), top = number(at + 16, 8);
    table = number(at + 24, 8);
    if (!isSize(offsetSize) || !isSize(referenceSize) || count > bytes.size() || top >= count) return false;
    if (table > at || count * offsetSize > at - table) return false;
    objects.resize(count);
    return walk(top);
  }

 private:
  struct Object {
    enum { unseen, open, done } state = unseen;
    int depth = 0;            // of what it holds, itself included
    std::uint64_t total = 1;  // objects that reading it makes
    std::vector<std::uint64_t> held;
    std::size_t next = 0;  // of those, the first that has not been looked at
  };

  // The upper half of an object's first byte; the lower half is its size, or 15 when a number follows that
  // is.
  enum Kind : std::uint64_t {
    numberKind = 0x1,
    realKind = 0x2,
    dateKind = 0x3,
    dataKind = 0x4,
    wideTextKind = 0x6,
    archiveKind = 0x8,
    firstOfLists = 0xA,
    dictionaryKind = 0xD,
  };

  static bool isSize(std::uint64_t size) { return size >= 1 && size <= 8; }

  // Most significant byte first; 0 where the list has ended.
  std::uint64_t number(std::uint64_t at, std::uint64_t size) const {
    if (at > bytes.size() || size > bytes.size() - at) return 0;
    std::uint64_t value = 0;
    for (const char byte : bytes.substr(at, size)) value = value << 8 | static_cast<unsigned char>(byte);
    return value;
  }

  // Whether this many things of a size lie before the table.
  bool holds(std::uint64_t at, std::uint64_t count, std::uint64_t size) const {
    return at <= table && count <= (table - at) / size;
  }

  // What an array, a set or a dictionary names; false for numbers that lead nowhere, and for what is not
  // there whole.
  bool readHeld(std::uint64_t index) {
    std::uint64_t at = number(table + index * offsetSize, offsetSize);
    const std::uint64_t marker = number(at++, 1), kind = marker >> 4;
    std::uint64_t count = marker & 0xF;
    if (kind == numberKind || kind == realKind || kind == dateKind)
      return holds(at, std::uint64_t{1} << count, 1);
    if (kind == archiveKind) return holds(at, count + 1, 1);
    if (kind < dataKind) return holds(at, 0, 1);
    if (count == 0xF) {
      const std::uint64_t size = std::uint64_t{1} << (number(at++, 1) & 0x3);
      count = number(at, size);
      at += size;
    }
    if (kind < firstOfLists) return holds(at, count, kind == wideTextKind ? 2 : 1);
    if (kind == dictionaryKind && count <= bytes.size()) count *= 2;
    if (!holds(at, count, referenceSize)) return false;
    for (std::uint64_t i = 0; i < count; ++i) {
      objects[index].held.push_back(number(at + i * referenceSize, referenceSize));
      if (objects[index].held.back() >= objects.size()) return false;
    }
    return true;
  }

  // Depth first, on a stack of its own.
  bool walk(std::uint64_t top) {
    std::vector<std::uint64_t> path{top};
    while (!path.empty()) {
      const std::uint64_t index = path.back();
      Object& object = objects[index];
      if (object.state == Object::unseen) {
        object.state = Object::open;
        if (!readHeld(index)) return false;
      }
      if (object.next == object.held.size()) {
        object.state = Object::done;
        path.pop_back();
        continue;
      }
      const std::uint64_t held = object.held[object.next];
      const Object& inside = objects[held];
      if (inside.state == Object::open || path.size() > deepest) return false;
      if (inside.state == Object::unseen) {
        path.push_back(held);
        continue;
      }
      object.depth = std::max(object.depth, inside.depth + 1);
      object.total += inside.total;
      if (object.depth > deepest || object.total > mostObjects) return false;
      ++object.next;
    }
    return true;
  }

  std::string_view bytes;
  std::uint64_t offsetSize = 0, referenceSize = 0, table = 0;
  std::vector<Object> objects;
};

}  // namespace

bool isNestedSanely(std::string_view propertyList) {
  if (propertyList.starts_with("bplist00")) return BinaryList(propertyList).isSane();
  const std::size_t first = propertyList.find_first_not_of(" \t\r\n\xef\xbb\xbf");
  return first == npos || propertyList[first] == '<' ? isSaneXml(propertyList) : isSaneText(propertyList);
}

}  // namespace sim
