#include "platform/qt/common_dialogs.h"

#include "platform/framework/color_dialog.h"
#include "platform/framework/message_box.h"
#include "platform/framework/wnd.h"
#include "platform/qt/application.h"
#include "platform/qt/dispatch_scope.h"
#include "platform/qt/window_registry.h"
#include "platform/windows/back_end.h"

#include <QApplication>
#include <QColorDialog>
#include <QMessageBox>

namespace qtbackend {

QWidget* ownerOf(HWND window) {
    const CWindow* const found = CWindowRegistry::instance().findOrAdopt(window);
    QWidget* const owner = found != nullptr ? found->widget() : windowInUse();
    return owner != nullptr ? owner->window() : nullptr;
}

bool runDialog(const QPointer<QDialog>& dialog) {
    const CModalRun handlersStillRun;
    // Not every window manager gives the activation back, and without it the focus stays nowhere.
    const QPointer<QWidget> formerlyActive = windowInUse();
    dialog->setWindowModality(Qt::ApplicationModal);
    const bool accepted = dialog->exec() != QDialog::Rejected;
    if (formerlyActive != nullptr && formerlyActive->isVisible()) {
        formerlyActive->activateWindow();
    }
    return accepted && dialog != nullptr;
}

namespace {

QMessageBox::StandardButtons buttonsOf(UINT type) {
    switch (type & 0xFU) {
    case MB_OKCANCEL:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MB_YESNO:
        return QMessageBox::Yes | QMessageBox::No;
    case MB_YESNOCANCEL:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
        return QMessageBox::Ok;
    }
}

QMessageBox::Icon iconOf(UINT type) {
    switch (type & 0xF0U) {
    case MB_ICONSTOP:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    default:
        return QMessageBox::Warning; // also what the framework shows when none is named
    }
}

int answerOf(int button) {
    switch (button) {
    case QMessageBox::Yes:
        return IDYES;
    case QMessageBox::No:
        return IDNO;
    case QMessageBox::Cancel:
        return IDCANCEL;
    default:
        return IDOK;
    }
}

} // namespace

} // namespace qtbackend

int ShowMessageBox(LPCSTR lpszText, UINT nType) {
    using namespace qtbackend;
    if (!ensureApplication()) {
        return IDCANCEL;
    }
    QString title = QGuiApplication::applicationDisplayName();
    if (title.isEmpty()) {
        title = QStringLiteral("veskutil");
    }
    const QPointer<QMessageBox> box = new QMessageBox(
        qtbackend::iconOf(nType), title, QString::fromUtf8(lpszText), buttonsOf(nType), ownerOf(nullptr));
    box->setTextFormat(Qt::PlainText);
    const int answer = runDialog(box.data()) ? answerOf(box->standardButton(box->clickedButton())) : IDCANCEL;
    delete box;
    return answer;
}

CColorDialog::CColorDialog(COLORREF clrInit, DWORD, CWnd* pParentWnd)
    : m_colour(clrInit), m_parent(pParentWnd != nullptr ? pParentWnd->m_hWnd : nullptr) {}

INT_PTR CColorDialog::DoModal() {
    if (!qtbackend::ensureApplication()) {
        return IDCANCEL;
    }
    const QColor initial(GetRValue(m_colour), GetGValue(m_colour), GetBValue(m_colour));
    const QPointer<QColorDialog> dialog = new QColorDialog(initial, qtbackend::ownerOf(m_parent));
    const bool chosen = qtbackend::runDialog(dialog.data());
    if (chosen) {
        const QColor colour = dialog->currentColor();
        m_colour = RGB(colour.red(), colour.green(), colour.blue());
    }
    delete dialog;
    return chosen ? IDOK : IDCANCEL;
}
