// A process whose disk fails it at one of its system calls: it goes on, and afterwards the disk is well
// again.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace test {

enum class DiskFault {
  refusal,     // this call fails as on a broken disk, the next does not
  fullDisk,    // this one and all behind it fail
  cutShort,    // half of what this one writes fits, and nothing behind it
  goneFolder,  // the folder is removed before this call
};

class FaultyDisk {
 public:
  /** `below` is a folder of the host: calls that change what lies in it count, from 1 on. */
  FaultyDisk(DiskFault fault, int place, std::filesystem::path below)
      : fault(fault), place(place), folder(std::filesystem::canonical(below)) {}

  /** In a copy of the process: `work` with the fault, then `later` without. Answers whether the fault came.
   */
  bool strikes(const std::function<void()>& work, const std::function<void()>& later) {
    const int status = follow([&] {
      work();
      ::raise(SIGSTOP);
      later();
      ::_exit(0);
    });
    EXPECT_EQ(status, 0) << "place " << place << ": did not come to its end";
    return hasStruck;
  }

  struct End {
    bool wasStruck;
    int status;  // that the program ended with, or what `waitpid` says of another end
  };
  /** The same of a whole program, whose last words go to a file. */
  End runs(const std::filesystem::path& program, std::vector<std::string> words,
           const std::filesystem::path& errors) {
    words.insert(words.begin(), program);
    std::vector<char*> arguments;
    for (auto& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int status = follow([&] {
      ::dup2(::open(errors.c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0644), STDERR_FILENO);
      ::execv(program.c_str(), arguments.data());
      ::_exit(127);
    });
    return {hasStruck, WIFEXITED(status) ? WEXITSTATUS(status) : status};
  }

 private:
  using Word = unsigned long long;

  // Does that in a copy of the process, with the fault; answers what `waitpid` says of its end.
  int follow(const std::function<void()>& work) {
    child = ::fork();
    if (child == 0) {
      ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
      ::raise(SIGSTOP);
      work();
    }
    int status = next(0);
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACEEXEC);
    bool entering = true;
    while (WIFSTOPPED(status = next(PTRACE_SYSCALL))) {
      if (WSTOPSIG(status) == SIGSTOP) {
        isOver = true;
      } else if (WSTOPSIG(status) == (SIGTRAP | 0x80)) {
        entering ? enter() : leave();
        entering = !entering;
      } else if (status >> 8 != (SIGTRAP | PTRACE_EVENT_EXEC << 8)) {
        ADD_FAILURE() << "the process got the signal " << WSTOPSIG(status);
        ::kill(child, SIGKILL);
      }
    }
    return status;
  }

  int next(int request) {
    int status = 0;
    if (request) ::ptrace(static_cast<__ptrace_request>(request), child, nullptr, nullptr);
    ::waitpid(child, &status, 0);
    return status;
  }

  std::string textAt(Word address) const {
    std::string text(512, '\0');
    iovec own{text.data(), text.size()}, other{reinterpret_cast<void*>(address), text.size()};
    // It may lie at the end of what can be read.
    for (; ::process_vm_readv(child, &own, 1, &other, 1, 0) < 0 && own.iov_len > 1;)
      own.iov_len = other.iov_len = other.iov_len / 2;
    return text.c_str();
  }

  std::string fileOf(Word descriptor) const {
    std::error_code none;
    return std::filesystem::read_symlink(
        "/proc/" + std::to_string(child) + "/fd/" + std::to_string(descriptor), none);
  }

  bool isBelow(const std::string& path) const { return path.starts_with(folder.native() + "/"); }

  bool isWrite(Word call) const { return call == SYS_write || call == SYS_pwrite64; }

  bool changesDisk(const user_regs_struct& registers) const {
    switch (registers.orig_rax) {
      case SYS_open:
      case SYS_creat:
        return (registers.orig_rax == SYS_creat ||
                (registers.rsi & (O_CREAT | O_TRUNC | O_WRONLY | O_RDWR))) &&
               isBelow(textAt(registers.rdi));
      case SYS_openat:
        return (registers.rdx & (O_CREAT | O_TRUNC | O_WRONLY | O_RDWR)) && isBelow(textAt(registers.rsi));
      case SYS_rename:
      case SYS_mkdir:
      case SYS_rmdir:
      case SYS_unlink:
      case SYS_link:
      case SYS_chmod:
      case SYS_chown:
        return isBelow(textAt(registers.rdi));
      case SYS_renameat:
      case SYS_renameat2:
      case SYS_mkdirat:
      case SYS_unlinkat:
      case SYS_fchmodat:
      case SYS_fchownat:
      case SYS_utimensat:
        return isBelow(textAt(registers.rsi));
      case SYS_write:
      case SYS_pwrite64:
      case SYS_writev:
      case SYS_ftruncate:
      case SYS_fsync:
      case SYS_fdatasync:
      case SYS_fchmod:
      case SYS_fchown:
        return isBelow(fileOf(registers.rdi));
      default:
        return false;
    }
  }

  void enter() {
    user_regs_struct registers;
    ::ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    isRefused = false;
    if (isOver || !changesDisk(registers)) return;
    const bool isThePlace = ++calls == place;
    if (calls < place || (!isThePlace && (fault == DiskFault::refusal || fault == DiskFault::goneFolder)))
      return;
    hasStruck = true;
    if (fault == DiskFault::goneFolder) {
      std::filesystem::remove_all(folder);
      return;
    }
    if (isThePlace && fault == DiskFault::cutShort && isWrite(registers.orig_rax) && registers.rdx > 1) {
      registers.rdx /= 2;
    } else {
      registers.orig_rax = static_cast<Word>(-1);
      isRefused = true;
    }
    ::ptrace(PTRACE_SETREGS, child, nullptr, &registers);
  }

  void leave() {
    if (!isRefused) return;
    user_regs_struct registers;
    ::ptrace(PTRACE_GETREGS, child, nullptr, &registers);
    registers.rax = static_cast<Word>(-(fault == DiskFault::refusal ? EIO : ENOSPC));
    ::ptrace(PTRACE_SETREGS, child, nullptr, &registers);
  }

  const DiskFault fault;
  const int place;
  const std::filesystem::path folder;
  pid_t child = 0;
  int calls = 0;
  bool isOver = false, isRefused = false, hasStruck = false;
};

}  // namespace test
