#pragma once

#include <rapidjson/document.h>
#include <rapidjson/reader.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <new>

/// The JSON library takes the memory that its allocator gives unchecked; its types with one that
/// throws where there is none.

namespace refhost::json {

class Allocator {
public:
    static constexpr bool kNeedFree = true;

    void* Malloc(std::size_t size) { return size == 0 ? nullptr : ::operator new(size); }

    void* Realloc(void* block, std::size_t oldSize, std::size_t newSize)
    {
        void* moved = Malloc(newSize);
        if (moved && block) std::memcpy(moved, block, std::min(oldSize, newSize));
        Free(block);
        return moved;
    }

    static void Free(void* block) { ::operator delete(block); }

    bool operator==(const Allocator&) const { return true; }
};

using Pool = rapidjson::MemoryPoolAllocator<Allocator>;
using Value = rapidjson::GenericValue<rapidjson::UTF8<>, Pool>;
using Document = rapidjson::GenericDocument<rapidjson::UTF8<>, Pool, Allocator>;
using Reader = rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, Allocator>;
using Schema = rapidjson::GenericSchemaDocument<Value, Allocator>;
using Pointer = Schema::PointerType;
using StringBuffer = rapidjson::GenericStringBuffer<rapidjson::UTF8<>, Allocator>;

template <class Stream>
using Writer = rapidjson::Writer<Stream, rapidjson::UTF8<>, rapidjson::UTF8<>, Allocator>;

}  // namespace refhost::json
