#include "platform/qt/focus_mark.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace qtbackend {

namespace {

constexpr int LINE = 2; // pixels, outside of the control

} // namespace

CFocusMark::CFocusMark(QWidget& dialog) : QWidget(&dialog) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    QObject::connect(qApp, &QApplication::focusChanged, this,
                     [this](QWidget* /*before*/, QWidget* now) { follow(now); });
}

void CFocusMark::follow(QWidget* focused) {
    if (m_pMarked != nullptr) {
        m_pMarked->removeEventFilter(this);
    }
    const bool isControl = focused != nullptr && focused != this && focused != parentWidget();
    const bool isOurs = isControl && parentWidget()->isAncestorOf(focused);
    m_pMarked = isOurs ? focused : nullptr;
    if (m_pMarked != nullptr) {
        m_pMarked->installEventFilter(this);
        place();
        raise();
    }
    setVisible(isOurs);
}

void CFocusMark::place() {
    const QRect marked(m_pMarked->mapTo(parentWidget(), QPoint()), m_pMarked->size());
    setGeometry(marked.adjusted(-LINE, -LINE, LINE, LINE));
}

bool CFocusMark::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (m_pMarked != nullptr && (event->type() == QEvent::Move || event->type() == QEvent::Resize)) {
        place();
    }
    return false;
}

void CFocusMark::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QPen line(palette().color(QPalette::Highlight), LINE);
    line.setJoinStyle(Qt::MiterJoin);
    painter.setPen(line);
    painter.drawRect(rect().adjusted(LINE / 2, LINE / 2, -LINE / 2, -LINE / 2));
}

} // namespace qtbackend
