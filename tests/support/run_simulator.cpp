// Running the simulator as its users do.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>

#include "tests/support/files.hpp"
#include "tests/support/home.hpp"

extern char** environ;

namespace test {

Run runSimulator(const std::vector<std::string>& options, const std::string& input, const char* name) {
  static int runs = 0;
  std::string tag = std::to_string(++runs);
  std::string in = temporaryFile("in" + tag, input);
  std::string out = temporaryFile("out" + tag, ""), err = temporaryFile("err" + tag, "");
  std::string program = std::filesystem::canonical("/proc/self/exe").parent_path() / name;

  std::vector<char*> arguments{program.data()};
  for (auto& option : options) arguments.push_back(const_cast<char*>(option.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, in.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, out.c_str(), O_WRONLY | O_TRUNC, 0);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, err.c_str(), O_WRONLY | O_TRUNC, 0);
  pid_t child = 0;
  int failure = posix_spawn(&child, program.c_str(), &files, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (failure != 0) return {-1, "", program + ": " + std::strerror(failure)};
  int status = -1;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contentsOf(out), contentsOf(err)};
}

}  // namespace test
