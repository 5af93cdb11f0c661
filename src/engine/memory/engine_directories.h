#pragma once

#include "engine/qx_api.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The list of directories in which the engine looks for its data files. There is one list in the process,
/// empty until the host sets it. Only the directories themselves are searched, not what lies below them.
class QX_API CEngineDirectories {
public:
    /// Replace the list. Earlier directories win. A directory that does not exist holds no files.
    static void setDirectories(const std::vector<std::filesystem::path>& directories);

    /// The list as set, each directory as an absolute path.
    static const std::vector<std::filesystem::path>& getDirectories();

    /// The path of the file that a bare name means, or nothing. Letter case is ignored (A to Z); within one
    /// directory the exact spelling goes before others. Names with a path separator, a colon or a control
    /// character in them, and the names "." and "..", mean no file.
    static std::optional<std::filesystem::path> resolve(std::string_view bareName);

    /// Every bare name that resolves and matches `pattern` ('*' any text, '?' one character, letter case
    /// ignored), each once, sorted without regard to letter case.
    static std::vector<std::string> findMatching(std::string_view pattern);
};
