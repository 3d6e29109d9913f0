#include "refhost/framework/XmlScanner.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "refhost/framework/Utf8FromUtf16.h"

namespace refhost {

namespace {

using namespace xercesc;

constexpr const char* kDocumentTypeRefused = "DOCTYPE is not allowed";

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

/// The parts of a piece, one behind the other.
class PieceStream : public BinInputStream {
public:
    explicit PieceStream(const DocumentPiece& piece)
        : fParts{piece.fOpening, piece.fBody, piece.fClosing}
    {
    }

    XMLFilePos curPos() const override { return fPosition; }

    XMLSize_t readBytes(XMLByte* const to, const XMLSize_t most) override
    {
        XMLSize_t count = 0;
        for (std::string_view& part : fParts) {
            const XMLSize_t taken = std::min(part.size(), most - count);
            if (taken > 0) std::memcpy(to + count, part.data(), taken);
            part.remove_prefix(taken);
            count += taken;
        }
        fPosition += count;
        return count;
    }

    const XMLCh* getContentType() const override { return nullptr; }

private:
    std::array<std::string_view, 3> fParts;
    XMLFilePos fPosition = 0;
};

class PieceSource : public InputSource {
public:
    explicit PieceSource(const DocumentPiece& piece) : fPiece(piece) {}

    /// The parser's to delete.
    BinInputStream* makeStream() const override { return new PieceStream(fPiece); }

private:
    const DocumentPiece& fPiece;
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

    static void SetUp() { static const Platform platform; }

private:
    ThrowingPanic fPanic;
};

}  // namespace

/// The scanner's own events go to the tree builder, without the detour over names and attributes
/// made for other readers.
class XmlScanner::Parser : public SAX2XMLReaderImpl {
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

    void Read(const DocumentPiece& piece, XmlTreeBuilder& builder)
    {
        FailureHandler handler;
        fHandler = &handler;
        fBuilder = &builder;
        setContentHandler(&handler);
        setErrorHandler(&handler);
        setLexicalHandler(&handler);  // without one, document types raise no event
        fIsFitForNext = false;
        parse(PieceSource(piece));
        fIsFitForNext = fIsUsualVersion;
    }

    bool IsFitForNext() const { return fIsFitForNext; }

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

    // Valid while a piece is read.
    const FailureHandler* fHandler = nullptr;
    XmlTreeBuilder* fBuilder = nullptr;
    bool fIsUsualVersion = true;
    bool fIsFitForNext = true;
};

XmlScanner::XmlScanner()
{
    Platform::SetUp();
    fParser = std::make_unique<Parser>();
}

XmlScanner::~XmlScanner() = default;

bool XmlScanner::Read(const DocumentPiece& piece, XmlTreeBuilder& builder, ReadFailure& failure)
try {
    fParser->Read(piece, builder);
    return true;
} catch (const ParseRefused& refused) {
    failure = refused.fFailure;
    return false;
} catch (const OutOfMemoryException&) {
    throw std::bad_alloc();
} catch (const XMLException& exception) {
    failure = {Utf8Text(exception.getMessage())};
    return false;
}

bool XmlScanner::IsFitForNext() const { return fParser->IsFitForNext(); }

}  // namespace refhost
