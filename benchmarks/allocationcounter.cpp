#include "allocationcounter.h"

#include <atomic>
#include <cstdlib>

static std::atomic<size_t> count{0};

size_t allocationCount()
{
    return count;
}

#ifdef __GLIBC__

// The C library's functions, of which the program's own take the place.
extern "C" {

void *__libc_malloc(size_t size);
void *__libc_calloc(size_t number, size_t size);
void *__libc_realloc(void *memory, size_t size);

void *malloc(size_t size)
{
    ++count;
    return __libc_malloc(size);
}

void *calloc(size_t number, size_t size)
{
    ++count;
    return __libc_calloc(number, size);
}

void *realloc(void *memory, size_t size)
{
    ++count;
    return __libc_realloc(memory, size);
}

} // extern "C"

#endif
