// Clients are forked processes or programs; the centre is served by the test between looks at them.
#include "tests/simulator/appsupport/fixture.hpp"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "bridge/define.hpp"
#include "simulator/product/names.hpp"
#include "simulator/runtime/foundation.hpp"
#include "tests/support/files.hpp"

extern char** environ;

namespace test {
namespace {

using Clock = std::chrono::steady_clock;
using ListenerClass = bridge::Implementation<Listener>;

void hear(Listener, NSString name, NSDictionary userInfo) {
  heard.push_back({name.UTF8String(), sim::plain(userInfo)});
  if (whenHeard) whenHeard();
}

std::optional<int> ending(pid_t process, int options) {
  int status = 0;
  if (waitpid(process, &status, options) != process) return std::nullopt;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

bridge::Strong<Listener> newListener() {
  if (!ListenerClass::cls) ListenerClass::define<NSObject>(bridge::method<&Listener::hear, hear>());
  return bridge::adopt<Listener>(bridge::make<Listener, &NSObject::init>().leak());
}

SEL hearing() { return bridge::selector<"hear:withUserInfo:">(); }

Client::Client(const std::function<int()>& client) : process(fork()) {
  if (process == 0) _exit(client());
}

Client::~Client() {
  if (result) return;
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
}

bool Client::ended() {
  if (!result) result = ending(process, WNOHANG);
  return result.has_value();
}

int sendOne(const std::filesystem::path& root, const char* name,
            std::vector<std::pair<NSString, NSObject>> info, std::chrono::milliseconds patience) {
  bridge::Pool pool;
  auto entries = bridge::make<NSMutableDictionary, &NSObject::init>();
  for (auto& [key, value] : info) entries->setObject_forKey(value, key);
  return static_cast<int>(sim::appsupport::send(root, sim::product::settingsCentre,
                                                {NSString::stringWithUTF8String(name), entries.get()},
                                                {.patience = patience}));
}

ServedCentre::ServedCentre() {
  heard.clear();
  whenHeard = nullptr;
  sim::prepareFoundation();
  sim::appsupport::defineMessagingCenter();
  listener = newListener();
}

ServedCentre::~ServedCentre() = default;

void ServedCentre::serve() {
  messages.emplace(root);
  centre().runServerOnCurrentThread();
  centre().registerForMessageName_target_selector("hello"_ns, listener, hearing());
}

bool ServedCentre::serveUntil(const std::function<bool()>& so) {
  const auto end = Clock::now() + std::chrono::seconds(20);
  while (!so()) {
    if (Clock::now() > end) return false;
    auto all = sim::appsupport::messageDescriptors();
    poll(all.data(), all.size(), 1);
    sim::appsupport::serveMessages();
  }
  return true;
}

int ServedCentre::serveFor(Client& client) {
  EXPECT_TRUE(serveUntil([&] { return client.ended(); }));
  return client.ended() ? client.status() : -1;
}

Program::Program(const std::string& name, const std::vector<std::string>& arguments) {
  static int count = 0;
  const std::string tag = "program" + std::to_string(++count);
  outputFile = temporaryFile(tag + ".out", "");
  errorFile = temporaryFile(tag + ".err", "");
  std::string program = std::filesystem::canonical("/proc/self/exe").parent_path() / name;
  std::vector<char*> words{program.data()};
  for (auto& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  int ends[2];
  EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_adddup2(&files, ends[0], STDIN_FILENO);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, outputFile.c_str(), O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errorFile.c_str(), O_WRONLY, 0);
  EXPECT_EQ(posix_spawn(&process, program.c_str(), &files, nullptr, words.data(), environ), 0);
  posix_spawn_file_actions_destroy(&files);
  close(ends[0]);
  input = ends[1];
}

Program::~Program() {
  closeInput();
  if (result) return;
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
}

void Program::write(const std::string& text) {
  EXPECT_EQ(::write(input, text.data(), text.size()), static_cast<ssize_t>(text.size()));
}

void Program::closeInput() {
  if (input >= 0) close(std::exchange(input, -1));
}

bool Program::ended() {
  if (!result) result = ending(process, WNOHANG);
  return result.has_value();
}

Run Program::finish() {
  closeInput();
  if (!result) result = ending(process, 0);
  return {result.value_or(-1), contentsOf(outputFile), contentsOf(errorFile)};
}

Run runSettings(const std::vector<std::string>& arguments, const std::function<void()>& meanwhile) {
  Program program("tilo-settings", arguments);
  while (!program.ended()) {
    meanwhile();
    usleep(1000);
  }
  return program.finish();
}

}  // namespace test
