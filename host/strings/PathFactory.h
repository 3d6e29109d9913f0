#pragma once

#include <string>

/// Knows one of the host's paths.
class PathFinder {
public:
    explicit PathFinder(std::string path) : fPath(static_cast<std::string&&>(path)) {}
    const std::string& GetPath() const { return fPath; }

private:
    std::string fPath;
};

class PathFactory {
public:
    /// The path of a kind of files; 3 is that of the string tables. The host owns the result, which
    /// is never null and lives as long as the process.
    static const PathFinder* getPathInstance(int kind);
};
