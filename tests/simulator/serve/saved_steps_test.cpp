// Steps that are saved for a name, and a disk that has something else there.
#include "simulator/serve/saved_steps.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "simulator/device/usage_error.hpp"
#include "tests/support/home.hpp"

namespace {

namespace fs = std::filesystem;

class SavedSteps : public testing::Test {
 protected:
  // What is wrong, or nothing.
  std::string refusal(const char* name, const char* text) {
    const auto messages = sim::serve::savedStepMessages();
    const auto save = std::ranges::find(messages, "save-steps", &sim::PageMessage::type);
    try {
      save->answer(home.simulation(), {{"name", name}, {"text", text}});
      return "";
    } catch (const sim::UsageError& error) {
      return error.what();
    }
  }
  fs::path folder() { return home.simulation().fileSystem().hostPath("/var/mobile/Documents/steps"); }

  test::Home home{{"--stock"}};
};

TEST_F(SavedSteps, AreNotWrittenWhereAFileHasTheFoldersName) {
  fs::create_directories(folder().parent_path());
  std::ofstream(folder()) << "mine";
  EXPECT_EQ(refusal("a", "wait 1"), "'a' cannot be written");
  EXPECT_EQ(refusal("a", ""), "'a' cannot be removed");
  EXPECT_TRUE(fs::is_regular_file(folder()));
}

TEST_F(SavedSteps, AreNotWrittenOrRemovedWhereAFolderHasTheirName) {
  fs::create_directories(folder() / "a.txt/more");
  EXPECT_EQ(refusal("a", "wait 1"), "'a' cannot be written");
  EXPECT_EQ(refusal("a", ""), "'a' cannot be removed");
  EXPECT_TRUE(fs::exists(folder() / "a.txt/more"));
}

TEST_F(SavedSteps, ThatAreNotThereMayBeRemoved) { EXPECT_EQ(refusal("a", ""), ""); }

}  // namespace
