// What goes through a messaging centre's socket.
//
// A client connects for one message: the payload's length in four bytes, most significant first, and the
// payload, an XML property list of the message's name and its user info. The home screen answers one byte, a
// Reply, when it is done with it, and closes the connection.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/dictionary.hpp"

namespace sim::appsupport {

inline constexpr std::size_t lengthBytes = 4;
/** The longest payload in bytes; the messages of a settings pane have a few hundred. */
inline constexpr std::size_t longestPayload = 64 * 1024;

enum class Reply : unsigned char {
  delivered = 1,  // its handler has returned
  dropped = 2,    // nobody is registered for a message of that name
  refused = 3,    // too long, or not a message
};

struct Message {
  NSString name;          // borrowed
  NSDictionary userInfo;  // borrowed; nil when there is none
};

/** Length and payload; none when the user info is not made of property-list objects or is too much. */
std::optional<std::string> encode(const Message& message);

/** The payload's length that the first four bytes tell; none when no payload may have it. */
std::optional<std::size_t> payloadLength(std::string_view firstBytes);

/** What a payload says, held by the innermost pool; none when it is not a message. */
std::optional<Message> decode(std::string_view payload);

}  // namespace sim::appsupport
