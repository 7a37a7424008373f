// Clients that send what is no message, or not all of it, or nothing. The home screen goes on.
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>

#include "simulator/appsupport/message.hpp"
#include "simulator/appsupport/socket_folder.hpp"
#include "simulator/product/names.hpp"
#include "tests/simulator/appsupport/fixture.hpp"

namespace {

using namespace test;
using sim::Descriptor;
using sim::appsupport::Reply;

class HostileClients : public ServedCentre {
 protected:
  HostileClients() { serve(); }

  Descriptor connected() {
    const Descriptor inside = sim::appsupport::findSocketFolder(root);
    const auto address = sim::appsupport::socketAddress(inside.get(), sim::product::settingsCentre);
    Descriptor made(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    EXPECT_EQ(connect(made.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address), 0);
    return made;
  }

  static void send(const Descriptor& to, std::string_view bytes) {
    EXPECT_EQ(::send(to.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL), static_cast<ssize_t>(bytes.size()));
  }

  static std::string length(std::size_t count) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(count >> shift);
    return bytes;
  }

  static std::string framed(const std::string& payload) { return length(payload.size()) + payload; }

  static std::string document(const std::string& content) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\">" + content + "</plist>";
  }

  // What the home screen answers to this: a Reply's number, or 0 when it hangs up without a word.
  int answerTo(std::string_view bytes) {
    const Descriptor client = connected();
    send(client, bytes);
    unsigned char reply = 0;
    ssize_t count = -1;
    EXPECT_TRUE(serveUntil([&] { return (count = recv(client.get(), &reply, 1, 0)) >= 0; }));
    return count == 1 ? reply : 0;
  }

  void expectRefusal(const std::string& payload) {
    EXPECT_EQ(answerTo(framed(payload)), static_cast<int>(Reply::refused)) << payload.substr(0, 200);
  }

  void expectStillServing() {
    heard.clear();
    Client client([&] { return sendOne(root, "hello", {}); });
    EXPECT_EQ(outcomeFor(client), Outcome::delivered);
    EXPECT_EQ(heard.size(), 1u);
  }
};

TEST_F(HostileClients, AreRefusedWithWhatIsNoPropertyList) {
  expectRefusal("hello");
  expectRefusal(std::string(1000, '\0'));
  expectRefusal("<?xml");
  expectRefusal("<?xml version=\"1.0\"?><html>");
  expectRefusal(document("<dict><key>name</key>"));
  expectRefusal(document("<dict><key>name</key><string>\xff\xfe</string>"));
  expectStillServing();
}

TEST_F(HostileClients, AreRefusedWithAPropertyListThatIsNoMessage) {
  expectRefusal(document("<string>hello</string>"));
  expectRefusal(document("<dict></dict>"));
  expectRefusal(document("<dict><key>name</key><integer>5</integer></dict>"));
  expectRefusal(document("<dict><key>name</key><string>hello</string><key>userInfo</key><array/></dict>"));
  EXPECT_TRUE(heard.empty());
  // The same without the fault is a message.
  EXPECT_EQ(answerTo(framed(document("<dict><key>name</key><string>hello</string></dict>"))),
            static_cast<int>(Reply::delivered));
  EXPECT_EQ(heard, (std::vector<Heard>{{"hello", nullptr}}));
  expectStillServing();
}

// Formats whose readers can be led in circles.
TEST_F(HostileClients, AreRefusedWithOtherFormats) {
  expectRefusal("{name = hello;}");
  expectRefusal(std::string(60'000, '('));
  // A binary list whose only object is an array that holds itself.
  std::string circle = "bplist00";
  circle += '\xA1';
  circle += '\0';
  circle += '\x08';
  circle += std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') + "\x01" + std::string(15, '\0') +
            std::string("\0\t", 2);
  expectRefusal(circle);
  expectStillServing();
}

TEST_F(HostileClients, AreRefusedWithNestingWithoutEnd) {
  std::string nested;
  while (nested.size() < 60'000) nested += "<array>";
  expectRefusal(document(nested));
  std::string closed;
  for (int depth = 0; depth < 3'500; ++depth) closed = "<array>" + closed + "</array>";
  expectRefusal(document(closed));
  expectStillServing();
}

TEST_F(HostileClients, AreRefusedWithTooMuch) {
  EXPECT_EQ(answerTo(length(sim::appsupport::longestPayload + 1)), static_cast<int>(Reply::refused));
  EXPECT_EQ(answerTo("\xff\xff\xff\xff"), static_cast<int>(Reply::refused));
  EXPECT_EQ(answerTo(length(0)), static_cast<int>(Reply::refused));
  expectStillServing();
}

TEST_F(HostileClients, SendNoMoreThanTheLimitThemselves) {
  const std::string longText(sim::appsupport::longestPayload, 'x');
  Client client([&] {
    return sendOne(root, "hello", {{"text"_ns, NSString::stringWithUTF8String(longText.c_str())}});
  });
  EXPECT_EQ(outcomeFor(client), Outcome::refused);
  const std::string shorter(sim::appsupport::longestPayload / 2, 'x');
  Client other(
      [&] { return sendOne(root, "hello", {{"text"_ns, NSString::stringWithUTF8String(shorter.c_str())}}); });
  EXPECT_EQ(outcomeFor(other), Outcome::delivered);
  EXPECT_EQ(heard.at(0).userInfo["text"], shorter);
}

TEST_F(HostileClients, MayDieHalfWay) {
  const std::string whole = framed(document("<dict><key>name</key><string>hello</string></dict>"));
  for (std::size_t sent = 0; sent < whole.size(); ++sent) {
    const Descriptor client = connected();
    send(client, std::string_view(whole).substr(0, sent));
    sim::appsupport::serveMessages();
  }
  EXPECT_TRUE(serveUntil([] { return sim::appsupport::messageDescriptors().size() == 1; }));
  EXPECT_TRUE(heard.empty());
  expectStillServing();
}

TEST_F(HostileClients, MayBeGoneWhenTheyAreAnswered) {
  send(connected(), framed(document("<dict><key>name</key><string>hello</string></dict>")));
  EXPECT_TRUE(serveUntil([] { return !heard.empty(); }));
  expectStillServing();
}

TEST_F(HostileClients, MaySendByteByByte) {
  const std::string whole = framed(document("<dict><key>name</key><string>hello</string></dict>"));
  const Descriptor client = connected();
  for (const char byte : whole) {
    EXPECT_TRUE(heard.empty());
    send(client, {&byte, 1});
    sim::appsupport::serveMessages();
  }
  EXPECT_EQ(heard.size(), 1u);
}

TEST_F(HostileClients, ThatSayNothingKeepNobodyOut) {
  std::vector<Descriptor> silent;
  for (int i = 0; i < 300; ++i) {
    silent.push_back(connected());
    sim::appsupport::serveMessages();
  }
  EXPECT_LE(sim::appsupport::messageDescriptors().size(), 257u);
  expectStillServing();
}

}  // namespace
