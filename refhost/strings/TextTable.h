#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

namespace refhost {

/// The texts of one output language: a table for the words of tables and one for those of charts,
/// key to text. A key that a table does not hold is shown as it stands.
class TextTable {
public:
    enum class Section { Pivot, Charts };

    /// Lays the texts of a JSON file over those that are there. False: the file can't be read or is
    /// not a text table, and `reason` says why.
    bool Load(const std::string& file, std::string& reason);

    /// The text of a key, or null where the table does not hold it. Valid until the next `Load`.
    const std::string* Find(Section section, std::string_view key) const;

    /// The text of a key, or the key itself.
    std::string LookUp(Section section, std::string_view key) const;

    /// The table by which the libraries of the host show keys; empty outside of a `Scope`.
    static const TextTable& Active();

    /// Makes a table active for the length of a scope.
    class Scope {
    public:
        explicit Scope(const TextTable& table);
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        const TextTable* fPrevious;
    };

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view>()(text);
        }
    };
    using Texts = std::unordered_map<std::string, std::string, Hash, std::equal_to<>>;
    Texts fPivot;
    Texts fCharts;
};

}  // namespace refhost
