// For the few loops that look at every character of every file.
#pragma once

/// Before a function: it is compiled once more for processors with wider vectors, and the program picks at its start.
/// Without effect where the compiler or the sanitizers know no such thing.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && !defined(__SANITIZE_ADDRESS__) && \
    !defined(__SANITIZE_THREAD__)
#define WIDE_VECTORS [[gnu::target_clones("avx2", "default")]]
#else
#define WIDE_VECTORS
#endif
