// A failed property in a fuzz target: print what was expected and abort, so libFuzzer saves the input.
#pragma once

#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(condition)                                                                                \
    do {                                                                                                     \
        if (!(condition)) {                                                                                  \
            std::fprintf(stderr, "%s:%d: property failed: %s\n", __FILE__, __LINE__, #condition);            \
            std::abort();                                                                                    \
        }                                                                                                    \
    } while (0)
