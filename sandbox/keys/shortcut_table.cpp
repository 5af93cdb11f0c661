#include "sandbox/keys/shortcut_table.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>

namespace {

QString plain(QString text) {
    return text.remove('&').remove("...");
}

QString settingOf(const Shortcut& row) {
    return "shortcuts/" + row.id;
}

void addEntries(std::vector<Shortcut>& rows, const QMenu& menu, const QString& group) {
    for (QAction* const entry : menu.actions()) {
        if (entry->menu() != nullptr) {
            addEntries(rows, *entry->menu(), group);
        } else if (!entry->objectName().isEmpty()) {
            rows.push_back({entry->objectName(), group, plain(entry->text()), entry->shortcut(), entry});
        }
    }
}

} // namespace

CShortcutTable::CShortcutTable(const QMenuBar& menus) {
    for (const QAction* const entry : menus.actions()) {
        if (entry->menu() != nullptr) {
            addEntries(m_rows, *entry->menu(), plain(entry->text()));
        }
    }
    const QSettings settings;
    for (const Shortcut& row : m_rows) {
        const QVariant chosen = settings.value(settingOf(row));
        if (chosen.isValid()) {
            row.action->setShortcut(QKeySequence(chosen.toString(), QKeySequence::PortableText));
        }
        row.action->setShortcutContext(Qt::ApplicationShortcut);
    }
}

void CShortcutTable::setKeys(std::span<const QKeySequence> keys) {
    QSettings settings;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const Shortcut& row = m_rows[i];
        row.action->setShortcut(keys[i]);
        if (keys[i] == row.standard) {
            settings.remove(settingOf(row));
        } else {
            settings.setValue(settingOf(row), keys[i].toString(QKeySequence::PortableText));
        }
    }
}

std::vector<int> CShortcutTable::conflicts(std::span<const QKeySequence> keys) {
    std::vector<int> found(keys.size(), -1);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        for (std::size_t k = 0; k < keys.size() && found[i] < 0; ++k) {
            if (i != k && !keys[i].isEmpty() && keys[i] == keys[k]) {
                found[i] = static_cast<int>(k);
            }
        }
    }
    return found;
}
