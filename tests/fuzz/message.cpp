// What clients send to a messaging centre: bytes in two portions, whole messages out of them, and those that
// are messages are sent again as they were.
#include <sys/socket.h>
#include <unistd.h>

#include "simulator/app/report_values.hpp"
#include "simulator/appsupport/server.hpp"
#include "simulator/appsupport/socket_folder.hpp"
#include "tests/fuzz/device.hpp"

namespace {

using namespace sim::appsupport;

struct Centre {
  OwnedSocketFolder folder = OwnedSocketFolder::take(fuzz::onHost("/")).value();
  Server server{folder.descriptor(), "centre"};

  int connect() {
    const auto address = socketAddress(folder.descriptor(), "centre");
    const int made = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    fuzz::mustHold(::connect(made, reinterpret_cast<const sockaddr*>(&*address), sizeof *address) == 0);
    return made;
  }
};

// As Foundation has it, or as a report has: a number that is none equals nothing, and a report ends texts at
// a zero.
bool areTheSame(NSDictionary one, NSDictionary other) {
  return (one && one.isEqual(other)) || sim::plain(one) == sim::plain(other);
}

void take(std::string_view payload) {
  const auto message = decode(payload);
  if (!message) return;
  const auto sent = encode(*message);
  if (!sent) return;
  const auto again = decode(std::string_view(*sent).substr(lengthBytes));
  fuzz::mustHold(again && again->name.isEqualToString(message->name) &&
                 areTheSame(again->userInfo, message->userInfo));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  static Centre centre;
  const bridge::Pool pool;
  take({reinterpret_cast<const char*>(bytes), length});
  // With a length before it, which one that tries letters comes by seldom.
  std::string all = fuzz::textOf(bytes, length);
  if (length % 2) all.insert(0, {0, 0, static_cast<char>(length >> 8), static_cast<char>(length)});
  const int client = centre.connect();
  const std::size_t first = length ? bytes[0] % all.size() : 0;
  bool arrived = false;
  for (const auto& part : {all.substr(0, first), all.substr(first)}) {
    if (::send(client, part.data(), part.size(), MSG_NOSIGNAL) < 0) break;
    for (Arrival& each : centre.server.receive()) {
      fuzz::mustHold(!std::exchange(arrived, true) && all.contains(each.payload()));
      take(each.payload());
      each.answer(Reply::delivered);
    }
  }
  ::close(client);
  fuzz::mustHold(centre.server.receive().empty());
  return 0;
}
