#include "sandbox/keys/shortcuts_dialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

namespace {

constexpr int ROW = Qt::UserRole; // of the table, in an item's data
constexpr int TEXT_COLUMN = 0;
constexpr int KEY_COLUMN = 1;
constexpr QColor CONFLICT(192, 32, 32);

} // namespace

CShortcutsDialog::CShortcutsDialog(CShortcutTable& table, QWidget* parent)
    : QDialog(parent)
    , m_table(table)
    , m_pList(new QTreeWidget)
    , m_pKey(new QKeySequenceEdit)
    , m_pConflict(new QLabel) {
    setObjectName("shortcuts");
    setWindowTitle(tr("Shortcuts"));
    for (const Shortcut& row : m_table.rows()) {
        m_keys.push_back(row.action->shortcut());
    }
    m_pKey->setClearButtonEnabled(true);
    m_pConflict->setObjectName("conflict");
    m_pConflict->setWordWrap(true);
    m_pConflict->setMinimumHeight(m_pConflict->fontMetrics().lineSpacing() * 2);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel |
                                               QDialogButtonBox::RestoreDefaults);
    m_pOk = buttons->button(QDialogButtonBox::Ok);
    auto* const keyRow = new QHBoxLayout;
    keyRow->addWidget(new QLabel(tr("Key:")));
    keyRow->addWidget(m_pKey);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(m_pList);
    column->addLayout(keyRow);
    column->addWidget(m_pConflict);
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            &CShortcutsDialog::restoreAll);
    connect(m_pList, &QTreeWidget::currentItemChanged, this, [this] { showKeyOf(currentRow()); });
    connect(m_pKey, &QKeySequenceEdit::keySequenceChanged, this, &CShortcutsDialog::change);
    fill();
    mark();
    resize(480, 560);
}

void CShortcutsDialog::fill() {
    m_pList->setObjectName("commands");
    m_pList->setHeaderLabels({tr("Command"), tr("Key")});
    m_pList->header()->setStretchLastSection(false);
    m_pList->header()->setSectionResizeMode(TEXT_COLUMN, QHeaderView::Stretch);
    m_pList->header()->setSectionResizeMode(KEY_COLUMN, QHeaderView::ResizeToContents);
    QTreeWidgetItem* group = nullptr;
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        const Shortcut& row = m_table.rows()[i];
        if (group == nullptr || group->text(TEXT_COLUMN) != row.group) {
            group = new QTreeWidgetItem(m_pList, {row.group});
            group->setData(TEXT_COLUMN, ROW, -1);
            group->setFlags(Qt::ItemIsEnabled);
            group->setExpanded(true);
        }
        auto* const item = new QTreeWidgetItem(group, {row.text});
        item->setData(TEXT_COLUMN, ROW, static_cast<int>(i));
    }
    m_pList->setCurrentItem(m_pList->topLevelItem(0)->child(0));
}

int CShortcutsDialog::currentRow() const {
    const QTreeWidgetItem* const item = m_pList->currentItem();
    return item != nullptr ? item->data(TEXT_COLUMN, ROW).toInt() : -1;
}

void CShortcutsDialog::showKeyOf(int row) {
    const QSignalBlocker quiet(m_pKey);
    m_pKey->setEnabled(row >= 0);
    m_pKey->setKeySequence(row >= 0 ? m_keys[static_cast<std::size_t>(row)] : QKeySequence());
}

void CShortcutsDialog::change(const QKeySequence& key) {
    const int row = currentRow();
    if (row < 0) {
        return;
    }
    // A command has one key, not a sequence of them.
    m_keys[static_cast<std::size_t>(row)] = key.isEmpty() ? QKeySequence() : QKeySequence(key[0]);
    if (key.count() > 1) {
        showKeyOf(row);
    }
    mark();
}

void CShortcutsDialog::restoreAll() {
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        m_keys[i] = m_table.rows()[i].standard;
    }
    showKeyOf(currentRow());
    mark();
}

/// Show each key, and tell the first pair of commands that has the same one.
void CShortcutsDialog::mark() {
    const std::vector<int> conflicts = CShortcutTable::conflicts(m_keys);
    m_pConflict->clear();
    for (QTreeWidgetItemIterator item(m_pList); *item != nullptr; ++item) {
        const int index = (*item)->data(TEXT_COLUMN, ROW).toInt();
        if (index < 0) {
            continue;
        }
        const auto row = static_cast<std::size_t>(index);
        (*item)->setText(KEY_COLUMN, m_keys[row].toString(QKeySequence::NativeText));
        const bool clashes = conflicts[row] >= 0;
        (*item)->setForeground(KEY_COLUMN, clashes ? QBrush(CONFLICT) : QBrush());
        if (clashes && m_pConflict->text().isEmpty()) {
            m_pConflict->setText(tr("%1 is the key of \"%2\" and of \"%3\".")
                                     .arg(m_keys[row].toString(QKeySequence::NativeText),
                                          m_table.rows()[row].text,
                                          m_table.rows()[static_cast<std::size_t>(conflicts[row])].text));
        }
    }
    m_pOk->setEnabled(m_pConflict->text().isEmpty());
}

void CShortcutsDialog::accept() {
    m_table.setKeys(m_keys);
    QDialog::accept();
}
