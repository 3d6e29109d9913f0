#pragma once

#include <string_view>

#include "refhost/document/OutputNode.h"

#include "host/pivot/BpCellText.h"

/// What a text of a table was made from, and how it shows. Composites are edited; all others stand
/// as they were made.
class BpCellText::Impl {
public:
    explicit Impl(refhost::Text text);

    /// The text as it is now; later changes of this one don't reach it. Never null. It may be
    /// dropped on any thread.
    refhost::TextRef Snapshot();

    /// Another text of the same content.
    std::shared_ptr<Impl> Copy();

    // Of composites only. After `Finish` they do nothing.
    void Add(refhost::TextRef part);
    void Sublist();
    void EndSublist();
    void Finish();

private:
    /// The composite, to be changed; null once it is closed. Who holds a snapshot keeps it.
    refhost::TextComposite* Edit();

    std::shared_ptr<refhost::Text> fText;
    bool fIsShared = false;  // with a snapshot; the count of holders tells nothing of their threads
    bool fStale = false;     // fShown doesn't yet tell what was added
    bool fSublistOpen = false;
    bool fFinished = false;
};

namespace refhost {

/// What a caller passed, to be kept in a node. Never null.
TextRef Snapshot(const BpCellText& text);

/// The text of a key, or the string itself.
std::string TableText(std::string_view string, bool lookup);

}  // namespace refhost
