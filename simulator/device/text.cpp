// Goes through UTF-8 character by character.
#include "simulator/device/text.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace sim {
namespace {

// What a message keeps when it is too long: a path is named whole nearly always.
constexpr std::size_t longestLine = 1200, keptFront = 800, keptEnd = 300;

bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

std::string shown(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const std::size_t length = characterLength(text);
    const char first = text.front();
    if (first == '\n' || first == '\r' || first == '\t')
      line += ' ';
    else if (length == 0 || (first >= 0 && first < ' ') || first == 0x7F)
      line += fmt::format("\\x{:02x}", static_cast<unsigned char>(first));
    else
      line += text.substr(0, length);
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return line;
}

}  // namespace

std::size_t characterLength(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xC2 && first < 0xE0 ? 2
                             : first < 0xC2                ? 0
                             : first < 0xF0                ? 3
                             : first < 0xF5                ? 4
                                                           : 0;
  if (length == 0 || text.size() < length || !std::ranges::all_of(text.substr(1, length - 1), continues))
    return 0;
  // Written longer than need be, half of a pair of UTF-16, or beyond the last character.
  const auto second = static_cast<unsigned char>(text[1]);
  const bool wrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second >= 0xA0) ||
                     (first == 0xF0 && second < 0x90) || (first == 0xF4 && second >= 0x90);
  return wrong ? 0 : length;
}

bool isUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = characterLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

bool isText(std::string_view bytes) { return isUtf8(bytes) && !bytes.contains('\0'); }

std::string messageLine(std::string_view message) {
  if (message.size() <= longestLine) return shown(message);
  std::string_view front = message.substr(0, keptFront), end = message.substr(message.size() - keptEnd);
  // Whole characters are left out, not parts of one.
  while (!front.empty() && continues(message[front.size()])) front.remove_suffix(1);
  while (!end.empty() && continues(end.front())) end.remove_prefix(1);
  return shown(front) + " ... " + shown(end);
}

}  // namespace sim
