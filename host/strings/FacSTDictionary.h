#pragma once

#include <memory>
#include <string>

/// The dictionary of the words in charts.
class FacSTDictionary {
public:
    /// `path` is what `PathFinder::GetPath` gives.
    explicit FacSTDictionary(const std::string& path);
    ~FacSTDictionary();
    FacSTDictionary(const FacSTDictionary&) = delete;
    FacSTDictionary& operator=(const FacSTDictionary&) = delete;

    /// Chooses the procedure whose words are looked up. To be called once, before `LookUp`.
    void SetProcedure(const char* name);

    /// The text of a key, in the output language, 8-bit; the key itself where it has none.
    std::string LookUp(const std::string& key) const;

private:
    class Impl;
    std::unique_ptr<Impl> fImpl;
};
