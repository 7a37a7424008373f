// What the thread sanitizer does not see into: libraries as Debian builds them, which count references and
// guard their tables in ways of their own.
extern "C" __attribute__((used, visibility("default"))) const char* __tsan_default_suppressions() {
  return "called_from_lib:libgnustep-base.so\n"
         "race:libobjc.so\n"
         "called_from_lib:libpangoft2-1.0.so\n"
         "called_from_lib:libpango-1.0.so\n"
         "called_from_lib:libfontconfig.so\n"
         "called_from_lib:libglib-2.0.so\n"
         "called_from_lib:libBlocksRuntime.so\n"
         "deadlock:libgnustep-base.so\n"
         "deadlock:libobjc.so\n";
}

extern "C" __attribute__((used, visibility("default"))) const char* __tsan_default_options() {
  return "halt_on_error=1";
}
