// A function that is made at run time for a method's types, and calls made by them.
#pragma once

#include <ffi.h>

#include <memory>
#include <vector>

#include "bridge/runtime.hpp"

namespace sim::serve {

class CallShape {
 public:
  using Handler = void (*)(void* context, void* result, void** arguments);

  /** A function of the shape that the encoding says, which has `handler` called in its place. Null where the
   * types are unions, arrays or bits. */
  static std::unique_ptr<CallShape> make(const char* encoding, Handler handler, void* context);
  ~CallShape();

  IMP function() const { return code; }
  /** Calls another function of that shape with what the handler got. */
  void call(IMP other, void* result, void** arguments) { ffi_call(&shape, other, result, arguments); }

 private:
  CallShape() = default;
  ffi_type* read(const char*& at);
  ffi_type* readStructure(const char*& at);

  struct Structure {
    ffi_type type{};
    std::vector<ffi_type*> parts;
  };
  std::vector<std::unique_ptr<Structure>> structures;
  std::vector<ffi_type*> taken;
  ffi_cif shape{};
  ffi_closure* closure = nullptr;
  IMP code = nullptr;
  Handler handler = nullptr;
  void* context = nullptr;
};

}  // namespace sim::serve
