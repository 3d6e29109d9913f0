#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refhost {

/// A part of a document which, between its opening and its closing, is a document of its own.
struct DocumentPiece {
    std::string fOpening;     ///< how the document is to be read, and the elements that are open
    std::string_view fBody;   ///< within the document
    std::string fClosing;     ///< the ends of the elements that are open at the end
    std::size_t fOpened = 0;  ///< how many elements the opening starts
};

/// A document as one piece.
DocumentPiece WholeDocument(std::string_view document);

/// Cuts a document in UTF-8 before start tags into at most `count` pieces of about one size; fewer,
/// and one at last, where there is no place for it. It looks at tags alone: what else may be wrong
/// is left to the parser. All pieces are well-formed just where the document is: one that a parser
/// takes ends between tags, with the elements open that its closing ends and the next one starts.
std::vector<DocumentPiece> CutDocument(std::string_view document, std::size_t count);

}  // namespace refhost
