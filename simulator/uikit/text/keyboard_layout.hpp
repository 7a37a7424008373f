// What keys a keyboard has, and where: its pages as tables of rows.
#pragma once

#include <string>
#include <vector>

#include "platform/coregraphics/geometry.hpp"

namespace sim::uikit {

enum class KeyboardPage { letters, capitals, numbers, symbols };

enum class KeyKind { text, space, remove, enter, shift, page, hide };

struct Key {
  KeyKind kind = KeyKind::text;
  std::string text;     // what it types, or what is written on it
  KeyboardPage page{};  // that it leads to
  CGRect frame{};       // in which a finger hits it, points of the keyboard
};

/** How a keyboard is to be laid out; sizes in points. */
struct KeyboardLayout {
  KeyboardPage page = KeyboardPage::letters;
  bool tablet = false;
  CGSize size{};
  double bottomMargin = 0;  // of the size, below the last row
  std::string enterTitle = "return";
};

std::vector<Key> keysOf(const KeyboardLayout& layout);

/** Whether a key of that page types it. */
bool pageTypes(KeyboardPage page, bool tablet, const std::string& character);

}  // namespace sim::uikit
