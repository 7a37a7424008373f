// Running one of the tools as a user would.
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

namespace device::test {

struct Outcome {
  int status = -1;  // what the tool ended with; -1 if it did not end by itself
  std::vector<std::string> lines;
};

// Runs a shell command; both its outputs are taken.
inline Outcome run(const std::string& command) {
  Outcome outcome;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (!pipe) return outcome;
  std::string text;
  char buffer[4096];
  while (size_t count = fread(buffer, 1, sizeof buffer, pipe)) text.append(buffer, count);
  int status = pclose(pipe);
  if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) outcome.lines.push_back(line);
  return outcome;
}

}  // namespace device::test
