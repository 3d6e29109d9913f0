#include "refhost/run/PartMemory.h"

#include <semaphore.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace refhost {

namespace {

constexpr std::size_t kPlaces = 2;
constexpr std::size_t kPlaceSize = std::size_t{4} << 20U;  // what is larger is worth the copies

}  // namespace

struct PartMemory::Room {
    Room() { sem_init(&fFree, /*pshared=*/1, kPlaces); }

    sem_t fFree;
    std::array<std::array<char, kPlaceSize>, kPlaces> fPlaces;  // untouched: most is never needed
};

PartMemory::PartMemory() : fRoom(MakeSharedObject<Room>()) {}

PartMemory::~PartMemory() = default;

bool PartMemory::Put(std::string_view bytes)
{
    if (bytes.size() > kPlaceSize) return false;
    while (sem_wait(&fRoom->fFree) != 0 && errno == EINTR) {
    }
    std::ranges::copy(bytes, fRoom->fPlaces[fPlace].data());
    fPlace = (fPlace + 1) % kPlaces;
    return true;
}

std::string_view PartMemory::First(std::size_t size) const
{
    return {fRoom->fPlaces[fPlace].data(), size};
}

void PartMemory::Release()
{
    fPlace = (fPlace + 1) % kPlaces;
    sem_post(&fRoom->fFree);
}

}  // namespace refhost
