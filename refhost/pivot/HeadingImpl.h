#pragma once

#include "host/pivot/BpHeading.h"

namespace refhost {
class OutputBuilder;
struct HeadingNode;
}  // namespace refhost

/// An open heading of an output, which may be null: then nothing is written. The procedure has no
/// node.
class BpHeading::Impl {
public:
    Impl(refhost::OutputBuilder* output, const refhost::HeadingNode* node);
    ~Impl();
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;

    refhost::OutputBuilder* Output() const { return fOutput; }

private:
    refhost::OutputBuilder* fOutput;
    const refhost::HeadingNode* fNode;
};
