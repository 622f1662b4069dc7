/* Linked into every program of a sanitizer build: reports go to files under TARN_SANITIZER_LOG (the console
   silences its standard error, and children start with an environment of their own), and the first error
   ends the program. */
#define TARN_SANITIZER_COMMON                                                                                \
    "log_path=" TARN_SANITIZER_LOG ":halt_on_error=1:abort_on_error=1:print_stacktrace=1"

/* The console's own handler gives the terminal back before a fatal signal ends it (the tests check that), so
   the sanitizer leaves those signals alone. Leak checking is off: curses keeps its allocations to the end by
   design, and a program ending with its signal thread running gets warnings, not findings. */
const char* __asan_default_options(void) {
    return TARN_SANITIZER_COMMON
        ":detect_stack_use_after_return=1:handle_segv=0:handle_sigbus=0:handle_sigfpe=0"
        ":detect_leaks=0";
}
const char* __ubsan_default_options(void) {
    return TARN_SANITIZER_COMMON;
}
const char* __tsan_default_options(void) {
    return TARN_SANITIZER_COMMON ":second_deadlock_stack=1";
}
