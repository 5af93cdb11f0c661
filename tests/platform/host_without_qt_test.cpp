#include "support/recording_dialog.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <clocale>
#include <set>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// This program has no application object of its own. The cases run in their order.

constexpr int EDIT_ID = 11;

DialogTemplate layout() {
    return dialogLayout({dialogItem(EDIT_ID, "Edit", WS_TABSTOP, {0, 0, 40, 12})});
}

void expectNoDialogs() {
    CRecordingDialog dialog;
    EXPECT_FALSE(dialog.CreateIndirect(layout()));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(AfxMessageBox("Nobody sees this"), IDCANCEL);
    EXPECT_EQ(::GetForegroundWindow(), nullptr);
}

/// Takes connections as an X display of its own and never says a word.
class CSilentDisplay {
public:
    CSilentDisplay() {
        const std::string path = "/tmp/.X11-unix/X" + m_number; // behind a zero: a name without a file
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(&address.sun_path[1], path.size());
        const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + path.size());
        EXPECT_EQ(bind(m_nFile, reinterpret_cast<const sockaddr*>(&address), length), 0);
        listen(m_nFile, 1);
    }
    ~CSilentDisplay() { close(m_nFile); }
    CSilentDisplay(const CSilentDisplay&) = delete;
    CSilentDisplay& operator=(const CSilentDisplay&) = delete;

    std::string name() const { return ":" + m_number; }

private:
    /// Nobody else's, when several builds run their tests at once.
    const std::string m_number = std::to_string(10'000 + getpid());
    int m_nFile = socket(AF_UNIX, SOCK_STREAM, 0);
};

TEST(HostWithoutQt, GetsNoDialogsWhereThereIsNoDisplay) {
    const CSilentDisplay silent;
    const std::string silentName = silent.name();
    const struct {
        const char* platform;
        const char* display;
        const char* wayland;
    } cases[] = {
        {"", "", ""},
        {"", ":4712", ""},
        {"", silentName.c_str(), ""},
        {"", "nonsense", ""},
        {"", "no-such-host.invalid:1", ""},
        {"", "", "wayland-4711"},
        {"xcb", "", ""},
        {"nonsense", "", ""},
        {"eglfs;xcb", ":4712", ""},
    };
    for (const auto& [platform, display, wayland] : cases) {
        SCOPED_TRACE(testing::Message() << platform << " " << display << " " << wayland);
        qputenv("QT_QPA_PLATFORM", platform);
        qputenv("DISPLAY", display);
        qputenv("WAYLAND_DISPLAY", wayland);
        testing::internal::CaptureStderr();
        CRecordingDialog dialog;
        EXPECT_FALSE(dialog.CreateIndirect(layout()));
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(QCoreApplication::instance(), nullptr);
    }
    expectNoDialogs();
    qputenv("QT_QPA_PLATFORM", "nonsense;offscreen");
}

std::multiset<std::string> environment() {
    std::multiset<std::string> found;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        found.emplace(*entry);
    }
    return found;
}

TEST(HostWithoutQt, GetsAnApplicationOnFirstNeedAndKeepsItsSurroundings) {
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("DESKTOP_STARTUP_ID", "started-by-a-desktop");
    const std::multiset<std::string> before = environment();
    const HWND hostWindow = reinterpret_cast<HWND>(std::uintptr_t{0x7654321});
    for (int opening = 0; opening < 2; ++opening) {
        CRecordingDialog dialog;
        ASSERT_TRUE(dialog.CreateIndirect(layout(), CWnd::FromHandle(hostWindow)));
        ASSERT_TRUE(ui::waitUntilActive(ui::dialog(CRecordingDialog::TEMPLATE_ID)));
        EXPECT_EQ(::GetForegroundWindow(), dialog.m_hWnd);
        EXPECT_EQ(::GetParent(dialog.m_hWnd), hostWindow);
        ui::type(dialog.at(EDIT_ID), "7");
        CString text;
        EXPECT_EQ(dialog.GetDlgItemText(EDIT_ID, text), 1);
    }
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    EXPECT_EQ(environment(), before);
    ASSERT_NE(qApp, nullptr);
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
}

TEST(HostWithoutQt, WindowsEndWithTheApplication) {
    CRecordingDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(layout()));
    delete qApp; // it is the process's to end
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    expectNoDialogs();
    EXPECT_EQ(QCoreApplication::instance(), nullptr) << "and none is made anew";
}

TEST(HostWithoutQt, AnApplicationWithoutWidgetsGetsNoDialogs) {
    int count = 1;
    char name[] = "host";
    char* arguments[] = {&name[0], nullptr};
    {
        const QCoreApplication console(count, &arguments[0]);
        expectNoDialogs();
    }
    const QGuiApplication painter(count, &arguments[0]);
    expectNoDialogs();
}

} // namespace
