// The command line: words of any kind, a line each, are options that make sense or a refusal.
#include "simulator/app/options.hpp"

#include <string>
#include <vector>

#include "simulator/device/usage_error.hpp"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t length) {
  std::vector<std::string> words{"tilo-sim", ""};
  for (std::size_t i = 0; i < length; ++i)
    if (bytes[i] == '\n')
      words.emplace_back();
    else if (bytes[i] != '\0')
      words.back() += static_cast<char>(bytes[i]);
  std::vector<const char*> arguments;
  for (const std::string& word : words) arguments.push_back(word.c_str());
  try {
    const sim::Options options =
        sim::parseOptions(static_cast<int>(arguments.size()), arguments.data(), sim::homeScreenOptions());
    if (options.listing == sim::Listing::help) return 0;
    if (!options.device || options.pages < 1 || options.pages > 15) __builtin_trap();
    if (options.icons && *options.icons < 1) __builtin_trap();
    if (options.ios < options.device->first || options.ios > options.device->last || !options.ios.existed())
      __builtin_trap();
  } catch (const sim::UsageError&) {
  }
  return 0;
}
