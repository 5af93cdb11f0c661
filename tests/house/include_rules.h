#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

/// The include lines of a source tree and what the floors of the house allow of them.
namespace house {

struct Include {
    std::string target; ///< as written between the quotes or brackets
    bool quoted = false;
};

/// Every source file below `root`'s rooms, by its path relative to `root`, with its include lines.
using IncludeMap = std::map<std::string, std::vector<Include>>;

IncludeMap readIncludes(const std::filesystem::path& root);

/// One text for each include line that a floor forbids: "file includes X: why".
std::vector<std::string> findFloorViolations(const IncludeMap& includes);

/// Each set of units (a header and its source are one unit) that use one another in a ring, by sorted names.
std::vector<std::vector<std::string>> findUnitCircles(const IncludeMap& includes);

/// Names that the platform's headers of our own making declare, each with the files above the platform that
/// use it: the genuine platform has none of them.
std::map<std::string, std::set<std::string>> findInventedNames(const std::filesystem::path& root);

} // namespace house
