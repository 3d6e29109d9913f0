#pragma once

#include <cstddef>
#include <string_view>

#include "refhost/run/SharedObject.h"

namespace refhost {

/// Memory that a worker and the process that made it both see. What splits have written goes
/// through it from the one to the other, in order; a pipe would copy it twice. One may be put here
/// while the one before waits for its turn.
class PartMemory {
public:
    /// Made before the worker. Throws `std::system_error`.
    PartMemory();
    ~PartMemory();
    PartMemory(const PartMemory&) = delete;
    PartMemory& operator=(const PartMemory&) = delete;

    /// The worker's: puts bytes here as soon as there is room. False where they are too many.
    bool Put(std::string_view bytes);

    /// The other's: so many bytes, the first that wait here.
    std::string_view First(std::size_t size) const;

    /// Makes room of those, and goes on to the next.
    void Release();

private:
    struct Room;

    SharedObject<Room> fRoom;
    std::size_t fPlace = 0;  // of the next, in either process
};

}  // namespace refhost
