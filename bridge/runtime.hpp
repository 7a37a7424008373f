// The class runtime's C interface, as far as it is used, and the few operations in which the platforms
// differ. The two runtimes share these declarations; no header of either is needed.
#pragma once

#include <cstddef>
#include <cstdint>

#ifdef __APPLE__
#if defined(__LP64__)
using BOOL = bool;
#else
using BOOL = signed char;
#endif
#else
using BOOL = unsigned char;
#endif

inline constexpr BOOL YES = 1;
inline constexpr BOOL NO = 0;

#if defined(__LP64__)
using NSInteger = long;
using NSUInteger = unsigned long;
#else
using NSInteger = int;
using NSUInteger = unsigned int;
#endif

using id = struct objc_object*;
using Class = struct objc_class*;
using SEL = struct objc_selector*;
using IMP = void (*)();

extern "C" {
struct objc_method;
struct objc_ivar;
struct objc_protocol;
struct objc_property_attribute {
  const char *name, *value;
};

Class objc_getClass(const char* name);
Class objc_allocateClassPair(Class superclass, const char* name, size_t extraBytes);
void objc_registerClassPair(Class cls);

SEL sel_registerName(const char* name);
const char* sel_getName(SEL selector);
BOOL sel_isEqual(SEL one, SEL other);

const char* class_getName(Class cls);
Class class_getSuperclass(Class cls);
size_t class_getInstanceSize(Class cls);
BOOL class_addIvar(Class cls, const char* name, size_t size, uint8_t alignment, const char* types);
BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types);
BOOL class_addProperty(Class cls, const char* name, const objc_property_attribute* attributes,
                       unsigned int count);
objc_protocol* objc_getProtocol(const char* name);
BOOL class_addProtocol(Class cls, objc_protocol* protocol);
objc_method** class_copyMethodList(Class cls, unsigned int* count);
objc_method* class_getInstanceMethod(Class cls, SEL selector);
IMP class_getMethodImplementation(Class cls, SEL selector);
objc_ivar* class_getInstanceVariable(Class cls, const char* name);
ptrdiff_t ivar_getOffset(objc_ivar* variable);

SEL method_getName(objc_method* method);
IMP method_getImplementation(objc_method* method);
IMP method_setImplementation(objc_method* method, IMP implementation);
const char* method_getTypeEncoding(objc_method* method);

id objc_getAssociatedObject(id object, const void* key);
void objc_setAssociatedObject(id object, const void* key, id value, uintptr_t policy);
}

namespace bridge {

// A place that any thread may fill when it is first needed, each with what serves as well as the others'. A
// reader finds nothing, or something whole: it gets there through the pointer alone, which processors keep in
// order without being told. So it costs no more than a plain variable.
template <class T>
T* loadShared(T* const& place) {
  return __atomic_load_n(&place, __ATOMIC_RELAXED);
}
template <class T>
void storeShared(T*& place, T* value) {
  __atomic_store_n(&place, value, __ATOMIC_RELEASE);
}

// The class of `object`, nil for nil. For a class it is the metaclass.
Class classOf(id object);

// What to call to deliver `selector` to `receiver`, which is not nil. `structResult` says that the result is
// returned through memory, which needs another entry point on some processors.
IMP messenger(id receiver, SEL selector, bool structResult);

// Gives `method`, which `cls` itself has, another implementation, for its subclasses too.
void setImplementation(Class cls, objc_method* method, IMP implementation);

id retain(id object);
void release(id object);
id autorelease(id object);

// An autorelease pool of its own for as long as it lives; pools nest.
class Pool {
 public:
  Pool();
  ~Pool();
  Pool(const Pool&) = delete;
  Pool& operator=(const Pool&) = delete;

 private:
  void* token;
};

// A string object that lives as long as the process, made from `bytes` (UTF-8, terminated, static storage).
id immortalString(const char* bytes);

}  // namespace bridge
