// A backup that is put back while the process is killed or the disk fails it: all of it, or nothing.
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/reg.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>

#include "simulator/device/unfinished_files.hpp"
#include "tests/simulator/appsupport/travelling_settings.hpp"
#include "tests/support/faulty_disk.hpp"

namespace {

using namespace test;

fs::path tool() { return fs::canonical("/proc/self/exe").parent_path() / "tilo-settings"; }

bool changesFiles(long call) {
  constexpr long calls[] = {SYS_rename, SYS_renameat, SYS_renameat2, SYS_unlink, SYS_unlinkat, SYS_mkdir};
  return std::ranges::find(calls, call) != std::end(calls);
}

// Runs tilo-settings and kills it where it is about to change the folder's entries for the `last`th time;
// whether it came that far.
bool killedAtChange(const std::vector<std::string>& words, int last) {
  const pid_t process = fork();
  if (process == 0) {
    std::string program = fs::canonical("/proc/self/exe").parent_path() / "tilo-settings";
    std::vector<char*> arguments{program.data()};
    for (auto& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    (void)!freopen("/dev/null", "w", stderr);
    execv(program.c_str(), arguments.data());
    _exit(127);
  }
  int status = 0, changes = 0;
  waitpid(process, &status, 0);
  ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD);
  for (bool entering = true;; entering = !entering) {
    ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
    waitpid(process, &status, 0);
    if (!WIFSTOPPED(status)) return false;
    const long call = ptrace(PTRACE_PEEKUSER, process, sizeof(long) * ORIG_RAX, nullptr);
    if (!entering || !changesFiles(call) || ++changes < last) continue;
    kill(process, SIGKILL);
    waitpid(process, &status, 0);
    return true;
  }
}

class ARestoration : public TravellingSettings {
 protected:
  // What another process sees.
  struct Seen {
    std::string list, layouts;
    bool operator==(const Seen&) const = default;
    friend void PrintTo(const Seen& seen, std::ostream* out) { *out << seen.list << seen.layouts; }
  };
  Seen seen() { return {run({"list"}).output, layouts()}; }

  ARestoration() {
    fill();
    file = backup();
    fresh = seen();
    root = other;
    makeDevice(root);
    run({"paste", "tilo:1:5,6,7,8:Old"});
    run({"set", "Rows", "3"});
    old = seen();
  }

  // With settings of its own.
  void anotherDevice() {
    root = temporary.path() / ("device" + std::to_string(++devices));
    fs::copy(other, root, fs::copy_options::recursive);
  }

  std::vector<std::string> words() const { return {"--root", root.string(), "restore", file}; }

  std::vector<fs::path> files() const {
    std::vector<fs::path> all;
    for (const auto& entry : fs::recursive_directory_iterator(root))
      if (entry.is_regular_file()) all.push_back(fs::relative(entry, root));
    std::ranges::sort(all);
    return all;
  }

  const fs::path other = temporary.path() / "other";
  std::string file;
  Seen old, fresh;
  int devices = 0;
};

TEST_F(ARestoration, IsDoneOrNotWhereItIsKilled) {
  int timesOld = 0, timesFresh = 0;
  bool killed = true;
  for (int change = 1; killed; ++change) {
    anotherDevice();
    killed = killedAtChange(words(), change);
    const Seen now = seen();
    EXPECT_TRUE(now == old || now == fresh) << change << ": " << now.list << now.layouts;
    ++(now == old ? timesOld : timesFresh);
  }
  EXPECT_GE(timesOld, 1);
  EXPECT_GE(timesFresh, 3);
}

class ARestorationOnAFaultyDisk : public ARestoration, public testing::WithParamInterface<DiskFault> {};

TEST_P(ARestorationOnAFaultyDisk, IsDoneOrSaysThatItIsNot) {
  const std::string errors = (temporary.path() / "errors").string();
  int refused = 0;
  for (int place = 1;; ++place) {
    anotherDevice();
    const std::vector<fs::path> before = files();
    const FaultyDisk::End end = FaultyDisk(GetParam(), place, root).runs(tool(), words(), errors);
    if (!end.wasStruck) break;
    const std::string said = contentsOf(errors);
    SCOPED_TRACE("place " + std::to_string(place) + ", status " + std::to_string(end.status) +
                 ", said: " + said);
    const bool isDone = end.status == 0;
    const bool isPending = said.contains("it is put in place at the next start");
    EXPECT_EQ(seen(), isDone || isPending ? fresh : old);
    if (!isDone) {
      ++refused;
      EXPECT_EQ(end.status, 2);
      EXPECT_TRUE(isPending || said.contains("the disk refuses it"));
      EXPECT_EQ(std::ranges::count(said, '\n'), 1);
    }
    // As whoever starts next does.
    for (const fs::path& each : before) sim::removeUnfinishedFiles((root / each).parent_path());
    sim::removeUnfinishedFiles(root / "var/mobile/Documents/com.wexor.tilo3");
    EXPECT_EQ(files(), before);
  }
  EXPECT_GE(refused, 3);
}

INSTANTIATE_TEST_SUITE_P(OfEachWay, ARestorationOnAFaultyDisk,
                         testing::Values(DiskFault::refusal, DiskFault::fullDisk, DiskFault::cutShort));

}  // namespace
