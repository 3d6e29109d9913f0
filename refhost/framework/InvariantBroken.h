#pragma once

#include <exception>
#include <string>
#include <utility>

namespace refhost {

/// An invariant of the contract did not hold; it ends the run of the procedure.
class InvariantBroken : public std::exception {
public:
    explicit InvariantBroken(std::string text) : fText(std::move(text)) {}

    /// The invariant's bare text, word for word.
    const char* what() const noexcept override { return fText.c_str(); }

private:
    std::string fText;
};

/// The text of the first invariant that was broken since `ForgetBrokenInvariant`;
/// null where all held. It is known also where a procedure swallowed the exception.
const std::string* BrokenInvariant();
void ForgetBrokenInvariant();

}  // namespace refhost
