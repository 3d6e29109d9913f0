#pragma once

#include <sys/mman.h>

#include <cerrno>
#include <memory>
#include <new>
#include <system_error>
#include <type_traits>

namespace refhost {

struct SharedObjectDeleter {
    template <class Object>
    void operator()(Object* object) const
    {
        munmap(object, sizeof(Object));
    }
};

/// An object in memory of its own that this process and those it makes from then on see alike.
template <class Object>
using SharedObject = std::unique_ptr<Object, SharedObjectDeleter>;

/// Memory is taken as it is touched, so an object may be large. Throws `std::system_error`.
template <class Object>
SharedObject<Object> MakeSharedObject()
{
    static_assert(std::is_trivially_destructible_v<Object>, "no process knows which is the last");
    void* const memory = mmap(nullptr, sizeof(Object), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) throw std::system_error(errno, std::generic_category());
    return SharedObject<Object>(new (memory) Object);
}

}  // namespace refhost
