// Every fault that an image can have is found, and named; an image without any passes.
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "command.hpp"
#include "device/tools/macho_image.hpp"

namespace {

using device::test::Outcome;
using Lines = std::vector<std::string>;

Outcome checkFile(const std::string& file, const std::string& options = "") {
  return device::test::run(fmt::format("'{}' '{}' --imports '{}/strict' --exports '{}' {}", MACHO_CHECK, file,
                                       LISTS, EXPORTS, options));
}

Outcome check(const std::string& image, const std::string& options = "") {
  return checkFile(fmt::format("{}/{}.dylib", IMAGES, image), options);
}

void expectFindings(const std::string& image, const Lines& lines) {
  Outcome outcome = check(image);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.lines, lines);
}

bool contains(const Lines& lines, const std::string& piece) {
  return std::ranges::any_of(lines, [&](const std::string& line) { return line.find(piece) != line.npos; });
}

TEST(image, without_fault_passes) {
  Outcome outcome = check("good");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.lines, Lines{});
}

TEST(image, largest_functions_are_told) {
  const Outcome outcome = check("good", "--largest 3");
  EXPECT_EQ(outcome.status, 0);
  ASSERT_EQ(outcome.lines.size(), 6u);
  int before = 0;
  for (const std::string& line : outcome.lines) {
    const int size = std::stoi(line.substr(line.find(' ')));
    EXPECT_GT(size, 0) << line;
    if (&line != &outcome.lines[0] && &line != &outcome.lines[3]) EXPECT_LE(size, before) << line;
    before = size;
  }
  EXPECT_TRUE(contains(outcome.lines, "armv7 ")) << testing::PrintToString(outcome.lines);
}

TEST(image, has_no_function_that_nothing_uses) {
  const auto functions = [](const char* name) {
    return device::test::run(
               fmt::format("'{}' '{}/{}.dylib' --imports '{}/strict' --exports '{}' --largest 100",
                           MACHO_CHECK, IMAGES, name, LISTS, EXPORTS))
        .lines;
  };
  const auto naming = [](const Lines& lines) {
    return std::ranges::count_if(lines, [](const std::string& line) { return line.ends_with(" extra"); });
  };
  EXPECT_EQ(naming(functions("extra_export")), 2) << "in both slices, where it is exported";
  EXPECT_EQ(naming(functions("good")), 0);
}

TEST(image, is_linked_the_same_every_time) {
  for (const std::string slice : {"arm64", "armv7"})
    EXPECT_EQ(
        device::test::run(fmt::format("cmp '{0}/{1}/Tilo.dylib' '{0}/again/{1}/Tilo.dylib'", LINKED, slice))
            .lines,
        Lines{});
}

TEST(image, extra_export_is_found_in_both_slices) {
  expectFindings("extra_export", {"armv7: exports _extra", "arm64: exports _extra"});
}

TEST(image, missing_export_is_found) {
  expectFindings("missing_export",
                 {"armv7: does not export _iconGridCalc", "arm64: does not export _iconGridCalc"});
}

TEST(image, third_initialiser_is_found) {
  expectFindings("extra_initialiser",
                 {"armv7: 3 load-time initialisers, not 2", "arm64: 3 load-time initialisers, not 2"});
}

TEST(image, unlisted_import_is_found) {
  expectFindings("unlisted_symbol",
                 {"armv7: import _system is in no list", "arm64: import _system is in no list"});
}

TEST(image, unlisted_library_is_found) {
  std::string library = "/System/Library/Frameworks/CoreText.framework/CoreText";
  Lines expected;
  for (std::string slice : {"armv7", "arm64"}) {
    expected.push_back(slice + ": loads " + library + ", which has no list of imports");
    expected.push_back(slice + ": import _CTFontManagerRegisterGraphicsFont is in no list");
  }
  expectFindings("unlisted_library", expected);
}

TEST(image, import_from_the_wrong_library_and_version_are_found) {
  Lines expected;
  for (std::string slice : {"armv7", "arm64"}) {
    expected.push_back(slice + ": asks /usr/lib/libobjc.A.dylib for version 228.0.0, above 1.0.0");
    expected.push_back(
        slice + ": import _dlopen comes from /usr/lib/libobjc.A.dylib, not /usr/lib/libSystem.B.dylib");
  }
  expectFindings("elsewhere", expected);
}

TEST(image, weak_import_is_found) {
  Outcome outcome = check("weak_import");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(contains(outcome.lines, "arm64: import _getpid is weak"));
}

TEST(image, unrewritten_armv7_pointers_are_found) {
  expectFindings("raw_pointers", {"armv7: section __nl_symbol_ptr, which this linker leaves unbound"});
}

