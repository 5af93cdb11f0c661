#pragma once

#include <atomic>
#include <filesystem>
#include <fstream>
#include <string_view>

#include <unistd.h>

/// A directory of this test alone, removed with all it holds at the end of the test.
class CTempDirectory {
public:
    CTempDirectory() {
        static std::atomic<int> count = 0;
        m_path = std::filesystem::temp_directory_path() /
                 ("qxmemory-" + std::to_string(getpid()) + "-" + std::to_string(count++));
        std::filesystem::create_directories(m_path);
    }
    ~CTempDirectory() { std::filesystem::remove_all(m_path); }
    CTempDirectory(const CTempDirectory&) = delete;
    CTempDirectory& operator=(const CTempDirectory&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    std::filesystem::path write(std::string_view name, std::string_view content) const {
        std::filesystem::path file = m_path / name;
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }

private:
    std::filesystem::path m_path;
};
