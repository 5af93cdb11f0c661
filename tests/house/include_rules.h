#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// The include lines of a source tree and what the floors of the house allow of them.
namespace house {

struct Include {
    std::string target; ///< as written between the quotes or brackets
    bool quoted = false;
    int line = 0;
};

/// Every source file below `root`'s rooms, by its path relative to `root`, with its include lines.
using IncludeMap = std::map<std::string, std::vector<Include>>;

IncludeMap readIncludes(const std::filesystem::path& root);

/// One text for each include line that a floor forbids: "file:line includes X: why".
std::vector<std::string> findFloorViolations(const IncludeMap& includes);

/// One text for each circle of includes between the project's files, naming the files on it.
std::vector<std::string> findIncludeCircles(const IncludeMap& includes);

} // namespace house
