#pragma once

#include "platform/qt/window.h"

#include <QWindow>

namespace qtbackend {

/// A window of the host, known by its native id: a Qt widget of this process, or a window of another toolkit.
/// It is never drawn on nor sent to; it is a place to stand over.
class CForeignWindow : public CWindow {
public:
    explicit CForeignWindow(HWND handle);

    /// Makes the dialog stay above this window where Qt's own parents cannot tell it.
    void adopt(QWidget& dialog);
    QRect screenGeometry() const override;
    bool capturesMouse() const override { return false; }
    bool isForeign() const override { return true; }

private:
    /// The window of another toolkit; null when it is a widget or cannot be seen from here.
    QWindow* native() const;

    mutable std::unique_ptr<QWindow> m_pNative; ///< made on first use, when there is an application object
};

} // namespace qtbackend
