// One connection for one message.
#include "simulator/appsupport/client.hpp"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>

#include "simulator/appsupport/socket_folder.hpp"

namespace sim::appsupport {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// How long a process that serves the centre itself sleeps between its turns.
constexpr milliseconds turn{1};

class Deadline {
 public:
  explicit Deadline(const Sending& given) : sending(given), end(Clock::now() + given.patience) {}

  // Waits until the socket is ready for `events`; false when time is up.
  bool await(int socket, short events) const {
    for (;;) {
      if (sending.whileWaiting) sending.whileWaiting();
      const auto left = std::chrono::ceil<milliseconds>(end - Clock::now());
      if (left <= milliseconds(0)) return false;
      pollfd wanted = {socket, events, 0};
      const auto nap = sending.whileWaiting ? std::min(left, turn) : left;
      if (::poll(&wanted, 1, static_cast<int>(nap.count())) > 0) return true;
    }
  }

  // Lets a moment pass; false when time is up.
  bool pause() const {
    if (sending.whileWaiting) sending.whileWaiting();
    ::poll(nullptr, 0, static_cast<int>(turn.count()));
    return Clock::now() < end;
  }

 private:
  const Sending& sending;
  Clock::time_point end;
};

Outcome connectTo(int socket, const sockaddr_un& address, const Deadline& deadline) {
  while (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    if (errno == EINTR) continue;
    if (errno != EAGAIN) return Outcome::unserved;  // EAGAIN: too many are waiting to be let in
    if (!deadline.pause()) return Outcome::late;
  }
  return Outcome::delivered;
}

Outcome write(int socket, std::string_view bytes, const Deadline& deadline) {
  while (!bytes.empty()) {
    const ssize_t count = ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count >= 0)
      bytes.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EAGAIN && errno != EINTR)
      return Outcome::lost;
    else if (!deadline.await(socket, POLLOUT))
      return Outcome::late;
  }
  return Outcome::delivered;
}

Outcome outcomeOf(unsigned char reply) {
  switch (static_cast<Reply>(reply)) {
    case Reply::delivered:
      return Outcome::delivered;
    case Reply::dropped:
      return Outcome::dropped;
    case Reply::refused:
      return Outcome::refused;
  }
  return Outcome::lost;
}

Outcome read(int socket, const Deadline& deadline) {
  for (;;) {
    unsigned char reply = 0;
    const ssize_t count = ::recv(socket, &reply, 1, 0);
    if (count == 1) return outcomeOf(reply);
    if (count == 0 || (errno != EAGAIN && errno != EINTR)) return Outcome::lost;
    if (!deadline.await(socket, POLLIN)) return Outcome::late;
  }
}

}  // namespace

Outcome send(const std::filesystem::path& root, std::string_view centre, const Message& message,
             const Sending& sending) {
  const auto bytes = encode(message);
  if (!bytes) return Outcome::refused;
  const Deadline deadline(sending);
  const Descriptor folder = findSocketFolder(root);
  const auto address = socketAddress(folder.get(), centre);
  if (!folder || !address) return Outcome::unserved;
  const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (!socket) return Outcome::unserved;
  Outcome outcome = connectTo(socket.get(), *address, deadline);
  if (outcome == Outcome::delivered) outcome = write(socket.get(), *bytes, deadline);
  if (outcome == Outcome::delivered) outcome = read(socket.get(), deadline);
  return outcome;
}

std::string_view description(Outcome outcome) {
  switch (outcome) {
    case Outcome::delivered:
      return "has been delivered";
    case Outcome::dropped:
      return "is one that the home screen has nobody for";
    case Outcome::unserved:
      return "has nobody to go to: no home screen serves the centre";
    case Outcome::refused:
      return "is too long";
    case Outcome::lost:
      return "was lost: the home screen ended";
    case Outcome::late:
      return "was not taken in time: the home screen is busy";
  }
  return "";
}

}  // namespace sim::appsupport
