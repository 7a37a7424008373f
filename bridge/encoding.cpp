// Comparing type encodings by what they tell of a call.
#include "bridge/encoding.hpp"

#include <cstring>

namespace bridge {
namespace {

bool isQualifier(char c) { return c && std::strchr("rnNoORVA", c); }

void skipNoise(const char*& at) {
  while (isQualifier(*at) || (*at >= '0' && *at <= '9') || *at == '+' || *at == '-') ++at;
}

// Past a class name in quotes behind an object, and past the "?" that makes it a block.
void skipObjectTail(const char*& at) {
  if (*at == '?') ++at;
  if (*at != '"') return;
  const char* end = std::strchr(at + 1, '"');
  at = end ? end + 1 : at + std::strlen(at);
}

// Integers as wide as a register count as one, of either sign.
char widthOf(char letter) {
  switch (letter) {
    case 'l':
    case 'L':
      return sizeof(long) == 8 ? 'q' : 'i';
    case 'Q':
      return 'q';
    case 'I':
      return 'i';
    case 'c':
    case 'C':
    case 'B':
      return 'B';
    case '*':
      return '^';
    default:
      return letter;
  }
}

bool opens(char c) { return c == '{' || c == '(' || c == '['; }
bool closes(char c) { return c == '}' || c == ')' || c == ']'; }

// Past "Name=" inside a structure's or a union's braces.
void skipTag(const char*& at) {
  const char* ahead = at;
  while (*ahead && *ahead != '=' && !opens(*ahead) && !closes(*ahead)) ++ahead;
  if (*ahead == '=') at = ahead + 1;
}

// Past one whole type; never past the end of a string that stops in the middle of one.
void skipType(const char*& at) {
  for (skipNoise(at); *at == '^'; skipNoise(at)) ++at;
  if (*at == '@') {
    skipObjectTail(++at);
  } else if (opens(*at)) {
    int depth = 0;
    do {
      depth += opens(*at) - closes(*at);
      ++at;
    } while (*at && depth > 0);
  } else if (*at) {
    ++at;
  }
}

// Past equal digits: the length of an array, the width of a bit field.
bool sameNumber(const char*& one, const char*& other) {
  auto digit = [](char c) { return c >= '0' && c <= '9'; };
  for (; digit(*one) || digit(*other); ++one, ++other)
    if (*one != *other) return false;
  return true;
}

}  // namespace

bool sameShape(const char* one, const char* other) {
  for (;;) {
    skipNoise(one);
    skipNoise(other);
    char a = widthOf(*one), b = widthOf(*other);
    if (a != b) return false;
    if (!a) return true;
    ++one;
    ++other;
    if (a == '@') {
      skipObjectTail(one);
      skipObjectTail(other);
    } else if (a == '{' || a == '(') {
      skipTag(one);
      skipTag(other);
    } else if (a == '[' || a == 'b') {
      if (!sameNumber(one, other)) return false;
    } else if (a == '^') {  // what is pointed to does not change how a pointer travels
      if (one[-1] == '^') skipType(one);
      if (other[-1] == '^') skipType(other);
    }
  }
}

}  // namespace bridge
