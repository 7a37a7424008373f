// The bridge's platform operations on Apple's runtime.
#ifdef __APPLE__

#include "bridge/runtime.hpp"

extern "C" {
void objc_msgSend();
void objc_msgSend_stret();
Class object_getClass(id object);
id objc_retain(id object);
void objc_release(id object);
id objc_autorelease(id object);
void* objc_autoreleasePoolPush();
void objc_autoreleasePoolPop(void* token);
}

namespace bridge {

Class classOf(id object) { return object_getClass(object); }

IMP messenger(id, SEL, bool structResult) {
#ifdef __arm64__
  (void)structResult;
  return objc_msgSend;
#else
  return structResult ? objc_msgSend_stret : objc_msgSend;
#endif
}

void setImplementation(Class, objc_method* method, IMP implementation) {
  method_setImplementation(method, implementation);
}

id retain(id object) { return objc_retain(object); }
void release(id object) { objc_release(object); }
id autorelease(id object) { return objc_autorelease(object); }

Pool::Pool() : token(objc_autoreleasePoolPush()) {}
Pool::~Pool() { objc_autoreleasePoolPop(token); }

}  // namespace bridge

#endif
