// Reads encodings as far as sizes go. A type that could not be laid out right ends the process by name.
#include "device/loader/armv7/words.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace device::loader {
namespace {

constexpr uint32_t wordSize = 4;

uint32_t roundedUp(uint32_t size, uint32_t to) { return (size + to - 1) / to * to; }

struct Shape {
  uint32_t size = 0;       // in bytes
  uint32_t alignment = 1;  // on Linux; nothing has more than a word's on Apple's systems

  bool wide() const { return alignment == 8; }
  uint32_t words() const { return roundedUp(size, wordSize) / wordSize; }
};

class Reader {
 public:
  explicit Reader(const char* types) : all(types), at(types) { skipNoise(); }

  bool ended() const { return !*at; }
  bool atStructure() const { return *at == '{'; }

  Shape take() {
    const Shape shape = takeShape();
    skipNoise();
    return shape;
  }

 private:
  void skipNoise() {
    while (*at && (std::strchr("rnNoORVA+-", *at) || std::isdigit(static_cast<unsigned char>(*at)))) ++at;
  }

  Shape takeShape() {
    const char* start = at;
    switch (*at ? *at++ : '\0') {
      case '\0':
      case 'v':
        return {};
      case 'c':
      case 'C':
      case 'B':
        return {1, 1};
      case 's':
      case 'S':
        return {2, 2};
      case 'd':
      case 'q':
      case 'Q':
        return {8, 8};
      case '{':
        return takeFields();
      case '[':
        skipTo(start);
        return {wordSize, wordSize};
      case '^':
        skipNoise();
        if (*at == '{' || *at == '(' || *at == '[')
          skipTo(at);
        else
          takeShape();
        return {wordSize, wordSize};
      case '@':
        if (*at == '?') ++at;
        if (*at == '"') skipName(start);
        return {wordSize, wordSize};
      case 'i':
      case 'I':
      case 'l':
      case 'L':
      case 'f':
      case '#':
      case ':':
      case '*':
      case '?':
        return {wordSize, wordSize};
      default:
        refuse(start);
    }
  }

  // Behind the brace: past the name, then one field after the other.
  Shape takeFields() {
    const char* start = at;
    Shape whole;
    uint32_t apples = 0;
    while (*at && *at != '=' && *at != '}') ++at;
    if (*at == '=') ++at;
    skipNoise();
    while (*at && *at != '}') {
      const Shape field = take();
      whole.size = roundedUp(whole.size, field.alignment) + field.size;
      whole.alignment = std::max(whole.alignment, field.alignment);
      apples = roundedUp(apples, std::min(field.alignment, wordSize)) + field.size;
    }
    if (*at == '}') ++at;
    whole.size = roundedUp(whole.size, whole.alignment);
    if (whole.size != roundedUp(apples, std::min(whole.alignment, wordSize))) refuse(start);
    return whole;
  }

  // Past a class's, in quotes, of the object at `start`.
  void skipName(const char* start) {
    const char* end = std::strchr(at + 1, '"');
    if (!end) refuse(start);
    at = end + 1;
  }

  // Past the bracket that closes the one at `start`.
  void skipTo(const char* start) {
    int depth = 0;
    for (at = start; *at; ++at) {
      if (std::strchr("{([", *at)) ++depth;
      if (std::strchr("})]", *at) && --depth == 0) {
        ++at;
        return;
      }
    }
  }

  [[noreturn]] void refuse(const char* what) const {
    fmt::print(stderr, "'{}' of '{}' cannot cross between the two sides\n", what, all);
    std::abort();
  }

  const char* all;
  const char* at;
};

}  // namespace

WordMap wordMap(const char* types, Side from, Side to) {
  Reader reader(types);
  const bool structure = reader.atStructure();
  const Shape result = reader.take();
  uint32_t source = 0;
  WordMap map;
  auto pass = [&](Shape shape) {
    if (shape.wide() && from == Side::linux) source += source % 2;
    if (shape.wide() && to == Side::linux && map.size() % 2) map.push_back(0);
    for (uint32_t i = 0; i < shape.words(); ++i) map.push_back(source++);
  };
  if (structure && result.size > wordSize) pass({wordSize, wordSize});
  while (!reader.ended()) pass(reader.take());
  return map;
}

WordMap plainWords(uint32_t count) {
  WordMap map;
  for (uint32_t i = 0; i < count; ++i) map.push_back(i);
  return map;
}

}  // namespace device::loader
