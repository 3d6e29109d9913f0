#pragma once

#include "refhost/document/OutputBuilder.h"

#include "host/pivot/BpHeading.h"

/// An open heading of an output, which may be null: then nothing is written. The procedure is the
/// output as a whole and has the heading 0.
class BpHeading::Impl {
public:
    Impl(refhost::OutputBuilder* output, refhost::HeadingNumber heading);
    ~Impl();
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    refhost::OutputBuilder* Output() const { return fOutput; }

    /// Opens the heading that the destructor closes; there must be an output.
    void Open(refhost::TextRef label);

private:
    refhost::OutputBuilder* fOutput;
    refhost::HeadingNumber fHeading;
};
