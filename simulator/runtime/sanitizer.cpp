// Builds with the address sanitizer look for leaks at exit by default. The class runtime and the font library
// never free what they made, so that search finds nothing of ours; live objects are counted by tests instead.
// The library in a process twice, as two loaders load it, is no fault. Ten frames tell where memory came
// from; writing down thirty takes a tenth of the time of every test. What finds uses of a function's
// variables after its return keeps 64 KiB for each size of frame; touching all that it would, takes a
// fifteenth.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)

extern "C" __attribute__((used, visibility("default"))) const char* __asan_default_options() {
  return "detect_leaks=0:detect_odr_violation=1:malloc_context_size=10:"
         "min_uar_stack_size_log=16:max_uar_stack_size_log=16";
}

#endif
#endif
