// What a fuzz target does when a property it checks does not hold: print the
// property and abort, so that libFuzzer keeps the input as a crash.
#pragma once

#include <cstdio>
#include <cstdlib>

// A target whose input meets a program left by earlier inputs says here
// what else a failure needs for its repetition.
inline void (*FuzzCheckContext)() = nullptr;

#define FUZZ_CHECK(condition, ...)                                     \
    do {                                                               \
        if (!(condition)) {                                            \
            std::fprintf(stderr, "property failed: %s\n", #condition); \
            std::fprintf(stderr, __VA_ARGS__);                         \
            std::fprintf(stderr, "\n");                                \
            if (FuzzCheckContext) FuzzCheckContext();                  \
            std::abort();                                              \
        }                                                              \
    } while (false)
