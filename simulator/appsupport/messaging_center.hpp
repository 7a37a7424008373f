// The home screen's end of the messaging centres.
//
// Other processes reach a centre through a socket below the device's root (socket_folder.hpp). What they send
// is handed to its targets by `serveMessages`, which the main thread calls, and at no other time.
#pragma once

#include <poll.h>

#include <filesystem>
#include <string_view>
#include <vector>

namespace sim::appsupport {

/** While one exists, centres that are run as servers can be reached below this root. There is one at a time.
 */
class Messages {
 public:
  explicit Messages(const std::filesystem::path& root);
  /** Ends all servers; their sockets are gone. So they are at exit, should this never be destroyed. */
  ~Messages();
  Messages(const Messages&) = delete;
  Messages& operator=(const Messages&) = delete;
};

/** The class CPDistributedMessagingCenter. Foundation must have been prepared. */
void defineMessagingCenter();

/** Whether this process serves that centre. */
bool serves(std::string_view centre);

/** Hands over every message that has arrived; waits for none. Returns whether there was any. */
bool serveMessages();

/** What to poll for besides other input, to call `serveMessages` when any of it is ready. */
std::vector<pollfd> messageDescriptors();

}  // namespace sim::appsupport
