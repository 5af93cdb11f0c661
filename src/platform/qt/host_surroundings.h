#pragma once

#include <QtGlobal>

#include <map>
#include <string>

namespace qtbackend {

/// Gives the process its locale and its environment back when it goes: the window system sets both when it
/// starts, and they are the host's. While it lives, the window system says nothing on the terminal.
class CHostSurroundings {
public:
    CHostSurroundings();
    ~CHostSurroundings();
    CHostSurroundings(const CHostSurroundings&) = delete;
    CHostSurroundings& operator=(const CHostSurroundings&) = delete;

private:
    using Variables = std::map<std::string, std::string>;
    using MessageHandler = void (*)(QtMsgType, const QMessageLogContext&, const QString&);

    static Variables variables();

    std::string m_strLocale;
    Variables m_variables;
    MessageHandler m_formerHandler;
};

} // namespace qtbackend
