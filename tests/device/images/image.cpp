// The smallest image that is fit to ship, and by macro every way in which it is not.
extern "C" {
void* dlopen(const char* path, int mode);
const void* objc_getClass(const char* name);
extern const void* _NSConcreteStackBlock[];
int system(const char* command);
int CTFontManagerRegisterGraphicsFont(const void* font, void* error);

__attribute__((visibility("default"))) extern const void* framing[4];
__attribute__((visibility("default"))) int iconGridCalc(const void* key, const void* list, int count);
__attribute__((visibility("default"))) int extra();

const void* framing[4];
int iconGridCalc(const void*, const void*, int count) { return count - 1; }
int extra() { return 1; }
}

namespace {

// Virtual, so that there is a table of function pointers, and a template, so that a definition is weak.
struct Shape {
  virtual int sides() const { return 0; }
};
template <int Sides>
struct Polygon : Shape {
  int sides() const override { return Sides; }
};

const Shape* shape;

__attribute__((constructor)) void first() {
  static const Polygon<4> square;
  shape = &square;
  framing[0] = _NSConcreteStackBlock;
  dlopen("/nothing", 2);
#ifdef UNLISTED_SYMBOL
  system("true");
#endif
#ifdef UNLISTED_LIBRARY
  CTFontManagerRegisterGraphicsFont(nullptr, nullptr);
#endif
}

__attribute__((constructor)) void second() {
  framing[1] = shape->sides() ? &framing[0] : nullptr;
  framing[2] = objc_getClass("NSObject");
}

#ifdef EXTRA_INITIALISER
__attribute__((constructor)) void third() { framing[3] = dlopen("/nothing", 1); }
#endif

#ifdef TAIL_CALL
__attribute__((used, noinline)) const void* tail() { return objc_getClass("NSString"); }
#endif

#ifdef WEAK_IMPORT
extern "C" __attribute__((weak_import)) int getpid();
__attribute__((used)) int identify() { return getpid ? getpid() : 0; }
#endif

#ifdef MULTIPLICATIONS
using Four = float __attribute__((vector_size(16)));
__attribute__((used)) double scalar(double a, double b, double c) { return a * b + c; }
__attribute__((used)) float negated(float a, float b, float c) { return -(a * b) - c; }
__attribute__((used)) Four vector(Four a, Four b, Four c) { return a * b + c; }
__attribute__((used)) Four element(Four a, Four b, Four c) { return c - a * b[1]; }
#endif

#ifdef GUARDED_STATIC
__attribute__((used)) const void* guarded() {
  static const void* const made = objc_getClass("NSString");
  return made;
}
#endif

#ifdef THREAD_LOCAL
thread_local int depth = 1;
__attribute__((used)) int deeper() { return ++depth; }
#endif

}  // namespace
