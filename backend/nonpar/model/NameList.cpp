#include "model/NameList.h"

#include <limits>
#include <stdexcept>

void NameList::Append(const std::vector<std::string>& names)
{
    std::size_t size = fText.size();
    for (const std::string& name : names)
        size += name.size();
    if (size > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("names");
    if (fEnds.empty()) {  // all at once, mostly
        fText.reserve(size);
        fEnds.reserve(names.size());
    }
    for (const std::string& name : names) {
        fText += name;
        fEnds.push_back(static_cast<std::uint32_t>(fText.size()));
    }
}

std::string_view NameList::operator[](std::size_t place) const
{
    const std::size_t begin = place > 0 ? fEnds[place - 1] : 0;
    return std::string_view(fText).substr(begin, fEnds[place] - begin);
}

std::size_t NameList::Find(std::string_view name) const
{
    std::size_t place = 0;
    while (place < size() && (*this)[place] != name)
        ++place;
    return place;
}
