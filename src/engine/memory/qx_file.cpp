#include "engine/qx_file.h"

#include "engine/memory/engine_directories.h"

#include <cstring>
#include <fstream>
#include <limits>
#include <string>
#include <system_error>
#include <vector>

struct qxCFile::State {
    std::ifstream stream;
    std::string name;
    int length = 0;
};

namespace {

struct FileSearch {
    std::vector<std::string> names;
    std::size_t next = 0;
};

FileSearch& currentSearch() {
    static FileSearch search;
    return search;
}

int lengthOf(const std::filesystem::path& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return error || size > static_cast<std::uintmax_t>(std::numeric_limits<int>::max())
               ? 0
               : static_cast<int>(size);
}

} // namespace

qxCFile::qxCFile() : m_pState(std::make_unique<State>()) {}

qxCFile::~qxCFile() = default;

bool qxCFile::open(const char* fileName, qxFileMode mode) {
    close();
    if (fileName == nullptr || mode != qxFileModeRead) {
        return false;
    }
    const auto path = CEngineDirectories::resolve(fileName);
    if (!path) {
        return false;
    }
    m_pState->stream.open(*path, std::ios::binary);
    if (!m_pState->stream.is_open()) {
        return false;
    }
    m_pState->name = fileName;
    m_pState->length = lengthOf(*path);
    return true;
}

int qxCFile::getLength() const {
    return m_pState->length;
}

int qxCFile::read(void* destination, int byteCount, bool /*flag*/) {
    std::ifstream& stream = m_pState->stream;
    if (!stream.is_open() || destination == nullptr || byteCount <= 0) {
        return 0;
    }
    stream.clear();
    stream.seekg(0);
    stream.read(static_cast<char*>(destination), byteCount);
    return static_cast<int>(stream.gcount());
}

const char* qxCFile::getFilename() const {
    return m_pState->name.c_str();
}

void qxCFile::close() {
    *m_pState = State();
}

const char* qxCFile::findFirst(const char* pattern) {
    FileSearch& search = currentSearch();
    search = FileSearch();
    if (pattern != nullptr) {
        search.names = CEngineDirectories::findMatching(pattern);
    }
    return findNext();
}

const char* qxCFile::findNext() {
    FileSearch& search = currentSearch();
    return search.next < search.names.size() ? search.names[search.next++].c_str() : nullptr;
}

void qxCFile::findClose() {
    currentSearch() = FileSearch();
}

bool qxCFile::getFullPathName(const char* fileName, char* buffer) {
    if (fileName == nullptr || buffer == nullptr) {
        return false;
    }
    const auto path = CEngineDirectories::resolve(fileName);
    if (!path) {
        return false;
    }
    const std::string text = path->string();
    if (text.size() >= MAX_PATH_LENGTH) {
        return false;
    }
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return true;
}
