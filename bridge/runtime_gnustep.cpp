// The bridge's platform operations on GCC's runtime with GNUstep Base.
#ifndef __APPLE__

#include "bridge/method.hpp"

extern "C" IMP objc_msg_lookup(id receiver, SEL selector);
extern "C" void __objc_update_dispatch_table_for_class(Class cls);

namespace bridge {

// An object starts with its class.
Class classOf(id object) { return object ? *reinterpret_cast<Class*>(object) : nullptr; }

IMP messenger(id receiver, SEL selector, bool) { return objc_msg_lookup(receiver, selector); }

// By itself method_setImplementation writes into the dispatch table of the method's class alone. Before the
// class's first message that table is one that all such classes share, so looking something up builds its
// own; and subclasses may have tables of their own already, so all are built anew.
void setImplementation(Class cls, objc_method* method, IMP implementation) {
  class_getMethodImplementation(cls, method_getName(method));
  method_setImplementation(method, implementation);
  __objc_update_dispatch_table_for_class(cls);
}

id retain(id object) { return Message<"retain", id()>::send(object); }
void release(id object) { Message<"release", void()>::send(object); }
id autorelease(id object) { return Message<"autorelease", id()>::send(object); }

Pool::Pool() {
  id pool = Message<"alloc", id()>::send(reinterpret_cast<id>(classCalled<"NSAutoreleasePool">()));
  token = Message<"init", id()>::send(pool);
}

Pool::~Pool() { Message<"drain", void()>::send(static_cast<id>(token)); }

id immortalString(const char* bytes) {
  id string = Message<"alloc", id()>::send(reinterpret_cast<id>(classCalled<"NSString">()));
  return Message<"initWithUTF8String:", id(const char*)>::send(string, bytes);
}

}  // namespace bridge

#endif
