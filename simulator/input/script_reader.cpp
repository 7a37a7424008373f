// Reading scripts, line by line.
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "simulator/device/usage_error.hpp"
#include "simulator/input/script.hpp"

namespace sim {

Script::Script(const std::string& file, StepTable steps, Waiter whileWaiting)
    : name(file == "-" ? "<stdin>" : file),
      folder(std::filesystem::current_path()),
      table(steps),
      waiter(std::move(whileWaiting)),
      descriptor(file == "-" ? STDIN_FILENO : ::open(file.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (descriptor < 0) throw UsageError(fmt::format("{}: {}", name, std::strerror(errno)));
}

Script::~Script() {
  if (descriptor != STDIN_FILENO) ::close(descriptor);
}

std::optional<Step> Script::next() {
  constexpr std::string_view mark = "\xef\xbb\xbf";  // editors put it before texts in UTF-8
  while (const std::optional<std::string> line = nextLine()) {
    std::string_view words = *line;
    if (++lineNumber == 1 && words.starts_with(mark)) words.remove_prefix(mark.size());
    if (std::optional<Step> step = parseStep(words, fmt::format("{}:{}", name, lineNumber), folder, table))
      return step;
  }
  return std::nullopt;
}

// Without its newline. What is left after the last newline is a line too.
std::optional<std::string> Script::nextLine() {
  for (;;) {
    if (const std::size_t end = unread.find('\n'); end != std::string::npos) {
      std::string line = unread.substr(0, end);
      unread.erase(0, end + 1);
      return line;
    }
    if (atEnd) {
      if (unread.empty()) return std::nullopt;
      return std::exchange(unread, {});
    }
    if (waiter) waiter(descriptor);
    char buffer[4096];
    const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw UsageError(fmt::format("{}: {}", name, std::strerror(errno)));
    atEnd = count == 0;
    unread.append(buffer, static_cast<std::size_t>(count));
  }
}

}  // namespace sim
