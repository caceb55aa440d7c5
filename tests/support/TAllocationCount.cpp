#include "TAllocationCount.h"

#include <cstddef>

namespace
{
thread_local qint64 allocations = 0;
}

TAllocationCount::TAllocationCount()
    : m_Before(allocations)
{
}

qint64 TAllocationCount::Value() const
{
    return allocations - m_Before;
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

// The sanitizers' own allocator offers hooks; not every compiler brings the header that declares them.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*onMalloc)(void const volatile*, size_t),
                                                         void (*onFree)(void const volatile*));

namespace
{
void CountAllocation(void const volatile*, size_t)
{
    ++allocations;
}
void IgnoreRelease(void const volatile*) {}

int const installed = __sanitizer_install_malloc_and_free_hooks(&CountAllocation, &IgnoreRelease);
} // namespace

#else

// Qt's containers take their memory from malloc, so a replaced operator new would not see them. The C library
// keeps these names for a program that replaces its allocator.
extern "C"
{
    void* __libc_malloc(size_t size);
    void* __libc_calloc(size_t count, size_t size);
    void* __libc_realloc(void* block, size_t size);

    Q_DECL_EXPORT void* malloc(size_t size)
    {
        ++allocations;
        return __libc_malloc(size);
    }
    Q_DECL_EXPORT void* calloc(size_t count, size_t size)
    {
        ++allocations;
        return __libc_calloc(count, size);
    }
    Q_DECL_EXPORT void* realloc(void* block, size_t size)
    {
        ++allocations;
        return __libc_realloc(block, size);
    }
}

#endif
