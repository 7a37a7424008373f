// Envelopes from bytes that come in any portions.
#include "simulator/serve/envelope.hpp"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

namespace {

using namespace std::string_literals;
using sim::serve::Envelope;
using sim::serve::EnvelopeReader;

constexpr unsigned longest = 20;  // seconds that a test takes; one that reads for ever is ended

class AnEnvelope : public testing::Test {
 protected:
  AnEnvelope() {
    EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    ::alarm(longest);
  }
  ~AnEnvelope() override {
    hangUp();
    ::close(ends[1]);
  }
  void hangUp() {
    if (ends[0] >= 0) ::close(std::exchange(ends[0], -1));
  }
  void send(const std::string& bytes) {
    ASSERT_EQ(::send(ends[0], bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
  }
  // What has come so far.
  std::optional<Envelope> next() {
    EXPECT_TRUE(reader.fill(ends[1]));
    return reader.next();
  }

  int ends[2];
  EnvelopeReader reader;
};

TEST_F(AnEnvelope, TravelsAsItsLengthThePageTheKindAndTheContents) {
  EXPECT_EQ(sim::serve::sealed({0x10203, true, "text"}), "\4\0\0\0\3\2\1\0\1\0\0\0text"s);
  EXPECT_EQ(sim::serve::sealed({7, false, "x"}), "\1\0\0\0\7\0\0\0\0\0\0\0x"s);
}

TEST_F(AnEnvelope, IsReadAsItWasWritten) {
  send("\4\0\0\0\3\2\1\0\1\0\0\0text"s);
  const auto envelope = next();
  ASSERT_TRUE(envelope);
  EXPECT_EQ(envelope->page, 0x10203u);
  EXPECT_TRUE(envelope->isText);
  EXPECT_EQ(envelope->contents, "text");
}

TEST_F(AnEnvelope, IsTextUnlessItsKindIsNone) {
  send("\0\0\0\0\1\0\0\0\0\0\0\0"s);
  EXPECT_FALSE(next().value().isText);
  send("\0\0\0\0\1\0\0\0\0\1\0\0"s);
  EXPECT_TRUE(next().value().isText);
}

TEST_F(AnEnvelope, OfNoContentsIsWhole) {
  send("\0\0\0\0\1\0\0\0\1\0\0\0"s);
  EXPECT_EQ(next().value().contents, "");
}

TEST_F(AnEnvelope, IsNoneUntilItsLastByteHasCome) {
  const std::string all = "\3\0\0\0\1\0\0\0\1\0\0\0abc"s;
  for (std::size_t i = 0; i + 1 < all.size(); ++i) {
    send(all.substr(i, 1));
    EXPECT_FALSE(next()) << i;
  }
  send(all.substr(all.size() - 1));
  EXPECT_EQ(next().value().contents, "abc");
}

TEST_F(AnEnvelope, OfTheGreatestLengthIsWaitedFor) {
  send("\xff\xff\xff\xff\1\0\0\0\1\0\0\0abc"s);
  EXPECT_FALSE(next());
}

TEST_F(AnEnvelope, FollowsTheOneBefore) {
  send("\1\0\0\0\1\0\0\0\1\0\0\0a\2\0\0\0\2\0\0\0\1\0\0\0bc\1"s);
  EXPECT_EQ(next().value().contents, "a");
  const auto second = reader.next();
  ASSERT_TRUE(second);
  EXPECT_EQ(second->page, 2u);
  EXPECT_EQ(second->contents, "bc");
  EXPECT_FALSE(reader.next());
  send("\0\0\0\3\0\0\0\1\0\0\0d"s);
  EXPECT_EQ(next().value().contents, "d");
}

TEST_F(AnEnvelope, IsReadWhenNothingMoreHasComeSince) {
  send("\1\0\0\0\1\0\0\0\1\0\0\0a\1\0\0\0\2\0\0\0\1\0\0\0b"s);
  EXPECT_EQ(next().value().contents, "a");
  EXPECT_EQ(next().value().contents, "b");
  EXPECT_FALSE(next());
}

TEST_F(AnEnvelope, IsReadAfterWhoSentItHasGone) {
  send("\1\0\0\0\1\0\0\0\1\0\0\0a"s);
  hangUp();
  EXPECT_FALSE(reader.fill(ends[1]));
  EXPECT_EQ(reader.next().value().contents, "a");
}

TEST_F(AnEnvelope, DoesNotComeFromWhatIsNoSocket) { EXPECT_FALSE(reader.fill(-1)); }

// As many as a page may have on the way, each as short as can be.
TEST_F(AnEnvelope, OfManyCostsNoMoreThanOneOfFew) {
  constexpr int count = 350'000;
  std::atomic<bool> isSent = false;
  std::thread sender([&] {
    std::string all;
    for (int i = 0; i < count; ++i) all += sim::serve::sealed({1, true, ""});
    for (std::size_t done = 0; done < all.size();) {
      const ssize_t sent = ::send(ends[0], all.data() + done, all.size() - done, MSG_NOSIGNAL);
      if (sent <= 0) break;
      done += static_cast<std::size_t>(sent);
    }
    isSent = true;
  });
  while (!isSent) reader.fill(ends[1]);
  sender.join();
  reader.fill(ends[1]);
  const auto start = std::chrono::steady_clock::now();
  int found = 0;
  while (reader.next()) ++found;
  EXPECT_EQ(found, count);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

}  // namespace
