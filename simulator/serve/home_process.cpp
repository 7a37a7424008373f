// Forking, and what a process that has ended leaves behind: its status and its last words.
#include "simulator/serve/home_process.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <system_error>

#include "simulator/app/simulation.hpp"
#include "simulator/crash/crash.hpp"
#include "simulator/device/text.hpp"
#include "simulator/serve/live_home.hpp"

namespace sim::serve {
namespace {

constexpr std::size_t mostWords = 20'000;
// Of a process that ends to start anew. A library that ends its process by itself has hardly this one.
constexpr int relaunchStatus = 85;
constexpr int ownEnd = 3;  // the descriptor under which the new process has its end of the channel

[[noreturn]] void live(const Options& options, const Program& program, int socket, int errors) {
  ::dup2(errors, STDERR_FILENO);
  ::dup2(socket, ownEnd);
  ::close_range(ownEnd + 1, ~0u, 0);
  crash::tellOfFaults();
  int status = 0;
  try {
    Simulation simulation(options, program);
    simulation.start();
    if (LiveHome(simulation, ownEnd).run()) status = relaunchStatus;
  } catch (const std::exception& error) {
    std::cerr << messageLine(error.what()) << std::endl;
    status = 2;
  }
  ::_exit(status);
}

// The last line that is not indented, and those that are behind it.
Fault lastSaid(std::string text) {
  std::string trace;
  for (;;) {
    while (text.ends_with('\n')) text.pop_back();
    std::string line = text.substr(text.rfind('\n') + 1);
    if (!line.starts_with(' ')) return {messageLine(line), trace};
    text.erase(text.size() - line.size());
    trace.insert(0, line + '\n');
  }
}

}  // namespace

HomeProcess::HomeProcess(const Options& options, const Program& program) {
  int sockets[2], pipes[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
    throw std::system_error(errno, std::generic_category(), "no channel to a home screen");
  channel = Descriptor(sockets[0]);
  const Descriptor other(sockets[1]);
  if (::pipe2(pipes, O_CLOEXEC) != 0)
    throw std::system_error(errno, std::generic_category(), "no channel to a home screen");
  complaints = Descriptor(pipes[0]);
  const Descriptor writing(pipes[1]);
  ::fcntl(pipes[0], F_SETFL, O_NONBLOCK);
  std::cout.flush();
  process = ::fork();
  if (process < 0) throw std::system_error(errno, std::generic_category(), "no process for a home screen");
  if (process == 0) live(options, program, other.get(), writing.get());
}

HomeProcess::~HomeProcess() {
  if (process <= 0) return;
  ::kill(process, SIGKILL);
  ::waitpid(process, nullptr, 0);
}

void HomeProcess::send(const Envelope& envelope) {
  unwritten += sealed(envelope);
  write();
}

void HomeProcess::write() {
  while (!unwritten.empty()) {
    const ssize_t count =
        ::send(channel.get(), unwritten.data(), unwritten.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (count > 0)
      unwritten.erase(0, static_cast<std::size_t>(count));
    else if (errno != EINTR)
      return;  // later; one that has gone is noticed by reading
  }
}

bool HomeProcess::readErrors() {
  char text[4096];
  for (;;) {
    const ssize_t count = ::read(complaints.get(), text, sizeof text);
    if (count == 0) return false;
    if (count < 0) return errno == EAGAIN || errno == EINTR;
    std::cerr.write(text, count).flush();
    lastWords.append(text, static_cast<std::size_t>(count));
    if (lastWords.size() > mostWords) lastWords.erase(0, lastWords.size() - mostWords);
  }
}

std::optional<Fault> HomeProcess::end() {
  int status = 0;
  ::waitpid(std::exchange(process, -1), &status, 0);
  readErrors();
  if (WIFEXITED(status) && WEXITSTATUS(status) == relaunchStatus) return std::nullopt;
  Fault fault = lastSaid(lastWords);
  std::string& words = fault.reason;
  if (WIFSIGNALED(status)) {
    const std::string signal = strsignal(WTERMSIG(status));
    const std::string more = words.starts_with(signal) ? words.substr(signal.size())
                             : words.empty()           ? ""
                                                       : ": " + words;
    words = "stopped by a signal, " + signal + more;
  } else if (words.empty()) {
    words = fmt::format("ended with status {}", WEXITSTATUS(status));
  }
  return fault;
}

}  // namespace sim::serve
