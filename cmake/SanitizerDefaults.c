/* Linked into every program of a sanitizer build: reports go to files under TARN_SANITIZER_LOG (the console
   silences its standard error, and children start with an environment of their own), and the first error
   ends the program. */
#define TARN_SANITIZER_COMMON                                                                                \
    "log_path=" TARN_SANITIZER_LOG ":halt_on_error=1:abort_on_error=1:print_stacktrace=1"

const char* __asan_default_options(void) {
    return TARN_SANITIZER_COMMON ":detect_stack_use_after_return=1";
}
const char* __ubsan_default_options(void) {
    return TARN_SANITIZER_COMMON;
}
const char* __lsan_default_options(void) {
    return TARN_SANITIZER_COMMON;
}
const char* __tsan_default_options(void) {
    return TARN_SANITIZER_COMMON ":second_deadlock_stack=1";
}
