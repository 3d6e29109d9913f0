#pragma once

#include <string>

namespace refhost {

/// The text of a template file in the folder of the current run; empty when there is none, and for
/// a name with path parts. The name is kept for the documents that are made of the text.
const std::string& FetchTemplate(const std::string& name);

/// The name of the template that was fetched last; empty when none was.
const std::string& LastFetchedTemplate();

}  // namespace refhost
