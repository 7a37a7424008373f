// What somebody's hand may have made of the two files: every key with every kind of value, alone and
// together.
#pragma once

#include <string>
#include <vector>

namespace test::sweep {

struct Case {
  std::string name;   // of letters, figures and underscores
  std::string bytes;  // of the file
};

// Preferences files, and presets files. The same ones every time.
std::vector<Case> preferencesFiles();
std::vector<Case> presetsFiles();

}  // namespace test::sweep
