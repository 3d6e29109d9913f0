#include "refhost/pivot/TextIdentity.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace refhost {

namespace {

template <class Value>
std::size_t Mix(std::size_t seed, const Value& value)
{
    return seed ^ (std::hash<Value>()(value) + 0x9e3779b97f4a7c15U + (seed << 6U) + (seed >> 2U));
}

/// A label made from a number that is none is still itself.
bool Same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

std::size_t MixNumber(std::size_t seed, double number)
{
    return std::isnan(number) ? Mix(seed, true) : Mix(seed, number);
}

bool SameItems(const std::vector<TextRef>& a, const std::vector<TextRef>& b)
{
    return std::ranges::equal(a, b, SamePassed);
}

bool SamePart(const std::variant<TextRef, TextSublist>& a,
              const std::variant<TextRef, TextSublist>& b)
{
    if (a.index() != b.index()) return false;
    if (const auto* list = std::get_if<TextSublist>(&a))
        return SameItems(list->fItems, std::get<TextSublist>(b).fItems);
    return SamePassed(std::get<TextRef>(a), std::get<TextRef>(b));
}

/// Compares a text with one of the same kind.
struct SameAs {
    const Text& fOther;

    bool operator()(const TextString& a) const
    {
        const auto& b = std::get<TextString>(fOther.fPassed);
        return a.fLookup == b.fLookup && a.fString == b.fString;
    }
    bool operator()(const TextNumber& a) const
    {
        const auto& b = std::get<TextNumber>(fOther.fPassed);
        return a.fFormat == b.fFormat && a.fDecimals == b.fDecimals && Same(a.fNumber, b.fNumber);
    }
    bool operator()(const TextVariable& a) const
    {
        return a.fName == std::get<TextVariable>(fOther.fPassed).fName;
    }
    bool operator()(const TextValue& a) const
    {
        const auto& b = std::get<TextValue>(fOther.fPassed);
        if (a.fOf != b.fOf || a.fValue.index() != b.fValue.index()) return false;
        if (const auto* number = std::get_if<double>(&a.fValue))
            return Same(*number, std::get<double>(b.fValue));
        return std::get<std::string>(a.fValue) == std::get<std::string>(b.fValue);
    }
    bool operator()(const TextComposite& a) const
    {
        const auto& b = std::get<TextComposite>(fOther.fPassed);
        return a.fLookup == b.fLookup && a.fString == b.fString &&
               std::ranges::equal(a.fParts, b.fParts, SamePart);
    }
};

struct HashOf {
    std::size_t operator()(const TextString& text) const
    {
        return Mix(Mix(0, text.fLookup), text.fString);
    }
    std::size_t operator()(const TextNumber& text) const
    {
        return MixNumber(Mix(1, static_cast<int>(text.fFormat)), text.fNumber);
    }
    std::size_t operator()(const TextVariable& text) const { return Mix(2, text.fName); }
    std::size_t operator()(const TextValue& text) const
    {
        const std::size_t seed = Mix(3, text.fOf);
        if (const auto* number = std::get_if<double>(&text.fValue)) return MixNumber(seed, *number);
        return Mix(seed, std::get<std::string>(text.fValue));
    }
    std::size_t operator()(const TextComposite& text) const
    {
        std::size_t hash = Mix(4, text.fString);
        for (const auto& part : text.fParts) {
            if (const auto* list = std::get_if<TextSublist>(&part)) {
                for (const TextRef& item : list->fItems)
                    hash = Mix(hash, PassedHash(item));
            } else {
                hash = Mix(hash, PassedHash(std::get<TextRef>(part)));
            }
        }
        return hash;
    }
};

}  // namespace

bool SamePassed(const TextRef& a, const TextRef& b)
{
    if (a == b) return true;
    if (a->fPassed.index() != b->fPassed.index() || a->fShown != b->fShown) return false;
    return std::visit(SameAs{*b}, a->fPassed);
}

std::size_t PassedHash(const TextRef& text) { return std::visit(HashOf{}, text->fPassed); }

}  // namespace refhost
