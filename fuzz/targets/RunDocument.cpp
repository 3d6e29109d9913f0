#include <string>

#include "fuzz/targets/FuzzTargets.h"
#include "fuzz/targets/HostData.h"
#include "fuzz/targets/OutputChecks.h"
#include "fuzz/targets/SplitRun.h"
#include "refhost/framework/XmlParser.h"

namespace fuzz {

namespace {

/// What is read doesn't depend on how many threads share the work.
void ParseInPieces(const std::string& document)
{
    refhost::ReadFailure failure, failureInPieces;
    const auto tree = refhost::ParseXml(document, 1, failure);
    const auto joined = refhost::ParseXml(document, 3, failureInPieces);
    Require(tree.has_value() == joined.has_value() && failure.fReason == failureInPieces.fReason,
            "a document in pieces is read where it is read as a whole");
    if (!tree) return;
    Require(tree->ElementCount() == joined->ElementCount(), "no element is lost or made");
    for (refhost::XmlTree::Element element = 0; element < tree->ElementCount(); ++element) {
        Require(tree->NameOf(element) == joined->NameOf(element) &&
                    tree->EndOf(element) == joined->EndOf(element) &&
                    tree->TextOf(element) == joined->TextOf(element),
                "elements of pieces stand where they stand in the whole");
    }
}

}  // namespace

void RunDocument(std::string_view input)
{
    SplitResult split = MakeSplit(input.size());  // any way to choose one that a case repeats
    split.fDocument = input;
    ParseInPieces(split.fDocument);
    WriteInAllFormats(HostData(), split);
}

}  // namespace fuzz
