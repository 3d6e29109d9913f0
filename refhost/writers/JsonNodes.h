#pragma once

#include "refhost/document/OutputNode.h"

namespace refhost {

class JsonEmitter;

/// Headings and nodes of an output as JSON, each from a new line on: what was passed and what a
/// reader sees of it.
class JsonNodes {
public:
    explicit JsonNodes(JsonEmitter& json) : fJson(json) {}

    void Open(const TextRef& label);
    void Close();
    void Write(const OutputNode& node);

private:
    static constexpr unsigned kTopDepth = 2;

    JsonEmitter& fJson;
    unsigned fDepth = kTopDepth;  // of the line that a node begins
};

}  // namespace refhost
