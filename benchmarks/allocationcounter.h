#ifndef ZPPLUGIN_BENCHMARKS_ALLOCATIONCOUNTER_H
#define ZPPLUGIN_BENCHMARKS_ALLOCATIONCOUNTER_H

#include <cstddef>

//! How often this program has taken memory from the heap, by malloc, calloc, realloc or new.
//! Counted with the C library of GNU only; elsewhere always 0. The program links
//! allocationcounter.cpp.
size_t allocationCount();

#endif
