#include "refhost/framework/XmlParser.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <string_view>

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "refhost/framework/DocumentBytes.h"
#include "refhost/framework/Utf8FromUtf16.h"
#include "refhost/framework/XmlTreeBuilder.h"

namespace refhost {

namespace {

using namespace xercesc;

constexpr const char* kDocumentTypeRefused = "DOCTYPE is not allowed";

// Numbers of elements and attributes have 32 bits, and each takes four bytes of a document or more.
constexpr std::size_t kMostBytes = std::size_t{4} * std::numeric_limits<XmlTree::Element>::max();

/// Ends a parse from within one of its events.
struct ParseRefused {
    ReadFailure fFailure;
};

std::string Utf8Text(const XMLCh* text)
{
    std::string result;
    if (text) Utf8FromUtf16().Append(text, result);
    return result;
}

/// Turns what a parse is broken off by into a failure with its place.
class FailureHandler : public DefaultHandler {
public:
    void setDocumentLocator(const Locator* const locator) override { fLocator = locator; }

    void error(const SAXParseException& exception) override { fatalError(exception); }

    void fatalError(const SAXParseException& exception) override
    {
        throw ParseRefused{{Utf8Text(exception.getMessage()), exception.getLineNumber(),
                            exception.getColumnNumber()}};
    }

    [[noreturn]] void Refuse(const char* reason) const
    {
        throw ParseRefused{{reason, fLocator ? fLocator->getLineNumber() : 0,
                            fLocator ? fLocator->getColumnNumber() : 0}};
    }

private:
    const Locator* fLocator = nullptr;
};

/// The parser of the library, with all doors closed. The scanner's own events go to the tree
/// builder, without the detour over names and attributes made for other readers.
class Parser : public SAX2XMLReaderImpl {
public:
    Parser()
    {
        setFeature(XMLUni::fgSAX2CoreValidation, false);
        setFeature(XMLUni::fgSAX2CoreNameSpaces, false);
        setFeature(XMLUni::fgXercesSchema, false);
        setFeature(XMLUni::fgXercesLoadExternalDTD, false);
        setFeature(XMLUni::fgXercesLoadSchema, false);
        setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
    }

    XmlTree Read(const std::string& document)
    {
        XmlTreeBuilder builder(document);
        FailureHandler handler;
        fHandler = &handler;
        fBuilder = &builder;
        setContentHandler(&handler);
        setErrorHandler(&handler);
        setLexicalHandler(&handler);  // without one, document types raise no event
        MemBufInputSource source(reinterpret_cast<const XMLByte*>(document.data()), document.size(),
                                 XMLUni::fgZeroLenString);
        source.setCopyBufToStream(false);
        parse(source);
        return builder.Take();
    }

    /// After a document of another version of XML the scanner would read the next that declares
    /// none by the rules of that version.
    bool IsFitForNext() const { return fIsUsualVersion; }

    void XMLDecl(const XMLCh* const version, const XMLCh* const, const XMLCh* const,
                 const XMLCh* const) override
    {
        fIsUsualVersion = XMLString::equals(version, XMLUni::fgVersion1_0);
    }

    /// The first event of a document type, before any declaration in it is read.
    void resetDocType() override { fHandler->Refuse(kDocumentTypeRefused); }

    void startElement(const XMLElementDecl& element, const unsigned, const XMLCh* const,
                      const RefVectorOf<XMLAttr>& attributes, const XMLSize_t count,
                      const bool isEmpty, const bool) override
    {
        Check(fBuilder->StartElement(element.getFullName()));
        for (XMLSize_t place = 0; place < count; ++place) {
            const XMLAttr& attribute = *attributes.elementAt(place);
            Check(fBuilder->AddAttribute(attribute.getQName(), attribute.getValue()));
        }
        if (isEmpty) Check(fBuilder->EndElement());
    }

    void endElement(const XMLElementDecl&, const unsigned, const bool, const XMLCh* const) override
    {
        Check(fBuilder->EndElement());
    }

    void docCharacters(const XMLCh* const text, const XMLSize_t length, const bool) override
    {
        Check(fBuilder->AddText({text, length}));
    }

    void ignorableWhitespace(const XMLCh* const text, const XMLSize_t length,
                             const bool isCData) override
    {
        docCharacters(text, length, isCData);
    }

private:
    void Check(bool done) const
    {
        if (!done) fHandler->Refuse(fBuilder->GetRefusal());
    }

    // Valid while a document is read.
    const FailureHandler* fHandler = nullptr;
    XmlTreeBuilder* fBuilder = nullptr;
    bool fIsUsualVersion = true;
};

/// The library's own ends the program where it can't be set up, which takes nothing but memory.
class ThrowingPanic : public PanicHandler {
public:
    void panic(const PanicReasons) override { throw std::bad_alloc(); }
};

/// The library's own state, for as long as the program runs.
class Platform {
public:
    Platform() { XMLPlatformUtils::Initialize(XMLUni::fgXercescDefaultLocale, nullptr, &fPanic); }
    ~Platform() { XMLPlatformUtils::Terminate(); }
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

private:
    ThrowingPanic fPanic;
};

/// The parser that is kept: making one takes longer than parsing a small document.
std::unique_ptr<Parser>& KeptParser()
{
    static const Platform platform;
    static std::unique_ptr<Parser> parser;
    return parser;
}

/// The parser passes over some of such bytes, and tells others where it begins to decode and not
/// where they stand. True where there are any; `failure` is then theirs.
bool HasIllFormedUtf8(std::string_view document, ReadFailure& failure)
{
    const auto place = FindIllFormedUtf8(document);
    if (!place) return false;
    const std::string_view before = document.substr(0, *place);
    const std::size_t lineStart = before.rfind('\n') + 1;  // 0 where there is none
    failure.fReason = "a byte that is no well-formed UTF-8";
    failure.fLine = 1 + static_cast<std::uint64_t>(std::count(before.begin(), before.end(), '\n'));
    failure.fColumn = 1 + static_cast<std::uint64_t>(std::count_if(
                              before.begin() + static_cast<std::ptrdiff_t>(lineStart), before.end(),
                              [](char byte) { return (byte & 0xC0) != 0x80; }));
    return true;
}

}  // namespace

std::optional<XmlTree> ParseXml(const std::string& document, ReadFailure& failure)
try {
    if (document.size() > kMostBytes) {
        failure = {kTooLarge};
        return {};
    }
    std::unique_ptr<Parser>& kept = KeptParser();
    // Taken, so that a parser whose work was broken off is not used again.
    std::unique_ptr<Parser> parser = kept ? std::move(kept) : std::make_unique<Parser>();
    std::optional<XmlTree> tree;
    try {
        tree = parser->Read(document);
    } catch (const ParseRefused& refused) {
        failure = refused.fFailure;
        HasIllFormedUtf8(document, failure);
        return {};
    } catch (const XMLException& exception) {
        failure = {Utf8Text(exception.getMessage())};
        return {};
    }
    if (parser->IsFitForNext()) kept = std::move(parser);
    if (HasIllFormedUtf8(document, failure)) return {};
    std::string overlooked = FindOverlookedBytes(document);
    if (overlooked.empty()) return tree;
    failure = {std::move(overlooked)};
    return {};
} catch (const OutOfMemoryException&) {
    failure = {kTooLarge};
    return {};
} catch (const std::bad_alloc&) {
    failure = {kTooLarge};
    return {};
}

}  // namespace refhost
