#pragma once

#include <cstdio>
#include <cstdlib>

// A broken rule stops the run like a crash does, so that libFuzzer keeps the input that broke it.
// Unlike assert it stays on in optimised builds.
#define ZV_FUZZ_CHECK(condition)                                                              \
    do {                                                                                      \
        if (!(condition)) {                                                                   \
            std::fprintf(stderr, "%s:%d: rule broken: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                     \
        }                                                                                     \
    } while (false)
