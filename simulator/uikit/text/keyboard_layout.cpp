// The pages of a keyboard.
#include "simulator/uikit/text/keyboard_layout.hpp"

#include <algorithm>
#include <string_view>

namespace sim::uikit {
namespace {

// A key and its width, in widths of a letter key.
struct Place {
  Key key;
  double width = 1;
};

using Row = std::vector<Place>;

constexpr double phoneWidth = 10, tabletWidth = 11;  // of a whole row

std::size_t lengthOfCharacter(char first) {
  const auto byte = static_cast<unsigned char>(first);
  return byte < 0x80 ? 1 : byte < 0xe0 ? 2 : byte < 0xf0 ? 3 : 4;
}

// A key for each character.
Row typing(std::string_view characters, double width = 1) {
  Row row;
  while (!characters.empty()) {
    const std::size_t length = lengthOfCharacter(characters.front());
    row.push_back({{KeyKind::text, std::string(characters.substr(0, length)), {}, {}}, width});
    characters.remove_prefix(length);
  }
  return row;
}

Place key(KeyKind kind, double width, std::string title = "") {
  return {{kind, std::move(title), {}, {}}, width};
}

Place turning(KeyboardPage page, double width, std::string title) {
  return {{KeyKind::page, std::move(title), page, {}}, width};
}

Row between(Place first, Row middle, const Place& last) {
  middle.insert(middle.begin(), std::move(first));
  middle.push_back(last);
  return middle;
}

Row followedBy(Row row, const Place& last) {
  row.push_back(last);
  return row;
}

std::vector<std::string_view> charactersOf(KeyboardPage page, bool tablet) {
  switch (page) {
    case KeyboardPage::letters:
      return {"qwertyuiop", "asdfghjkl", "zxcvbnm"};
    case KeyboardPage::capitals:
      return {"QWERTYUIOP", "ASDFGHJKL", "ZXCVBNM"};
    case KeyboardPage::numbers:
      if (tablet) return {"1234567890", "-/:;()$&@", ".,?!'\""};
      return {"1234567890", "-/:;()$&@\"", ".,?!'"};
    default:
      if (tablet) return {"[]{}#%^*+=", "_\\|~<>€£¥", ".,?!'\""};
      return {"[]{}#%^*+=", "_\\|~<>€£¥•", ".,?!'"};
  }
}

bool hasLetters(KeyboardPage page) { return page == KeyboardPage::letters || page == KeyboardPage::capitals; }

// The key before the third row: shift, or the way between digits and symbols.
Place thirdRowKey(KeyboardPage page, double width) {
  if (page == KeyboardPage::letters) return {{KeyKind::shift, "", KeyboardPage::capitals, {}}, width};
  if (page == KeyboardPage::capitals) return {{KeyKind::shift, "", KeyboardPage::letters, {}}, width};
  if (page == KeyboardPage::numbers) return turning(KeyboardPage::symbols, width, "#+=");
  return turning(KeyboardPage::numbers, width, "123");
}

Place lastRowKey(KeyboardPage page, double width, const char* numbers) {
  if (hasLetters(page)) return turning(KeyboardPage::numbers, width, numbers);
  return turning(KeyboardPage::letters, width, "ABC");
}

std::vector<Row> phoneRows(const KeyboardLayout& layout) {
  const KeyboardPage page = layout.page;
  const auto characters = charactersOf(page, false);
  const double third = hasLetters(page) ? 1 : 1.4;
  return {typing(characters[0]),
          typing(characters[1]),
          between(thirdRowKey(page, 1.5), typing(characters[2], third), key(KeyKind::remove, 1.5)),
          {lastRowKey(page, 2.5, "123"), key(KeyKind::space, 5, "space"),
           key(KeyKind::enter, 2.5, layout.enterTitle)}};
}

std::vector<Row> tabletRows(const KeyboardLayout& layout) {
  const KeyboardPage page = layout.page;
  const auto characters = charactersOf(page, true);
  const Row third =
      hasLetters(page)
          ? between(thirdRowKey(page, 1), typing(std::string(characters[2]) + ",."), thirdRowKey(page, 1))
          : between(thirdRowKey(page, 1.5), typing(characters[2], 8.0 / 6), thirdRowKey(page, 1.5));
  return {followedBy(typing(characters[0]), key(KeyKind::remove, 1)),
          followedBy(typing(characters[1]), key(KeyKind::enter, 1.5, layout.enterTitle)),
          third,
          {lastRowKey(page, 2, ".?123"), key(KeyKind::space, 6, "space"), lastRowKey(page, 2, ".?123"),
           key(KeyKind::hide, 1)}};
}

double widthOf(const Row& row) {
  double width = 0;
  for (const Place& place : row) width += place.width;
  return width;
}

}  // namespace

std::vector<Key> keysOf(const KeyboardLayout& layout) {
  const std::vector<Row> rows = layout.tablet ? tabletRows(layout) : phoneRows(layout);
  const double unit = layout.size.width / (layout.tablet ? tabletWidth : phoneWidth);
  const double height = (layout.size.height - layout.bottomMargin) / static_cast<double>(rows.size());
  std::vector<Key> keys;
  double y = 0;
  for (const Row& row : rows) {
    double x = (layout.size.width - widthOf(row) * unit) / 2;
    for (const Place& place : row) {
      keys.push_back(place.key);
      keys.back().frame = {{x, y}, {place.width * unit, height}};
      x += place.width * unit;
    }
    y += height;
  }
  return keys;
}

bool pageTypes(KeyboardPage page, bool tablet, const std::string& character) {
  const KeyboardLayout layout{.page = page, .tablet = tablet};
  return std::ranges::any_of(
      keysOf(layout), [&](const Key& key) { return key.kind == KeyKind::text && key.text == character; });
}

}  // namespace sim::uikit
