#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

class DOMDocument;
class SDOMXMLIterator;

/// An element of an XML document. The wrapper that loaded a text stands for its root element and
/// owns the document; every wrapper and iterator that it, directly or not, gives out belongs to
/// that document, needs no freeing, and stays valid as long as the loading wrapper does. Names are
/// compared with their prefix, to the letter.
class SDOMXMLWrapper {
public:
    SDOMXMLWrapper();
    ~SDOMXMLWrapper();
    SDOMXMLWrapper(const SDOMXMLWrapper&) = delete;
    SDOMXMLWrapper& operator=(const SDOMXMLWrapper&) = delete;

    /// Parses a text. Null, or an exception, means that the document is not usable; otherwise this
    /// wrapper stands for the root element. The result is opaque: only null tells something.
    DOMDocument* LoadFromString(const std::string& text);

    /// The element's tag name; empty before a document was loaded.
    const std::string& GetName() const;

    /// Each gives false, and leaves `value` unchanged, where the element has no such attribute or
    /// its text is not wholly one finite number; an int is cut toward 0 and clamped to 32 bits.
    bool GetAttribute(const char* name, std::string& value) const;
    bool GetAttribute(const char* name, int& value) const;
    bool GetAttribute(const char* name, double& value) const;

    /// The first element in document order that answers to a path of child steps, parted by
    /// slashes. False where there is none; `*out` is then unchanged. `deep` is true at all callers.
    bool GetFirstElement(const char* path, SDOMXMLWrapper** out, bool deep) const;

    /// The direct children of a name, in document order; the empty name gives all child elements.
    /// Always succeeds, with an iterator over nothing where no child bears the name.
    bool GetElementIterator(const char* name, SDOMXMLIterator** out, bool deep) const;

    /// The element's own text, CDATA included. Always succeeds.
    bool GetTextBody(std::string& text) const;

private:
    friend class SDOMXMLIterator;
    class Document;

    std::optional<std::string_view> FindAttribute(const char* name) const;

    Document* fDocument = nullptr;  // null before a document was loaded
    std::uint32_t fElement = 0;
    bool fOwnsDocument = false;  // the loading wrapper only
};

/// A walk over child elements; see `SDOMXMLWrapper` for lifetimes.
class SDOMXMLIterator {
public:
    SDOMXMLIterator(const SDOMXMLIterator&) = delete;
    SDOMXMLIterator& operator=(const SDOMXMLIterator&) = delete;

    /// The next element; false at the end, with `*out` unchanged.
    bool Next(SDOMXMLWrapper** out);

private:
    friend class SDOMXMLWrapper;
    explicit SDOMXMLIterator(SDOMXMLWrapper::Document* document);

    SDOMXMLWrapper::Document* fDocument;
    std::uint32_t fNext = 0;
    std::uint32_t fEnd = 0;
    std::optional<std::uint32_t> fName;  // nothing: all children
};
