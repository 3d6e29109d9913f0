#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// What an attribute of an element may say so that a reader listens. An empty name stands for any.
struct MarkupWords {
    std::string_view fElement;
    std::string_view fAttribute;
    std::string fWords;  ///< parted by blanks
};

/// Of result documents: names of tests, tables, numbers; keys; kinds of fields.
const std::vector<MarkupWords>& DocumentWords();

/// Of templates.
const std::vector<MarkupWords>& TemplateWords();

}  // namespace fuzz
