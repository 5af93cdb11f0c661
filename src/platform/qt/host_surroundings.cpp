#include "platform/qt/host_surroundings.h"

#include <clocale>
#include <cstdlib>

#include <unistd.h>

namespace qtbackend {

CHostSurroundings::CHostSurroundings()
    : m_strLocale(std::setlocale(LC_ALL, nullptr))
    , m_variables(variables())
    , m_formerHandler(qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {})) {}

CHostSurroundings::~CHostSurroundings() {
    qInstallMessageHandler(m_formerHandler);
    std::setlocale(LC_ALL, m_strLocale.c_str());
    const Variables now = variables();
    for (const auto& [name, value] : now) {
        if (!m_variables.contains(name)) {
            unsetenv(name.c_str());
        }
    }
    for (const auto& [name, value] : m_variables) {
        const auto found = now.find(name);
        if (found == now.end() || found->second != value) {
            setenv(name.c_str(), value.c_str(), 1);
        }
    }
}

CHostSurroundings::Variables CHostSurroundings::variables() {
    Variables found;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string text = *entry;
        const std::size_t equals = text.find('=');
        if (equals != std::string::npos) {
            found.emplace(text.substr(0, equals), text.substr(equals + 1));
        }
    }
    return found;
}

} // namespace qtbackend
