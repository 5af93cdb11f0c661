#pragma once

#include "sandbox/keys/shortcut_table.h"

#include <QDialog>

class QKeySequenceEdit;
class QLabel;
class QPushButton;
class QTreeWidget;

/// Lets a person change the keys of the program: choose a command, press its key. Two commands with one key
/// are marked, and named, and nothing is taken over until that is settled.
class CShortcutsDialog : public QDialog {
    Q_OBJECT

public:
    CShortcutsDialog(CShortcutTable& table, QWidget* parent);

    void accept() override;

private:
    void fill();
    void showKeyOf(int row);
    void change(const QKeySequence& key);
    void restoreAll();
    void mark();
    int currentRow() const;

    CShortcutTable& m_table;
    std::vector<QKeySequence> m_keys;
    QTreeWidget* m_pList;
    QKeySequenceEdit* m_pKey;
    QLabel* m_pConflict;
    QPushButton* m_pOk;
};
