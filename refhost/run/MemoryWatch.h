#pragma once

#include <new>

namespace refhost {

/// Notes that memory ran out, also where what was thrown is swallowed: a view that fails leaves no
/// trace, and a chart must not be missing without a word. All share one note, which a new watch
/// wipes; they end in the reverse order in which they began.
class MemoryWatch {
public:
    MemoryWatch();
    ~MemoryWatch();
    MemoryWatch(const MemoryWatch&) = delete;
    MemoryWatch& operator=(const MemoryWatch&) = delete;

    bool RanOut() const;
    void Forget();

private:
    std::new_handler fPrevious;
};

}  // namespace refhost
