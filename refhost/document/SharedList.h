#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

namespace refhost {

/// A list that is handed on without being copied: a copy of it reads the very same items, and
/// whoever changes his list from then on works on items of his own. Copies may be read and dropped
/// on different threads.
template <class Item>
class SharedList {
public:
    SharedList() = default;
    SharedList(std::initializer_list<Item> items)
        : fItems(std::make_shared<std::vector<Item>>(items))
    {
    }

    SharedList(const SharedList& other) : fItems(other.fItems), fIsShared(true)
    {
        other.fIsShared = true;
    }
    SharedList(SharedList&&) noexcept = default;
    SharedList& operator=(SharedList other) noexcept
    {
        std::swap(fItems, other.fItems);
        std::swap(fIsShared, other.fIsShared);
        return *this;
    }
    ~SharedList() = default;

    auto begin() const { return Items().begin(); }
    auto end() const { return Items().end(); }
    bool empty() const { return size() == 0; }
    std::size_t size() const { return fItems ? fItems->size() : 0; }
    const Item& operator[](std::size_t place) const { return (*fItems)[place]; }

    /// The items, to be changed.
    std::vector<Item>& Own()
    {
        if (!fItems)
            fItems = std::make_shared<std::vector<Item>>();
        else if (fIsShared)
            fItems = std::make_shared<std::vector<Item>>(*fItems);
        fIsShared = false;
        return *fItems;
    }

private:
    const std::vector<Item>& Items() const
    {
        static const std::vector<Item> none;
        return fItems ? *fItems : none;
    }

    std::shared_ptr<std::vector<Item>> fItems;
    mutable bool fIsShared = false;  // since the count of holders tells nothing about their threads
};

}  // namespace refhost
