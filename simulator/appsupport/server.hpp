// One messaging centre's socket: takes connections and messages without ever waiting for them.
#pragma once

#include <poll.h>

#include <list>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/appsupport/message.hpp"
#include "simulator/device/descriptor.hpp"

namespace sim::appsupport {

/** A message that has arrived whole, and who waits for the answer. */
class Arrival {
 public:
  Arrival(Descriptor from, std::string bytes) : connection(std::move(from)), content(std::move(bytes)) {}

  std::string_view payload() const { return content; }
  /** Tells the client, if it is still there, and lets it go. */
  void answer(Reply reply);

 private:
  Descriptor connection;
  std::string content;
};

class Server {
 public:
  /** Throws std::system_error when there can be no such socket. */
  Server(int folder, std::string_view centre);

  /** Takes what clients have sent since the last call. Refuses by itself what cannot be a message. */
  std::vector<Arrival> receive();

  /** What a process waits for that has nothing else to do. */
  void addDescriptors(std::vector<pollfd>& all) const;

 private:
  struct Client {
    Descriptor connection;
    std::string bytes;
  };

  void accept();
  bool read(Client& client, std::vector<Arrival>& arrived);

  Descriptor listening;
  std::list<Client> clients;  // the longest connected first
};

}  // namespace sim::appsupport
