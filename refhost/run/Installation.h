#pragma once

#include <string>

namespace refhost {

/// The files that belong to the program, found from where it stands: beside `bin/` lie
/// `lib/nonpar/nonpar.so` and `share/nonpar/`.
struct Installation {
    std::string fPlugin;
    std::string fTemplateFolder;
    std::string fTextFolder;

    static Installation OfThisProgram();
};

/// The code of the output language: `wanted`, or the language of the environment where there is a
/// table for it, or else English. Throws `RunFailure` where there is no table for `wanted`.
std::string ChooseLanguage(const Installation& installation, const std::string& wanted);

/// The table of texts of a language.
std::string TextFile(const Installation& installation, const std::string& language);

}  // namespace refhost
