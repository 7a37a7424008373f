// Pages for code.
#include "device/loader/pages.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <limits>

#include "device/loader/layout.hpp"

namespace {

using device::loader::asCode;
using device::loader::newPages;

TEST(Pages, AreThereWhole) {
  constexpr size_t size = 0x10000;
  auto* bytes = static_cast<char*>(newPages(nullptr, size, PROT_READ | PROT_WRITE));
  bytes[0] = bytes[size - 1] = 1;
  EXPECT_EQ(bytes[size - 2], 0);
}

TEST(Pages, AreRefusedWhereThereIsNoRoom) {
  EXPECT_THROW(newPages(nullptr, std::numeric_limits<size_t>::max() / 2, PROT_READ), device::loader::Refusal);
}

TEST(Pages, ThatHoldCodeStayWhereTheyAre) {
  void* pages = newPages(nullptr, 0x1000, PROT_READ | PROT_WRITE | PROT_EXEC);
  EXPECT_EQ(asCode(pages, 0x1000), pages);
}

}  // namespace
