// Messages as property lists.
#include "simulator/appsupport/message.hpp"

#include "platform/foundation/data.hpp"
#include "simulator/runtime/property_list.hpp"

namespace sim::appsupport {
namespace {

// Nil where Foundation raises.
NSData textOf(NSDictionary list) {
  try {
    return propertyListText(list);
  } catch (...) {  // only an Objective-C exception can come here, and all of them mean the same
    return {};
  }
}

}  // namespace

std::optional<std::string> encode(const Message& message) {
  bridge::Pool pool;
  auto list = bridge::make<NSMutableDictionary, &NSObject::init>();
  list->setValue_forKey(message.name, "name"_ns);
  list->setValue_forKey(message.userInfo, "userInfo"_ns);
  if (!isPropertyList(list.get())) return std::nullopt;
  const NSData data = textOf(list.get());
  if (!data || data.length() > longestPayload) return std::nullopt;
  const std::size_t length = data.length();
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(length >> shift);
  return bytes.append(static_cast<const char*>(data.bytes()), length);
}

std::optional<std::size_t> payloadLength(std::string_view firstBytes) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < lengthBytes; ++i)
    length = length << 8 | static_cast<unsigned char>(firstBytes[i]);
  if (length == 0 || length > longestPayload) return std::nullopt;
  return length;
}

std::optional<Message> decode(std::string_view payload) {
  // Clients write this form alone.
  if (!payload.starts_with("<?xml")) return std::nullopt;
  const NSDictionary parts = propertyList(NSData::dataWithBytes_length(payload.data(), payload.size()));
  if (!parts) return std::nullopt;
  bridge::Object name = parts.objectForKey("name"_ns), userInfo = parts.objectForKey("userInfo"_ns);
  if (!bridge::isKindOf<NSString>(name)) return std::nullopt;
  if (userInfo && !bridge::isKindOf<NSDictionary>(userInfo)) return std::nullopt;
  return Message{bridge::as<NSString>(name), bridge::as<NSDictionary>(userInfo)};
}

}  // namespace sim::appsupport
