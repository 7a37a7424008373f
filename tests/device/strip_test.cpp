// Taking out the local symbols changes nothing that a loader looks at.
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "command.hpp"
#include "device/tools/macho_image.hpp"

namespace {

std::string image(const char* kind, const char* slice) {
  return fmt::format("{}/{}-{}.dylib", IMAGES, kind, slice);
}

// What an outside reader says of a slice, without the headings that give its name.
std::vector<std::string> dump(const std::string& file, const char* options) {
  auto outcome = device::test::run(fmt::format("'{}' --macho {} '{}'", OBJDUMP, options, file));
  EXPECT_EQ(outcome.status, 0);
  std::erase_if(outcome.lines, [](const std::string& line) { return line.ends_with(':'); });
  return outcome.lines;
}

// The names in the table that tells which stub and pointer is for which symbol; their numbers may change.
std::vector<std::string> indirectNames(const std::string& file) {
  auto lines = dump(file, "--indirect-symbols");
  for (auto& line : lines) line = line.substr(line.rfind(' ') + 1);
  return lines;
}

class strip : public testing::TestWithParam<const char*> {};

TEST_P(strip, leaves_code_fixups_and_exports_alone) {
  auto before =
      dump(image("good", GetParam()), "-d --no-symbolic-operands --rebase --bind --lazy-bind --exports-trie");
  EXPECT_GT(before.size(), 20u);
  EXPECT_EQ(dump(image("stripped", GetParam()),
                 "-d --no-symbolic-operands --rebase --bind --lazy-bind --exports-trie"),
            before);
}

TEST_P(strip, keeps_every_stub_with_its_symbol) {
  auto before = indirectNames(image("good", GetParam()));
  EXPECT_GT(before.size(), 3u);
  EXPECT_EQ(indirectNames(image("stripped", GetParam())), before);
}

TEST_P(strip, takes_out_all_local_symbols_and_no_other) {
  constexpr uint8_t external = 1;
  auto names = [](const std::string& file, bool all) {
    std::vector<std::string> found;
    auto slices = device::readImage(file);
    for (const auto& symbol : slices.front().symbols)
      if (all || symbol.type & external) found.push_back(symbol.name);
    return found;
  };
  auto kept = names(image("good", GetParam()), false);
  EXPECT_LT(kept.size(), names(image("good", GetParam()), true).size());
  EXPECT_EQ(names(image("stripped", GetParam()), true), kept);
}

INSTANTIATE_TEST_SUITE_P(slices, strip, testing::Values("arm64", "armv7"),
                         [](const auto& slice) { return std::string(slice.param); });

TEST(stripped, result_is_fit_to_ship) {
  auto outcome = device::test::run(fmt::format(
      "'{}' '{}/stripped.dylib' --imports '{}/strict' --exports '{}'", MACHO_CHECK, IMAGES, LISTS, EXPORTS));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.lines, std::vector<std::string>{});
}

TEST(stripped, refuses_what_the_linkers_did_not_lay_out) {
  auto file = std::filesystem::temp_directory_path() / fmt::format("tilo-strip-{}", getpid());
  std::filesystem::copy_file(image("good", "arm64"), file);
  std::ofstream(file, std::ios::binary | std::ios::app) << "a signature";
  auto command = fmt::format("'{}' '{}' '{}.out'", STRIP_LOCALS, file.string(), file.string());
  auto outcome = device::test::run(command);
  EXPECT_EQ(outcome.status, 1);
  ASSERT_EQ(outcome.lines.size(), 1u);
  EXPECT_NE(outcome.lines[0].find("not laid out as the linkers do"), std::string::npos);
  std::filesystem::remove(file);
}

}  // namespace
