// The names that must not be found by chance: a call would go to the right function with the wrong arguments.
#include "device/loader/process.hpp"

#include <dlfcn.h>

#include <iterator>
#include <set>
#include <sstream>

#include "device/loader/layout.hpp"

namespace device::loader {
namespace {

// Arguments without names, and lists of them, lie elsewhere than on Linux.
constexpr const char* variadic =
    "asprintf vasprintf printf vprintf fprintf vfprintf sprintf vsprintf snprintf vsnprintf dprintf vdprintf "
    "wprintf vwprintf fwprintf vfwprintf swprintf vswprintf scanf vscanf fscanf vfscanf sscanf vsscanf "
    "wscanf "
    "vwscanf fwscanf vfwscanf swscanf vswscanf strfmon strfmon_l "
    "__sprintf_chk __snprintf_chk __vsprintf_chk __vsnprintf_chk __printf_chk __fprintf_chk __asprintf_chk "
    "syslog vsyslog err errx warn warnx verr verrx vwarn vwarnx errc verrc warnc vwarnc "
    "open openat fcntl ioctl sem_open shm_open semctl msgctl ulimit syscall execl execle execlp makecontext "
    "NSLog NSLogv CFLog CFLogv CFStringCreateWithFormat CFStringCreateWithFormatAndArguments "
    "CFStringAppendFormat "
    "CFStringAppendFormatAndArguments "
    "objc_msgSend objc_msgSend_stret objc_msgSend_fpret objc_msgSendSuper objc_msgSendSuper_stret";

// What they point to is laid out otherwise than on Linux, or their flags have other numbers.
constexpr const char* otherwise =
    "stat lstat fstat fstatat statfs fstatfs statvfs fstatvfs opendir readdir readdir_r scandir "
    "getdirentries nftw ftw "
    "fts_open fts_read glob sigaction sigprocmask pthread_sigmask sigaltstack setjmp longjmp _setjmp "
    "_longjmp sigsetjmp "
    "siglongjmp mmap madvise sysconf pathconf confstr getrlimit setrlimit getrusage uname "
    "pthread_mutex_init pthread_mutex_lock pthread_mutex_trylock pthread_mutex_unlock pthread_mutex_destroy "
    "pthread_mutexattr_init pthread_mutexattr_settype pthread_cond_init pthread_cond_wait "
    "pthread_cond_timedwait "
    "pthread_cond_signal pthread_cond_broadcast pthread_rwlock_rdlock pthread_rwlock_wrlock "
    "pthread_rwlock_unlock "
    "pthread_once pthread_attr_init pthread_attr_setdetachstate pthread_create pthread_key_create "
    "clock_gettime "
    "clock_settime getaddrinfo getifaddrs getpwnam getpwuid getpwnam_r getpwuid_r socket bind connect accept "
    "setsockopt "
    "getsockopt poll kqueue select localeconv setlocale newlocale strerror_r sysctl sysctlbyname posix_spawn "
    "sem_init "
    "sem_wait sem_post qsort_r";

// A word comes before one of 64 bits, which armv7 has at an even place on Linux alone.
constexpr const char* uneven =
    "lseek truncate ftruncate fseeko pread pwrite dispatch_walltime dispatch_source_set_timer "
    "dispatch_semaphore_wait dispatch_group_wait CFDateCreate CFRunLoopRunInMode CFRunLoopTimerCreate "
    "CFRunLoopTimerSetNextFireDate CFCalendarComposeAbsoluteTime";

std::set<std::string, std::less<>> words(const char* text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), {}};
}

}  // namespace

void* asItStands(const std::string& symbol) {
  static const auto withoutNames = words(variadic), unlike = words(otherwise), wide = words(uneven);
  if (!symbol.starts_with('_')) return nullptr;
  const std::string name = symbol.substr(1);
  if (withoutNames.contains(name))
    throw Refusal("import " + symbol + " takes arguments without names, and there is no crossing for it");
  if (unlike.contains(name))
    throw Refusal("import " + symbol + " is otherwise on Linux, and there is no crossing for it");
  if (wide.contains(name))
    throw Refusal("import " + symbol + " takes 64 bits after a word, and there is no crossing for it");
  return dlsym(RTLD_DEFAULT, name.c_str());
}

}  // namespace device::loader
