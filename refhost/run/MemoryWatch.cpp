#include "refhost/run/MemoryWatch.h"

#include <atomic>

namespace refhost {

namespace {

std::atomic<bool> gRanOut = false;

void Note()
{
    gRanOut = true;
    throw std::bad_alloc();
}

}  // namespace

MemoryWatch::MemoryWatch() : fPrevious(std::set_new_handler(&Note)) { Forget(); }

MemoryWatch::~MemoryWatch() { std::set_new_handler(fPrevious); }

bool MemoryWatch::RanOut() const { return gRanOut; }

void MemoryWatch::Forget() { gRanOut = false; }

}  // namespace refhost
