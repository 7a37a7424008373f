// Counts messages, for whom it is loaded before: LD_PRELOAD=build/libmessages.so build/tilo-bench
#define _GNU_SOURCE
#include <dlfcn.h>

typedef void (*IMP)(void);

__attribute__((visibility("default"))) unsigned long messagesSent;

__attribute__((visibility("default"))) IMP objc_msg_lookup(void* receiver, const void* selector) {
  static IMP (*lookup)(void*, const void*);
  if (!lookup) lookup = (IMP(*)(void*, const void*))dlsym(RTLD_NEXT, "objc_msg_lookup");
  ++messagesSent;
  return lookup(receiver, selector);
}
