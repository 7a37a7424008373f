// Messages as property lists.
#include "simulator/appsupport/message.hpp"

#include "platform/foundation/data.hpp"
#include "simulator/runtime/property_list.hpp"
#include "simulator/runtime/property_list_nesting.hpp"

namespace sim::appsupport {
namespace {

struct NSPropertyListSerialization : bridge::Face<"NSPropertyListSerialization", NSObject> {
  static constexpr bridge::ClassMethod<"NSPropertyListSerialization",
                                       "propertyListFromData:mutabilityOption:format:errorDescription:",
                                       NSObject(NSData, NSUInteger, NSUInteger*, id*)>
      propertyListFromData_mutabilityOption_format_errorDescription{};
};

constexpr bridge::ClassMethod<"NSData", "dataWithBytes:length:", NSData(const void*, NSUInteger)>
    dataWithBytes_length{};

// What Foundation's property-list code makes of it; nil also where it raises.
template <class Result>
Result attempt(auto&& conversion) {
  try {
    return conversion();
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
  NSData data = attempt<NSData>([&] { return propertyListText(list.get()); });
  const std::size_t length = data.length();
  if (length == 0 || length > longestPayload) return std::nullopt;
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
  // The other formats' readers follow references and nesting wherever they lead.
  if (!payload.starts_with("<?xml") || !isNestedSanely(payload)) return std::nullopt;
  NSObject list = attempt<NSObject>([&] {
    NSUInteger format = 0;
    id error = nullptr;
    return NSPropertyListSerialization::propertyListFromData_mutabilityOption_format_errorDescription(
        dataWithBytes_length(payload.data(), payload.size()), 0, &format, &error);
  });
  if (!bridge::isKindOf<NSDictionary>(list)) return std::nullopt;
  auto parts = bridge::as<NSDictionary>(list);
  bridge::Object name = parts.objectForKey("name"_ns), userInfo = parts.objectForKey("userInfo"_ns);
  if (!bridge::isKindOf<NSString>(name)) return std::nullopt;
  if (userInfo && !bridge::isKindOf<NSDictionary>(userInfo)) return std::nullopt;
  return Message{bridge::as<NSString>(name), bridge::as<NSDictionary>(userInfo)};
}

}  // namespace sim::appsupport
