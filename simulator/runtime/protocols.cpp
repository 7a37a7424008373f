// GCC's runtime knows the protocols that a compiler has laid out; these are laid out as it does that.
#include "simulator/runtime/protocols.hpp"

#include "bridge/runtime.hpp"

extern "C" void __objc_protocols_add_protocol(const char* name, objc_protocol* protocol);

struct objc_protocol {
  Class cls;
  const char* name;
  void* protocols;
  void *instanceMethods, *classMethods;
};

namespace sim {

void declareProtocols(std::initializer_list<const char*> names) {
  const Class cls = objc_getClass("Protocol");
  for (const char* name : names)
    if (!objc_getProtocol(name))
      __objc_protocols_add_protocol(name, new objc_protocol{cls, name, {}, {}, {}});
}

}  // namespace sim
