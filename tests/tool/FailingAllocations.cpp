// Preloaded into the tool, makes one allocation of a run fail, or all from one on.
//
// FAULT_AT      the number of the allocation, counted from the beginning of main
// FAULT_STAYS   set: all later ones fail as well
// FAULT_COUNT   a file for how many there were

#include <dlfcn.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <new>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

using Main = int (*)(int, char**, char**);

Main gMain = nullptr;
std::atomic<bool> gCounts = false;
std::atomic<unsigned long> gSeen = 0;
unsigned long gFirst = ULONG_MAX;
unsigned long gLast = ULONG_MAX;

/// True where the allocation that is asked for fails.
bool Fails()
{
    if (!gCounts) return false;
    const unsigned long number = gSeen++;
    if (number < gFirst || number > gLast) return false;
    errno = ENOMEM;
    return true;
}

int CountingMain(int count, char** arguments, char** environment)
{
    if (const char* text = std::getenv("FAULT_AT")) gFirst = std::strtoul(text, nullptr, 10);
    if (!std::getenv("FAULT_STAYS")) gLast = gFirst;
    gCounts = true;
    const int code = gMain(count, arguments, environment);
    gCounts = false;
    const char* name = std::getenv("FAULT_COUNT");
    std::FILE* file = name ? std::fopen(name, "w") : nullptr;
    if (!file) return code;
    std::fprintf(file, "%lu", gSeen.load());
    std::fclose(file);
    return code;
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) { return Fails() ? nullptr : __libc_malloc(size); }

void* calloc(std::size_t count, std::size_t size)
{
    return Fails() ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size)
{
    return Fails() ? nullptr : __libc_realloc(block, size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return Fails() ? nullptr : __libc_memalign(alignment, size);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    *block = Fails() ? nullptr : __libc_memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}

void free(void* block) { __libc_free(block); }

int __libc_start_main(Main main, int count, char** arguments, void (*start)(), void (*end)(),
                      void (*finish)(), void* stack)
{
    using Start = int (*)(Main, int, char**, void (*)(), void (*)(), void (*)(), void*);
    gMain = main;
    const auto next = reinterpret_cast<Start>(dlsym(RTLD_NEXT, "__libc_start_main"));
    return next(&CountingMain, count, arguments, start, end, finish, stack);
}
}

// Another allocator brings operators of its own, which don't come by `malloc`.

void* operator new(std::size_t size)
{
    while (true) {
        if (void* block = std::malloc(size > 0 ? size : 1)) return block;
        const std::new_handler handler = std::get_new_handler();
        if (!handler) throw std::bad_alloc();
        handler();
    }
}

void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept
try {
    return ::operator new(size);
} catch (...) {
    return nullptr;
}

void* operator new[](std::size_t size) { return ::operator new(size); }

void* operator new[](std::size_t size, const std::nothrow_t& nothrow) noexcept
{
    return ::operator new(size, nothrow);
}

void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { std::free(block); }
