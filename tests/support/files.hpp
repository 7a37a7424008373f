// What a file holds.
#pragma once

#include <filesystem>
#include <string>

namespace test {

// In one go: under the sanitizers a stream that is read byte by byte takes longer than most tests. Empty for
// a file that cannot be read.
std::string contentsOf(const std::filesystem::path& file);

}  // namespace test
