// The armv7 assembly is rewritten as its linker needs it, or refused.
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "command.hpp"

namespace {

struct Rewritten {
  int status;
  std::string text;  // the result, or the complaint
};

Rewritten rewrite(const std::string& assembly) {
  auto folder = std::filesystem::temp_directory_path() / fmt::format("tilo-pointers-{}", getpid());
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "in.s") << assembly;
  auto outcome = device::test::run(
      fmt::format("'{}' '{}/in.s' '{}/out.s'", REWRITE_POINTERS, folder.string(), folder.string()));
  std::string text;
  if (outcome.status == 0) {
    std::ifstream in(folder / "out.s");
    text.assign(std::istreambuf_iterator<char>(in), {});
  } else if (!outcome.lines.empty()) {
    text = outcome.lines.front();
  }
  std::filesystem::remove_all(folder);
  return {outcome.status, text};
}

TEST(pointers, become_words_with_linker_private_labels) {
  auto out = rewrite(
      "\tmovw\tr0, :lower16:(L_sym$non_lazy_ptr-(LPC0_0+8))\n"
      "\t.section\t__DATA,__nl_symbol_ptr,non_lazy_symbol_pointers\n"
      "\t.p2align\t2, 0x0\n"
      "L_sym$non_lazy_ptr:\n"
      "\t.indirect_symbol\t_sym\n"
      "\t.long\t0\n"
      "\n"
      ".subsections_via_symbols\n");
  EXPECT_EQ(out.status, 0);
  EXPECT_EQ(out.text,
            "\tmovw\tr0, :lower16:(l_sym$non_lazy_ptr-(LPC0_0+8))\n"
            "\t.section\t__DATA,__const\n"
            "\t.p2align\t2, 0x0\n"
            "l_sym$non_lazy_ptr:\n"
            "\t.long\t_sym\n"
            "\n"
            ".subsections_via_symbols\n");
}

TEST(pointers, quoted_names_are_rewritten_too) {
  auto out = rewrite("\tmovt\tr1, :upper16:(\"L_a<b>$non_lazy_ptr\"-(LPC0_1+8))\n");
  EXPECT_EQ(out.text, "\tmovt\tr1, :upper16:(\"l_a<b>$non_lazy_ptr\"-(LPC0_1+8))\n");
}

TEST(pointers, other_assembly_stays_as_it_is) {
  std::string text = "\t.section\t__DATA,__const\nL_a:\n\t.long\t0\n\t.section\t__TEXT,__text\n\tbx\tlr\n";
  EXPECT_EQ(rewrite(text).text, text);
}

TEST(pointers, weak_references_and_thread_locals_are_refused) {
  auto weak = rewrite("\t.weak_reference _maybe\n");
  EXPECT_EQ(weak.status, 1);
  EXPECT_NE(weak.text.find("weak import"), std::string::npos);
  auto local = rewrite("\t.section\t__DATA,__thread_vars,thread_local_variables\n");
  EXPECT_EQ(local.status, 1);
  EXPECT_NE(local.text.find("thread-local data"), std::string::npos);
}

TEST(pointers, anything_else_among_them_is_refused) {
  EXPECT_EQ(rewrite("\t.section\t__DATA,__nl_symbol_ptr,non_lazy_symbol_pointers\n\t.quad\t0\n").status, 1);
  EXPECT_EQ(rewrite("\t.section\t__DATA,__nl_symbol_ptr,non_lazy_symbol_pointers\n\t.long\t0\n").status, 1);
}

}  // namespace
