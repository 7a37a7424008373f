// Non-blocking throughout: a client that is slow, silent or gone costs the home screen nothing.
#include "simulator/appsupport/server.hpp"

#include <sys/socket.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <system_error>

#include "simulator/appsupport/socket_folder.hpp"

namespace sim::appsupport {
namespace {

// Connections that have not sent a whole message yet. One more than these ends the one that was first.
constexpr std::size_t mostClients = 256;

[[noreturn]] void fail(int error, std::string_view centre) {
  throw std::system_error(error, std::generic_category(),
                          "the messaging centre '" + std::string(centre) + "' cannot be served");
}

}  // namespace

void Arrival::answer(Reply reply) {
  ::send(connection.get(), &reply, sizeof reply, MSG_NOSIGNAL | MSG_DONTWAIT);
  connection = Descriptor();
}

Server::Server(int folder, std::string_view centre)
    : listening(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)) {
  const auto address = socketAddress(folder, centre);
  if (!address) fail(ENAMETOOLONG, centre);
  if (!listening || ::bind(listening.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) ||
      ::chmod(address->sun_path, 0600) || ::listen(listening.get(), SOMAXCONN))
    fail(errno, centre);
}

void Server::accept() {
  for (std::size_t count = 0; count < mostClients; ++count) {
    Descriptor connection(::accept4(listening.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!connection) {
      // Without room for another descriptor the newcomer waits outside until the oldest has gone.
      if ((errno == EMFILE || errno == ENFILE) && !clients.empty()) clients.pop_front();
      return;
    }
    if (clients.size() == mostClients) clients.pop_front();
    clients.push_back({std::move(connection), {}});
  }
}

// Whether the client is to stay.
bool Server::read(Client& client, std::vector<Arrival>& arrived) {
  for (;;) {
    std::size_t wanted = lengthBytes;
    if (client.bytes.size() >= lengthBytes) {
      const auto length = payloadLength(client.bytes);
      if (!length) {
        Arrival(std::move(client.connection), {}).answer(Reply::refused);
        return false;
      }
      wanted += *length;
      if (client.bytes.size() == wanted) {
        arrived.emplace_back(std::move(client.connection), client.bytes.substr(lengthBytes));
        return false;
      }
    }
    char buffer[4096];
    const std::size_t room = std::min(sizeof buffer, wanted - client.bytes.size());
    const ssize_t count = ::recv(client.connection.get(), buffer, room, 0);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno == EAGAIN;
    if (count == 0) return false;
    client.bytes.append(buffer, static_cast<std::size_t>(count));
  }
}

std::vector<Arrival> Server::receive() {
  accept();
  std::vector<Arrival> arrived;
  for (auto client = clients.begin(); client != clients.end();)
    client = read(*client, arrived) ? std::next(client) : clients.erase(client);
  return arrived;
}

void Server::addDescriptors(std::vector<pollfd>& all) const {
  all.push_back({listening.get(), POLLIN, 0});
  for (const Client& client : clients) all.push_back({client.connection.get(), POLLIN, 0});
}

}  // namespace sim::appsupport
