// A served messaging centre in the test's own process, and clients in others.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "bridge/runtime.hpp"
#include "platform/appsupport/messaging_center.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/appsupport/client.hpp"
#include "simulator/appsupport/messaging_center.hpp"
#include "simulator/device/temporary_root.hpp"
#include "tests/support/home.hpp"

namespace test {

using sim::appsupport::Outcome;

// An object that messages go to. It keeps what it gets, and does what the test wants done then.
struct Listener : bridge::Face<"TestListener", NSObject> {
  MESSAGE Method<"hear:withUserInfo:", void(NSString, NSDictionary)> hear;
};

struct Heard {
  std::string name;
  sim::Json userInfo;
  bool operator==(const Heard&) const = default;
};

inline std::vector<Heard> heard;
inline std::function<void()> whenHeard;

bridge::Strong<Listener> newListener();
SEL hearing();

// A process of its own that runs `client` and ends with the number that it answers.
class Client {
 public:
  explicit Client(const std::function<int()>& client);
  ~Client();
  Client(const Client&) = delete;

  bool ended();
  // Only once it has ended.
  int status() const { return result.value(); }

 private:
  pid_t process;
  std::optional<int> result;
};

// Sends one message to the centre of the fixture; the process ends with the Outcome.
int sendOne(const std::filesystem::path& root, const char* name,
            std::vector<std::pair<NSString, NSObject>> info,
            std::chrono::milliseconds patience = std::chrono::seconds(20));

class ServedCentre : public testing::Test {
 protected:
  ServedCentre();
  ~ServedCentre() override;

  static NSString centreName() { return "com.wexor.tilo3.preferences.updated"_ns; }
  CPDistributedMessagingCenter centre() { return CPDistributedMessagingCenter::centerNamed(centreName()); }
  std::filesystem::path folder() const { return root / "var/run/tilo-messages"; }
  std::filesystem::path socket() const { return folder() / "com.wexor.tilo3.preferences.updated.sock"; }

  // Registers the listener for the message "hello" and serves.
  void serve();
  // Serves as the home screen does until the client has ended; how it ended.
  int serveFor(Client& client);
  Outcome outcomeFor(Client& client) { return static_cast<Outcome>(serveFor(client)); }

  // Serves again and again until it is so; false when it is not within 20 seconds.
  static bool serveUntil(const std::function<bool()>& so);

  bridge::Pool pool;
  sim::TemporaryRoot temporary;
  std::filesystem::path root = temporary.path();
  std::optional<sim::appsupport::Messages> messages;
  bridge::Strong<Listener> listener;
};

// tilo-settings as another process, ended. `meanwhile` is called again and again until it ends.
Run runSettings(const std::vector<std::string>& arguments, const std::function<void()>& meanwhile = [] {});

// A process started with posix_spawn, whose standard streams are pipes.
class Program {
 public:
  Program(const std::string& name, const std::vector<std::string>& arguments);
  ~Program();
  Program(const Program&) = delete;

  pid_t id() const { return process; }
  void write(const std::string& text);
  void closeInput();
  bool ended();
  // Waits for the end.
  Run finish();

 private:
  pid_t process = 0;
  int input = -1;
  std::string outputFile, errorFile;
  std::optional<int> result;
};

}  // namespace test
