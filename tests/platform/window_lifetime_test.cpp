#include "support/recording_dialog.h"

#include <gmock/gmock.h>

#include <QPointer>

#include <memory>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Id { PUSH = 11, EDIT, DRAWN };

DialogTemplate layout() {
    return dialogLayout({
        dialogItem(EDIT, "Edit", WS_TABSTOP, {0, 0, 40, 12}),
        dialogItem(PUSH, "Button", WS_TABSTOP, {50, 0, 40, 14}, "Push"),
        dialogItem(DRAWN, "Button", BS_OWNERDRAW, {100, 0, 40, 14}),
    });
}

/// Owns itself, as the panels do, and has a control object as a member.
class CSelfOwned : public CRecordingDialog {
public:
    explicit CSelfOwned(std::vector<std::string>& log) : m_log(log) {
        exchange = [this](CDataExchange* pDX) { DDX_Control(pDX, DRAWN, m_button); };
    }
    ~CSelfOwned() override { m_log.emplace_back("deleted"); }

protected:
    void PostNcDestroy() override {
        m_log.emplace_back("gone");
        delete this;
    }

private:
    std::vector<std::string>& m_log;
    CButton m_button;
};

class WindowLifetime : public testing::Test {
protected:
    CSelfOwned* open(CWnd* parent = nullptr) {
        auto* const dialog = new CSelfOwned(m_log);
        EXPECT_TRUE(dialog->CreateIndirect(layout(), parent));
        EXPECT_TRUE(ui::waitUntilActive(ui::dialog(CRecordingDialog::TEMPLATE_ID)));
        return dialog;
    }
    static bool noDialog() { return ui::dialog(CRecordingDialog::TEMPLATE_ID) == nullptr; }

    std::vector<std::string> m_log;
};

TEST_F(WindowLifetime, DeletingTheObjectDestroysTheWindowWithoutDeletingTwice) {
    delete open();
    EXPECT_THAT(m_log, ElementsAre("deleted"));
    EXPECT_TRUE(noDialog());
}

TEST_F(WindowLifetime, AWindowMayEndInItsOwnHandler) {
    CSelfOwned* const dialog = open();
    dialog->onNote = [dialog](const std::string& heard) {
        if (heard == "11 clicked") {
            dialog->DestroyWindow();
        }
    };
    const QPointer<QWidget> button = &dialog->at(PUSH);
    ui::click(*button);
    EXPECT_THAT(m_log, ElementsAre("gone", "deleted"));
    EXPECT_TRUE(noDialog());
    ui::settle();
    EXPECT_EQ(button, nullptr);
}

TEST_F(WindowLifetime, AnEndingWindowReportsNoLostFocus) {
    CRecordingDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(layout()));
    ASSERT_TRUE(ui::waitUntilActive(ui::dialog(CRecordingDialog::TEMPLATE_ID)));
    ui::type(dialog.at(EDIT), "5");
    dialog.DestroyWindow();
    EXPECT_THAT(dialog.takeHeard(), IsEmpty());
}

TEST_F(WindowLifetime, TheHostsWindowEndsItAndTheHostsViewDoesNot) {
    auto host = std::make_unique<QWidget>();
    auto* const view = new QWidget(host.get());
    host->show();
    CSelfOwned* const panel = open(CWnd::FromHandle(reinterpret_cast<HWND>(view->winId())));
    delete view;
    EXPECT_THAT(m_log, IsEmpty());
    EXPECT_EQ(panel->GetParent(), nullptr);
    host.reset();
    EXPECT_THAT(m_log, ElementsAre("gone", "deleted"));
}

} // namespace
