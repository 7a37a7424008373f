// The pages speak on one thread, the home screen lives on the test's.
#include "tests/simulator/serve/living_home.hpp"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <thread>

#include "simulator/serve/live_home.hpp"

namespace test {
namespace {

constexpr unsigned longest = 20;  // seconds that a test takes; one that waits for ever is ended
constexpr double patience = 10;   // seconds until what does not come is given up
constexpr std::size_t headLength = 12;

}  // namespace

void Pages::sayBytes(std::string_view said) {
  while (!said.empty()) {
    const ssize_t count = ::send(socket, said.data(), said.size(), MSG_NOSIGNAL);
    if (count <= 0) return;
    said.remove_prefix(static_cast<std::size_t>(count));
  }
}

void Pages::sayText(std::string_view text, std::uint32_t page) {
  const std::uint32_t head[] = {static_cast<std::uint32_t>(text.size()), page, 1};
  std::string said(headLength, '\0');
  std::memcpy(said.data(), head, headLength);
  sayBytes(said.append(text));
}

std::optional<Told> Pages::next() { return nextWithin(patience); }

std::optional<Told> Pages::nextWithin(double seconds) {
  for (;;) {
    std::uint32_t head[3];
    if (bytes.size() >= headLength) {
      std::memcpy(head, bytes.data(), headLength);
      if (bytes.size() - headLength >= head[0]) break;
    }
    pollfd one{socket, POLLIN, 0};
    if (::poll(&one, 1, static_cast<int>(std::lround(seconds * 1000))) <= 0) return std::nullopt;
    char buffer[65536];
    const ssize_t count = ::recv(socket, buffer, sizeof buffer, 0);
    if (count <= 0) return std::nullopt;
    bytes.append(buffer, static_cast<std::size_t>(count));
  }
  std::uint32_t head[3];
  std::memcpy(head, bytes.data(), headLength);
  Told told{head[1], head[2], bytes.substr(headLength, head[0])};
  bytes.erase(0, headLength + head[0]);
  return told;
}

sim::Json Pages::text() {
  for (auto told = next(); told; told = next())
    if (told->isText) return sim::Json::parse(told->contents);
  return {};
}

std::string Pages::frame() {
  for (auto told = next(); told; told = next())
    if (!told->isText) return told->contents;
  return {};
}

sim::Json Pages::ask(const sim::Json& message, std::uint32_t page) {
  say(message, page);
  return text();
}

void Pages::hangUp() { ::shutdown(socket, SHUT_RDWR); }

LivingHome::LivingHome(std::vector<std::string> options) : home(std::move(options)) {}

bool LivingHome::live(const std::function<void(Pages&)>& pages) {
  int ends[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends) != 0) {
    ADD_FAILURE() << "no socket";
    return false;
  }
  ::alarm(longest);
  std::thread others([&] {
    Pages all(ends[0]);
    pages(all);
    all.hangUp();
  });
  const bool relaunches = sim::serve::LiveHome(home.simulation(), ends[1]).run();
  ::close(ends[1]);
  others.join();
  ::close(ends[0]);
  return relaunches;
}

sim::Json LivingHome::toldFor(const sim::Json& message) {
  sim::Json told;
  live([&](Pages& pages) { told = pages.ask(message); });
  return told;
}

}  // namespace test
