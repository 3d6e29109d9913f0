#pragma once

#include <memory>

#include "refhost/framework/DocumentPieces.h"
#include "refhost/framework/ReadFailure.h"
#include "refhost/framework/XmlTreeBuilder.h"

namespace refhost {

/// The parser of the XML library, with all doors closed: no document type, no external entity, no
/// schema. One thread uses it at a time.
class XmlScanner {
public:
    XmlScanner();
    ~XmlScanner();

    /// Hands a piece's events to the builder. False: it is not well-formed or is refused, as
    /// `failure` says with the place. Throws std::bad_alloc.
    bool Read(const DocumentPiece& piece, XmlTreeBuilder& builder, ReadFailure& failure);

    /// Whether another document may be read: not behind one that was broken off, and not behind one
    /// of another version of XML, by whose rules the next that declares none would be read.
    bool IsFitForNext() const;

private:
    class Parser;
    std::unique_ptr<Parser> fParser;
};

}  // namespace refhost
