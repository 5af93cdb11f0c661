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

/// Each set of units (a header and its source are one unit) that use one another in a ring, by sorted names.
std::vector<std::vector<std::string>> findUnitCircles(const IncludeMap& includes);

} // namespace house
