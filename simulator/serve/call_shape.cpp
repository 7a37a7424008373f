// The class runtime's encodings as libffi's types.
#include "simulator/serve/call_shape.hpp"

#include <cctype>
#include <cstring>

namespace sim::serve {
namespace {

ffi_type* plainType(char letter) {
  switch (letter) {
    case 'c':
      return &ffi_type_sint8;
    case 'C':
    case 'B':
      return &ffi_type_uint8;
    case 's':
      return &ffi_type_sint16;
    case 'S':
      return &ffi_type_uint16;
    case 'i':
      return &ffi_type_sint32;
    case 'I':
      return &ffi_type_uint32;
    case 'l':
    case 'q':
      return &ffi_type_sint64;
    case 'L':
    case 'Q':
      return &ffi_type_uint64;
    case 'f':
      return &ffi_type_float;
    case 'd':
      return &ffi_type_double;
    case 'v':
      return &ffi_type_void;
    case '@':
    case '#':
    case ':':
    case '*':
    case '?':
      return &ffi_type_pointer;
    default:
      return nullptr;
  }
}

// What a pointer leads to does not matter.
void skip(const char*& at) {
  at += std::strspn(at, "rnNoORVA^");
  int depth = 0;
  do {
    if (*at == '\0') return;
    depth += std::strchr("{([", *at) != nullptr;
    depth -= std::strchr("})]", *at) != nullptr;
    ++at;
  } while (depth > 0);
}

// Places of arguments, which some runtimes note.
void skipPlace(const char*& at) {
  if (*at == '-' || *at == '+') ++at;
  while (std::isdigit(static_cast<unsigned char>(*at))) ++at;
}

}  // namespace

ffi_type* CallShape::read(const char*& at) {
  at += std::strspn(at, "rnNoORVA");
  if (*at == '\0') return nullptr;
  const char letter = *at;
  if (letter == '{') return readStructure(++at);
  ++at;
  if (letter == '^') skip(at);
  if (letter == '@' && *at == '?') ++at;
  return letter == '^' ? &ffi_type_pointer : plainType(letter);
}

ffi_type* CallShape::readStructure(const char*& at) {
  at = std::strpbrk(at, "=}");
  if (!at) return nullptr;
  auto made = std::make_unique<Structure>();
  if (*at == '=') ++at;
  while (*at != '}') {
    ffi_type* part = read(at);
    if (!part) return nullptr;
    made->parts.push_back(part);
  }
  ++at;
  if (made->parts.empty()) return nullptr;
  made->parts.push_back(nullptr);
  made->type.type = FFI_TYPE_STRUCT;
  made->type.elements = made->parts.data();
  structures.push_back(std::move(made));
  return &structures.back()->type;
}

std::unique_ptr<CallShape> CallShape::make(const char* encoding, Handler handler, void* context) {
  std::unique_ptr<CallShape> made(new CallShape);
  made->handler = handler;
  made->context = context;
  ffi_type* const result = made->read(encoding);
  if (!result) return nullptr;
  for (skipPlace(encoding); *encoding != '\0'; skipPlace(encoding)) {
    ffi_type* const argument = made->read(encoding);
    if (!argument) return nullptr;
    made->taken.push_back(argument);
  }
  if (ffi_prep_cif(&made->shape, FFI_DEFAULT_ABI, static_cast<unsigned>(made->taken.size()), result,
                   made->taken.data()) != FFI_OK)
    return nullptr;
  void* code = nullptr;
  made->closure = static_cast<ffi_closure*>(ffi_closure_alloc(sizeof(ffi_closure), &code));
  if (!made->closure) return nullptr;
  const auto enter = [](ffi_cif*, void* given, void** arguments, void* own) {
    const auto& shape = *static_cast<CallShape*>(own);
    shape.handler(shape.context, given, arguments);
  };
  if (ffi_prep_closure_loc(made->closure, &made->shape, enter, made.get(), code) != FFI_OK) return nullptr;
  made->code = reinterpret_cast<IMP>(code);
  return made;
}

CallShape::~CallShape() {
  if (closure) ffi_closure_free(closure);
}

}  // namespace sim::serve
