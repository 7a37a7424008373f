// Bytes from outside as text, and text for people.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sim {

/** How many bytes the character of UTF-8 at the front takes; 0 when they are none. */
std::size_t characterLength(std::string_view text);

/** Whether all of it is UTF-8. */
bool isUtf8(std::string_view bytes);

/** Whether all of it is UTF-8 without a NUL, which is what Foundation makes strings of. */
bool isText(std::string_view bytes);

/**
 * A message as one line: blanks for line breaks and tabs, `\xff` for bytes that are no text or steer a
 * terminal, and of one that is too long for a line the beginning and the end.
 */
std::string messageLine(std::string_view message);

}  // namespace sim
