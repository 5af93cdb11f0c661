#include "platform/qt/controls/list_box_window.h"

#include "platform/framework/controls/list_box.h"
#include "platform/framework/message_state.h"
#include "platform/qt/controls/text_items.h"
#include "platform/windows/control_messages.h"

#include <QPainter>
#include <QStyledItemDelegate>

namespace qtbackend {

namespace {

/// Frames the item with the caret, also while another control has the focus: in a list for several selected
/// the next command acts there, and nothing else tells where that is.
class CCaretDelegate : public QStyledItemDelegate {
public:
    explicit CCaretDelegate(QListWidget& list) : QStyledItemDelegate(&list), m_list(list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        if (index == m_list.currentIndex()) {
            const bool selected = (option.state & QStyle::State_Selected) != 0;
            const QPalette& colours = option.palette;
            painter->save();
            painter->setPen(QPen(selected ? colours.highlightedText() : colours.text(), 1, Qt::DotLine));
            painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
            painter->restore();
        }
    }

private:
    QListWidget& m_list;
};

} // namespace

CListBoxWindow::CListBoxWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new QListWidget(parent.widget()), &parent, traits.window)
    , m_list(static_cast<QListWidget&>(*widget())) {
    m_list.installEventFilter(this);
    watch(m_list.viewport());
    m_list.viewport()->setMouseTracking(true); // a window hears of every move over it
    m_list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if ((style() & LBS_EXTENDEDSEL) != 0) {
        m_list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    } else if ((style() & LBS_MULTIPLESEL) != 0) {
        m_list.setSelectionMode(QAbstractItemView::MultiSelection);
    }
    if (isMultiple()) {
        m_list.setItemDelegate(new CCaretDelegate(m_list));
    }
    if ((style() & LBS_NOTIFY) != 0) {
        QObject::connect(&m_list, &QListWidget::itemSelectionChanged, this, [this] {
            if (!m_bFromProgram) {
                notify(LBN_SELCHANGE);
            }
        });
        QObject::connect(&m_list, &QListWidget::itemDoubleClicked, this, [this] { notify(LBN_DBLCLK); });
    }
}

std::unique_ptr<CWnd> CListBoxWindow::makeStandIn() const {
    return std::make_unique<CListBox>();
}

LRESULT CListBoxWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    const CStateScope fromProgram(m_bFromProgram, true);
    const int index = static_cast<int>(wParam);
    switch (message) {
    case LB_ADDSTRING:
        return insert(-1, toText(lParam));
    case LB_INSERTSTRING:
        return insert(index < 0 ? m_list.count() : index, toText(lParam));
    case LB_RESETCONTENT:
        m_list.clear();
        return 0;
    case LB_GETCOUNT:
        return m_list.count();
    case LB_GETCURSEL:
        return isMultiple() || !m_list.selectedItems().isEmpty() ? m_list.currentRow() : LB_ERR;
    case LB_SETCURSEL:
        return select(index);
    case LB_FINDSTRING:
        return findPrefix(index, toText(lParam));
    case LB_GETSELCOUNT:
        return isMultiple() ? m_list.selectedItems().size() : LB_ERR;
    case LB_GETSELITEMS:
        return copySelected(index, reinterpret_cast<int*>(lParam));
    case LB_SETSEL:
        return setSelected(static_cast<int>(lParam), wParam != 0);
    case LB_GETCARETINDEX:
        return m_list.currentRow();
    case LB_SETCARETINDEX:
        moveCaret(index);
        return 0;
    case LB_ITEMFROMPOINT:
        return itemAt({static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
    case LB_DELETESTRING:
    case LB_GETTEXT:
    case LB_GETTEXTLEN:
    case LB_GETITEMDATA:
    case LB_SETITEMDATA:
        return processItem(message, index, lParam);
    default: {
        const CStateScope fromUser(m_bFromProgram, false); // the mouse and the keyboard come this way
        return CInputWindow::process(message, wParam, lParam);
    }
    }
}

LRESULT CListBoxWindow::processItem(UINT message, int index, LPARAM lParam) {
    QListWidgetItem* const item = m_list.item(index);
    if (item == nullptr) {
        return LB_ERR;
    }
    switch (message) {
    case LB_DELETESTRING:
        return remove(index);
    case LB_GETTEXT:
        return copyItemText(item->text(), lParam);
    case LB_GETTEXTLEN:
        return item->text().toUtf8().size();
    case LB_SETITEMDATA:
        item->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(lParam));
        return 0;
    default:
        return static_cast<LRESULT>(item->data(Qt::UserRole).toLongLong());
    }
}

/// An index of -1 adds: at its place in a sorted list, else at the end.
LRESULT CListBoxWindow::insert(int index, const QString& text) {
    if (index > m_list.count()) {
        return LB_ERR;
    }
    if (index < 0) {
        index =
            (style() & LBS_SORT) != 0
                ? sortedIndex(text, m_list.count(), [this](int item) { return m_list.item(item)->text(); })
                : m_list.count();
    }
    m_list.insertItem(index, text);
    if (isMultiple() && m_list.count() == 1) {
        moveCaret(0);
    }
    return index;
}

LRESULT CListBoxWindow::remove(int index) {
    const bool wasSelected = m_list.item(index)->isSelected();
    delete m_list.takeItem(index);
    if (wasSelected && !isMultiple()) {
        m_list.clearSelection(); // Qt would select a neighbour
    }
    return m_list.count();
}

LRESULT CListBoxWindow::select(int index) {
    if (isMultiple() || index >= m_list.count()) {
        return LB_ERR;
    }
    if (index < 0) {
        m_list.clearSelection();
        return LB_ERR;
    }
    m_list.setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
    return index;
}

LRESULT CListBoxWindow::setSelected(int index, bool selected) {
    if (!isMultiple() || index >= m_list.count()) {
        return LB_ERR;
    }
    if (index < 0) {
        selected ? m_list.selectAll() : m_list.clearSelection();
        return 0;
    }
    m_list.item(index)->setSelected(selected);
    moveCaret(index);
    return 0;
}

void CListBoxWindow::moveCaret(int index) {
    m_list.setCurrentRow(index, QItemSelectionModel::NoUpdate);
}

LRESULT CListBoxWindow::findPrefix(int startAfter, const QString& prefix) const {
    const int count = m_list.count();
    for (int step = 1; step <= count; ++step) {
        const int index = (startAfter + step) % count;
        if (beginsWith(m_list.item(index)->text(), prefix)) {
            return index;
        }
    }
    return LB_ERR;
}

LRESULT CListBoxWindow::itemAt(QPoint point) const {
    constexpr WORD OUTSIDE = 1;
    const QPoint inside = m_list.viewport()->mapFrom(&m_list, point);
    const QModelIndex under = m_list.indexAt(inside);
    const int nearest = inside.y() < 0 ? 0 : m_list.count() - 1;
    return MAKELPARAM(under.isValid() ? under.row() : nearest, under.isValid() ? 0 : OUTSIDE);
}

LRESULT CListBoxWindow::copySelected(int room, int* indices) const {
    if (!isMultiple()) {
        return LB_ERR;
    }
    int copied = 0;
    for (int index = 0; index < m_list.count() && copied < room; ++index) {
        if (m_list.item(index)->isSelected()) {
            indices[copied++] = index;
        }
    }
    return copied;
}

} // namespace qtbackend
