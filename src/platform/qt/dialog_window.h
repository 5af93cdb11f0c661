#pragma once

#include "platform/qt/input_window.h"

#include <QDialog>
#include <QEventLoop>

struct DialogRect;

namespace qtbackend {

/// The widget of a dialog. What QDialog does by itself with Enter, Escape and the close box is left to the
/// messages.
class CDialogWidget : public QDialog {
public:
    CDialogWidget(QWidget* owner, Qt::WindowFlags flags);
    ~CDialogWidget() override;

    void setWindow(HWND window) { m_window = window; }
    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    HWND m_window = nullptr;
};

/// A dialog: a window of its own over its owner, with the controls of its template.
class CDialogWindow : public CInputWindow {
public:
    CDialogWindow(std::unique_ptr<CDialogWidget> widget, CWindow* owner, WindowTraits traits);

    QString text() const override;
    void setText(const QString& text) override;
    bool capturesMouse() const override { return false; }
    void setGeometry(const QRect& rect) override;
    QRect screenGeometry() const override;

    /// Pixels of a rectangle in dialog units of the dialog's font.
    QRect mapDialogRect(const DialogRect& rect) const;

    /// Shows the dialog and runs messages until its end; `broken` when the window ended without a result.
    INT_PTR run(INT_PTR broken);
    void end(INT_PTR result);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    std::unique_ptr<CWnd> makeStandIn() const override;

private:
    void leaveLoop();

    int m_nBaseX; ///< pixels of 4 horizontal dialog units
    int m_nBaseY; ///< pixels of 8 vertical dialog units
    bool m_bEnded = false;
    INT_PTR m_result = 0;
    QEventLoop* m_pLoop = nullptr;
};

} // namespace qtbackend
