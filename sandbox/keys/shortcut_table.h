#pragma once

#include <QKeySequence>
#include <QString>

#include <span>
#include <vector>

class QAction;
class QMenuBar;

/// A command of the program and the key it has.
struct Shortcut {
    QString id;    ///< for the settings
    QString group; ///< the menu it is in
    QString text;
    QKeySequence standard; ///< empty for none
    QAction* action;
};

/// Every key of the program's menus, in one table. The keys that a person chose are kept in the user's
/// settings, and all of them work in every window of the program, except where they are letters and text is
/// typed.
class CShortcutTable {
public:
    /// Take in the entries of all menus; each has its standard key at this moment. An entry is known by its
    /// object name, which must not change from version to version.
    explicit CShortcutTable(const QMenuBar& menus);

    std::span<const Shortcut> rows() const { return m_rows; }
    /// Give the commands these keys, one for each row, and keep them.
    void setKeys(std::span<const QKeySequence> keys);
    /// For each row, which other one has the same key, or -1.
    static std::vector<int> conflicts(std::span<const QKeySequence> keys);

private:
    std::vector<Shortcut> m_rows;
};
