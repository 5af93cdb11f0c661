#include "platform/qt/controls/combo_box_window.h"

#include "platform/framework/controls/combo_box.h"
#include "platform/qt/controls/text_items.h"
#include "platform/windows/control_messages.h"

#include <QLineEdit>

namespace qtbackend {

CComboBoxWindow::CComboBoxWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new QComboBox(parent.widget()), &parent, traits.window)
    , m_combo(static_cast<QComboBox&>(*widget())) {
    m_combo.setFocusPolicy(Qt::StrongFocus);
    m_combo.installEventFilter(this);
    if ((style() & CBS_DROPDOWNLIST) == CBS_DROPDOWN) {
        m_combo.setEditable(true);
        m_combo.setInsertPolicy(QComboBox::NoInsert);
        m_combo.setCompleter(nullptr);
        watch(m_combo.lineEdit());
        // A text that was typed selects nothing, even where it reads like an item.
        QObject::disconnect(m_combo.lineEdit(), &QLineEdit::editingFinished, &m_combo, nullptr);
        QObject::disconnect(m_combo.lineEdit(), &QLineEdit::returnPressed, &m_combo, nullptr);
    }
    // Sent for what the user chooses, not for what the program selects.
    QObject::connect(&m_combo, &QComboBox::activated, this, [this] { notify(CBN_SELCHANGE); });
}

std::unique_ptr<CWnd> CComboBoxWindow::makeStandIn() const {
    return std::make_unique<CComboBox>();
}

void CComboBoxWindow::setText(const QString& text) {
    if (m_combo.isEditable()) {
        m_combo.setEditText(text);
    }
}

void CComboBoxWindow::setGeometry(const QRect& rect) {
    const int closed = m_combo.sizeHint().height();
    m_combo.setGeometry(QRect(rect.topLeft(), QSize(rect.width(), std::min(closed, rect.height()))));
}

/// A wheel turned on the way past changes nothing; the focus says which control is meant.
bool CComboBoxWindow::onEvent(QObject*, QEvent* event) {
    if (event->type() == QEvent::Wheel && !m_combo.hasFocus()) {
        event->ignore();
        return true;
    }
    return false;
}

LRESULT CComboBoxWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    const int index = static_cast<int>(wParam);
    switch (message) {
    case CB_ADDSTRING:
        return add(toText(lParam));
    case CB_GETCOUNT:
        return m_combo.count();
    case CB_GETCURSEL:
        return m_combo.currentIndex();
    case CB_SETCURSEL:
        return select(index);
    case CB_RESETCONTENT:
        m_combo.clear();
        return 0;
    case CB_GETITEMDATA:
    case CB_SETITEMDATA:
        return processItem(message, index, lParam);
    default:
        return CInputWindow::process(message, wParam, lParam);
    }
}

LRESULT CComboBoxWindow::processItem(UINT message, int index, LPARAM lParam) {
    if (index < 0 || index >= m_combo.count()) {
        return CB_ERR;
    }
    if (message == CB_SETITEMDATA) {
        m_combo.setItemData(index, QVariant::fromValue<qlonglong>(lParam));
        return 0;
    }
    return static_cast<LRESULT>(m_combo.itemData(index).toLongLong());
}

/// Adds at its place in a sorted list, else at the end, and selects nothing.
LRESULT CComboBoxWindow::add(const QString& text) {
    const int index =
        (style() & CBS_SORT) != 0
            ? sortedIndex(text, m_combo.count(), [this](int item) { return m_combo.itemText(item); })
            : m_combo.count();
    const bool nothingSelected = m_combo.currentIndex() < 0;
    m_combo.insertItem(index, text, QVariant::fromValue<qlonglong>(0));
    if (nothingSelected) {
        m_combo.setCurrentIndex(-1);
    }
    return index;
}

LRESULT CComboBoxWindow::select(int index) {
    const int wanted = index < m_combo.count() ? index : -1;
    if (m_combo.currentIndex() != wanted) {
        m_combo.setCurrentIndex(wanted);
    } else if (m_combo.isEditable() && wanted >= 0) {
        m_combo.setEditText(m_combo.itemText(wanted));
    }
    return wanted;
}

} // namespace qtbackend
