#pragma once

#include <QApplication>
#include <QString>
#include <QWidget>

// Eyes for the toolkit's dialogs: their windows carry the id of the template, their controls their own.

inline constexpr int OK_BUTTON = 1;
inline constexpr int CANCEL_BUTTON = 2;

/// The shown window of the dialog made from this template, or null.
inline QWidget* shownDialog(int templateId) {
    const QString name = QStringLiteral("dialog-%1").arg(templateId);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

/// The dialog's control of this id, or null.
template <class Kind = QWidget> Kind* findControl(const QWidget& dialog, int id) {
    return dialog.findChild<Kind*>(QString::number(id));
}