TEST(image, thumb_code_is_found) {
  Outcome outcome = check("thumb");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(contains(outcome.lines, "is Thumb code"));
  EXPECT_TRUE(contains(outcome.lines, "$shim, a broken Thumb jump to an import"));
  EXPECT_FALSE(contains(outcome.lines, "arm64"));
}

TEST(image, thread_local_data_is_found_on_armv7) {
  Outcome outcome = check("thread_local");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(contains(outcome.lines, "armv7: section __thread_vars, which this linker lays out wrongly"));
}

TEST(image, without_unwind_tables_is_found) {
  expectFindings("no_unwind_tables",
                 {"arm64: no unwind tables: an exception that passes through ends the process"});
}

TEST(image, static_made_at_run_time_is_found_in_both_slices) {
  Outcome outcome = check("guarded_static");
  EXPECT_EQ(outcome.status, 1);
  for (std::string slice : {"armv7", "arm64"})
    EXPECT_TRUE(contains(outcome.lines, slice + ": symbol __ZGVZN")) << slice;
}

TEST(image, products_that_do_not_round_by_themselves_are_found) {
  Outcome outcome = check("fused");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.lines.size(), 4u);  // of two numbers, negated, of vectors, and by an element of one
  for (const std::string& line : outcome.lines)
    EXPECT_TRUE(line.starts_with("arm64: a product and a sum in one instruction at 0x")) << line;
  EXPECT_EQ(check("multiplications").lines, Lines{});
}

TEST(image, build_for_a_later_system_is_found) {
  expectFindings(
      "later_system",
      {"arm64: minimum system is 14.0.0, not 9.2.0", "arm64: chained fix-ups, unknown before iOS 13.4",
       "arm64: 0 load-time initialisers, not 2", "arm64: section __init_offsets is unknown before iOS 13.4"});
}

TEST(image, missing_slice_is_found) { expectFindings("missing_slice", {"armv7: 0 slices, not 1"}); }

TEST(image, overlapping_segments_are_found) {
  Outcome outcome = check("overlap");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(contains(outcome.lines, "armv7: segment __DATA overlaps the one before in memory"));
}

TEST(image, cut_short_anywhere_is_found) {
  std::ifstream in(fmt::format("{}/good.dylib", IMAGES), std::ios::binary);
  std::string whole{std::istreambuf_iterator<char>(in), {}};
  auto file = std::filesystem::temp_directory_path() / fmt::format("tilo-cut-{}.dylib", getpid());
  for (size_t size : {size_t{0}, size_t{3}, size_t{30}, size_t{0x4010}, whole.size() / 2, whole.size() - 1}) {
    std::ofstream(file, std::ios::binary) << whole.substr(0, size);
    Outcome outcome = checkFile(file);
    EXPECT_EQ(outcome.status, 1) << size;
    EXPECT_TRUE(contains(outcome.lines, "file is cut short")) << size;
  }
  std::ofstream(file, std::ios::binary) << "certainly no Mach-O file";
  EXPECT_TRUE(contains(checkFile(file).lines, "not a little-endian Mach-O file"));
  std::filesystem::remove(file);
}

TEST(image, missing_file_is_found) {
  Outcome outcome = check("nowhere");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(contains(outcome.lines, "cannot be read"));
}

TEST(image, sizes_are_those_of_the_slices) {
  auto size = [](const char* slice) {
    return fmt::format("{} {}", slice,
                       std::filesystem::file_size(fmt::format("{}/good-{}.dylib", IMAGES, slice)));
  };
  EXPECT_EQ(check("good", "--sizes").lines, (Lines{size("armv7"), size("arm64")}));
}

TEST(image, symbol_that_nothing_imports_is_found_on_request) {
  Outcome outcome =
      device::test::run(fmt::format("'{}' '{}/good.dylib' --imports '{}/lax' --exports '{}' --unused",
                                    MACHO_CHECK, IMAGES, LISTS, EXPORTS));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_TRUE(contains(outcome.lines, "libSystem: _system is listed but imported by no slice"));
  EXPECT_FALSE(contains(outcome.lines, "_dlopen"));
}

// What the rewriting is for: without it the linker binds no imported data at all.
TEST(image, armv7_data_imports_are_bound_once_rewritten) {
  auto imported = [](const std::string& image) {
    Lines names;
    for (const auto& slice : device::readImage(fmt::format("{}/{}-armv7.dylib", IMAGES, image)))
      for (const auto& import : slice.imports) names.push_back(import.name);
    return names;
  };
  EXPECT_TRUE(contains(imported("good"), "__NSConcreteStackBlock"));
  EXPECT_FALSE(contains(imported("raw_pointers"), "__NSConcreteStackBlock"));
}

}  // namespace
