#include "platform/qt/dialog_window.h"

#include "platform/dialog_template.h"
#include "platform/framework/dialog.h"
#include "platform/qt/dispatch_scope.h"
#include "platform/qt/focus_mark.h"
#include "platform/qt/window_registry.h"

#include <QCloseEvent>
#include <QFontMetricsF>
#include <QKeyEvent>

#include <algorithm>
#include <cmath>
#include <map>

namespace qtbackend {

namespace {

/// The average width of the Latin letters, as the windowing system takes it for its dialog units.
int averageLetterWidth(const QFont& font) {
    static auto& measured = *new std::map<QString, int>; // by font
    const auto [entry, isNew] = measured.try_emplace(font.key());
    if (isNew) {
        const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
        const double width =
            QFontMetricsF(font).horizontalAdvance(letters) / static_cast<double>(letters.size());
        entry->second = std::max(1, static_cast<int>(std::lround(width)));
    }
    return entry->second;
}

/// value * numerator / denominator, rounded to the nearest.
int scaled(int value, int numerator, int denominator) {
    return static_cast<int>(std::floor((value * numerator) / static_cast<double>(denominator) + 0.5));
}

} // namespace

CDialogWidget::CDialogWidget(QWidget* owner, Qt::WindowFlags flags) : QDialog(owner, flags) {
    setAttribute(Qt::WA_QuitOnClose, false);
    new CFocusMark(*this);
}

// Qt deletes a dialog with its owner. Its object hears of that while the controls still stand.
CDialogWidget::~CDialogWidget() {
    endWindow(m_window);
}

void CDialogWidget::closeEvent(QCloseEvent* event) {
    const HWND window = m_window;
    ::SendMessage(window, WM_CLOSE, 0, 0);
    // A host that closes all windows to quit is held up only by a dialog that stays.
    event->setAccepted(::IsWindow(window) == FALSE);
}

void CDialogWidget::keyPressEvent(QKeyEvent* event) {
    event->ignore();
}

CDialogWindow::CDialogWindow(std::unique_ptr<CDialogWidget> widget, CWindow* owner, WindowTraits traits)
    : CInputWindow(widget.get(), owner, std::move(traits))
    , m_nBaseX(averageLetterWidth(widget->font()))
    , m_nBaseY(QFontMetrics(widget->font()).height()) {
    widget.release()->installEventFilter(this); // destroyed with the window
}

QString CDialogWindow::text() const {
    return widget() != nullptr ? widget()->windowTitle() : QString();
}

void CDialogWindow::setText(const QString& text) {
    widget()->setWindowTitle(text);
}

std::unique_ptr<CWnd> CDialogWindow::makeStandIn() const {
    return std::make_unique<CDialog>();
}

/// Dialogs have no sizing border: the size is fixed at what the program asks for.
void CDialogWindow::setGeometry(const QRect& rect) {
    if (widget()->size() != rect.size()) {
        widget()->setFixedSize(rect.size());
    }
    if (widget()->geometry().topLeft() != rect.topLeft()) {
        widget()->setGeometry(rect);
    }
}

/// The frame belongs to the window manager and is not counted.
QRect CDialogWindow::screenGeometry() const {
    return widget() != nullptr ? widget()->geometry() : QRect();
}

QRect CDialogWindow::mapDialogRect(const DialogRect& rect) const {
    const QPoint topLeft(scaled(rect.x, m_nBaseX, 4), scaled(rect.y, m_nBaseY, 8));
    const QPoint end(scaled(rect.x + rect.width, m_nBaseX, 4), scaled(rect.y + rect.height, m_nBaseY, 8));
    return {topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())};
}

INT_PTR CDialogWindow::run(INT_PTR broken) {
    if (m_bEnded) {
        return m_result;
    }
    const CModalRun keepsThisObject;
    QEventLoop loop;
    m_pLoop = &loop;
    widget()->setWindowModality(Qt::ApplicationModal);
    widget()->show();
    loop.exec(QEventLoop::DialogExec);
    m_pLoop = nullptr;
    if (widget() != nullptr) {
        widget()->hide();
    }
    return m_bEnded ? m_result : broken;
}

void CDialogWindow::end(INT_PTR result) {
    m_bEnded = true;
    m_result = result;
    widget()->hide();
    leaveLoop();
}

void CDialogWindow::leaveLoop() {
    if (m_pLoop != nullptr) {
        m_pLoop->quit();
    }
}

LRESULT CDialogWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) {
        leaveLoop();
    }
    return CInputWindow::process(message, wParam, lParam);
}

} // namespace qtbackend
