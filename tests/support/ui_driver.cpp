#include "support/ui_driver.h"

#include "sandbox/hands/dialogs.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

#include <stdexcept>

namespace ui {

QWidget& control(const QWidget& dialog, int id) {
    QWidget* const found = findControl(dialog, id);
    if (found == nullptr) {
        throw std::runtime_error("no control " + std::to_string(id) + " in " +
                                 dialog.objectName().toStdString());
    }
    return *found;
}

QWidget* dialog(int templateId) {
    return shownDialog(templateId);
}

bool waitUntilActive(QWidget* window) {
    return window != nullptr && QTest::qWaitForWindowActive(window);
}

void click(QWidget& widget) {
    click(widget, widget.rect().center());
}

void click(QWidget& widget, QPoint position) {
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, position);
}

void doubleClick(QWidget& widget) {
    QTest::mouseClick(&widget, Qt::LeftButton);
    QTest::mouseDClick(&widget, Qt::LeftButton);
    QTest::mouseRelease(&widget, Qt::LeftButton);
}

void drag(QWidget& from, QWidget& to) {
    dragFrom(from, from.rect().center(), to);
}

void dragFrom(QWidget& from, QPoint position, QWidget& to) {
    QTest::mousePress(&from, Qt::LeftButton, Qt::NoModifier, position);
    // Qt keeps the mouse with the widget that was pressed: the release comes there, wherever the pointer is.
    const QPoint released = from.mapFromGlobal(to.mapToGlobal(to.rect().center()));
    QTest::mouseRelease(&from, Qt::LeftButton, Qt::NoModifier, released);
}

void turnWheel(QWidget& widget, int notches) {
    const QPointF middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(middle), QPoint(), QPoint(0, notches * 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QWidget* const focus = QApplication::focusWidget();
    if (focus == nullptr) {
        throw std::runtime_error("nothing has the focus");
    }
    QTest::keyClick(focus, key, modifiers);
}

void type(QWidget& field, const QString& text) {
    click(field);
    if (auto* const edit = qobject_cast<QLineEdit*>(&field)) {
        edit->selectAll();
    }
    QTest::keyClicks(&field, text);
}

bool waitUntil(const std::function<bool()>& condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(5000)) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return true;
}

void settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace ui
