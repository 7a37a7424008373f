// What a page says to its home screen: lines of JSON, each a message of a page that has joined. The home
// screen takes or refuses each and goes on. It is the same one for the life of the process.
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <thread>

#include "simulator/app/simulation.hpp"
#include "simulator/product/product.hpp"
#include "simulator/serve/envelope.hpp"
#include "simulator/serve/live_home.hpp"

namespace {

using sim::serve::Envelope;

sim::Simulation& home() {
  static sim::Simulation* const only = [] {
    constexpr std::array words{"tilo-sim", "--device",    "iPhone 5s", "--pages",  "1",
                               "--set",    "enabled=YES", "--set",     "quick=YES"};
    const sim::Program& program = sim::product::program();
    // The device's files have the process work in their folder; the corpora's are named from this one.
    const std::filesystem::path before = std::filesystem::current_path();
    auto* made = new sim::Simulation(
        sim::parseOptions(static_cast<int>(words.size()), words.data(), program.options), program);
    made->start();
    std::filesystem::current_path(before);
    return made;
  }();
  return *only;
}

void say(int socket, const std::string& line) {
  const std::string bytes = sim::serve::sealed(Envelope{1, true, line});
  ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

// Until the home screen refuses this, which no page says.
void listenUntil(int socket, std::string_view refusal) {
  std::string heard;
  char buffer[65536];
  for (ssize_t count; !heard.contains(refusal) && (count = ::recv(socket, buffer, sizeof buffer, 0)) > 0;)
    heard.append(buffer, static_cast<std::size_t>(count));
}

// What a page has asked that leaves is not done any more: it leaves when all is done.
void listenToTheEnd(int socket) {
  listenUntil(socket, R"("id":"said")");
  say(socket, R"({"type":"leave"})");
  say(socket, R"({"type":"end","id":"over"})");
  listenUntil(socket, R"("id":"over")");
  ::shutdown(socket, SHUT_RDWR);
}

// Time passes as it does on the wall, and a step may take a day of it.
bool takesTime(const std::string& line) { return line.contains("step"); }

void sayAll(int socket, const std::string& all) {
  for (std::size_t from = 0, to; from < all.size(); from = to + 1) {
    to = std::min(all.find('\n', from), all.size());
    if (const std::string line = all.substr(from, to - from); !takesTime(line)) say(socket, line);
  }
  say(socket, R"({"type":"end","id":"said"})");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  if (length > 8192) return 0;
  sim::Simulation& simulation = home();
  int ends[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) return 0;
  // Neither waits for the home screen, which hears only so much at a time.
  std::thread listener(listenToTheEnd, ends[0]);
  std::thread speaker(sayAll, ends[0], std::string(reinterpret_cast<const char*>(bytes), length));
  sim::serve::LiveHome(simulation, ends[1]).run();
  speaker.join();
  listener.join();
  ::close(ends[0]);
  ::close(ends[1]);
  return 0;
}
