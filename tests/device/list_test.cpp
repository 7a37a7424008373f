// Lists of imports are read strictly, and both linkers' stubs come from them.
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "command.hpp"
#include "device/tools/import_list.hpp"

namespace {

class list : public testing::Test {
 protected:
  list() { std::filesystem::create_directories(folder); }
  ~list() override { std::filesystem::remove_all(folder); }

  std::string write(const std::string& name, const std::string& text) {
    std::ofstream(folder / name) << text;
    return folder / name;
  }

  std::string complaint(const std::string& text) {
    try {
      device::readImportList(write("one.txt", text));
    } catch (const std::runtime_error& error) {
      return std::string(error.what()).substr(folder.string().size() + 1);
    }
    return "";
  }

  std::filesystem::path folder =
      std::filesystem::temp_directory_path() / fmt::format("tilo-lists-{}", getpid());
};

constexpr const char* heading = "install-name /usr/lib/one.dylib\ncompatibility-version 1.2.3\n";

TEST_F(list, gives_names_slices_and_version) {
  auto read =
      device::readImportList(write("one.txt", std::string("# first\n") + heading + "_a # why\n\n_b armv7\n"));
  EXPECT_EQ(read.library, "one");
  EXPECT_EQ(read.installName, "/usr/lib/one.dylib");
  EXPECT_EQ(read.compatibilityVersion, 0x010203u);
  EXPECT_EQ(device::versionText(read.compatibilityVersion), "1.2.3");
  ASSERT_EQ(read.symbols.size(), 2u);
  EXPECT_EQ(read.symbols[0].name, "_a");
  EXPECT_EQ(read.symbols[0].slice, "");
  EXPECT_EQ(read.symbols[1].slice, "armv7");
}

TEST_F(list, refuses_what_it_does_not_understand) {
  EXPECT_EQ(complaint(std::string(heading) + "_a\n_a\n"), "one.txt:4: listed twice: _a");
  EXPECT_EQ(complaint(std::string(heading) + "_a mips\n"), "one.txt:3: no such slice: mips");
  EXPECT_EQ(complaint(std::string(heading) + "_a armv7 arm64\n"),
            "one.txt:3: more than a symbol and a slice");
  EXPECT_EQ(complaint("install-name /a\ncompatibility-version one\n"), "one.txt:2: not a version: one");
  EXPECT_EQ(complaint("install-name /a\n"), "one.txt: lacks install-name or compatibility-version");
  EXPECT_EQ(complaint("_a\n"), "one.txt:1: install-name and compatibility-version have to come first, once");
}

TEST_F(list, refuses_a_symbol_in_two_libraries) {
  write("one.txt", std::string(heading) + "_a\n");
  write("two.txt", "install-name /usr/lib/two.dylib\ncompatibility-version 1\n_a\n");
  EXPECT_THROW(device::readImportLists(folder), std::runtime_error);
  write("two.txt", "install-name /usr/lib/two.dylib\ncompatibility-version 1\n_b\n");
  EXPECT_EQ(device::readImportLists(folder).size(), 2u);
}

TEST_F(list, stub_holds_the_symbols_of_its_slice) {
  std::string source = write("one.txt", std::string(heading) + "_a\n_b armv7\n");
  auto stub = [&](const char* slice) {
    std::string out = folder / "stub";
    EXPECT_EQ(device::test::run(fmt::format("'{}' '{}' {} '{}'", MAKE_STUB, source, slice, out)).status, 0);
    std::ifstream in(out);
    return std::string{std::istreambuf_iterator<char>(in), {}};
  };
  EXPECT_NE(stub("arm64").find("'_a'"), std::string::npos);
  EXPECT_EQ(stub("arm64").find("_b"), std::string::npos);
  EXPECT_NE(stub("arm64").find("install-name: '/usr/lib/one.dylib'"), std::string::npos);
  EXPECT_NE(stub("armv7").find("\"_b\":"), std::string::npos);
}

}  // namespace
