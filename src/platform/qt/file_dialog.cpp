#include "platform/framework/file_dialog.h"

#include "platform/framework/wnd.h"
#include "platform/qt/application.h"
#include "platform/qt/common_dialogs.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeView>

#include <algorithm>

namespace {

/// "Caption|*.a;*.b|Caption|*.*||" as "Caption (*.a *.b)" entries.
QStringList nameFilters(const CString& filter) {
    const QStringList parts =
        QString::fromUtf8(filter.GetString()).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype pair = 0; pair + 1 < parts.size(); pair += 2) {
        QString patterns = parts[pair + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        patterns.replace(QLatin1String("*.*"), QLatin1String("*"));
        QString caption = parts[pair].section(QLatin1Char('('), 0, 0).trimmed();
        filters << QStringLiteral("%1 (%2)").arg(caption, patterns);
    }
    return filters;
}

/// Where the dialog opens and what it offers, from a preset name with either kind of slash.
void applyPreset(QFileDialog& dialog, const CString& preset) {
    QString path = QString::fromUtf8(preset.GetString());
    path.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash >= 0) {
        dialog.setDirectory(path.left(std::max<qsizetype>(slash, 1)));
    }
    const QString name = path.mid(slash + 1);
    if (!name.isEmpty() && !name.contains(QLatin1Char('*'))) {
        dialog.selectFile(name);
    }
}

/// Qt keeps the menus of the file list on its stack, as children of what they belong to: a host that ends
/// while one stands open would free it twice.
void leaveOutMenus(QFileDialog& dialog) {
    for (QAbstractItemView* view : dialog.findChildren<QAbstractItemView*>()) {
        view->setContextMenuPolicy(Qt::NoContextMenu);
    }
}

/// Sizes and dates are cut short at the width that the columns begin with.
void showColumnsWhole(QFileDialog& dialog) {
    if (const auto* const files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    }
}

} // namespace

CFileDialog::CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt, LPCTSTR lpszFileName, DWORD dwFlags,
                         LPCTSTR lpszFilter, CWnd* pParentWnd)
    : m_bOpen(bOpenFileDialog != FALSE)
    , m_strExtension(lpszDefExt)
    , m_strFileName(lpszFileName)
    , m_strFilter(lpszFilter)
    , m_parent(pParentWnd != nullptr ? pParentWnd->m_hWnd : nullptr) {
    m_ofn.Flags = dwFlags;
}

INT_PTR CFileDialog::DoModal() {
    if (!qtbackend::ensureApplication()) {
        return IDCANCEL;
    }
    const QPointer<QFileDialog> dialog = new QFileDialog(qtbackend::ownerOf(m_parent));
    dialog->setAcceptMode(m_bOpen ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    const bool several = m_bOpen && (m_ofn.Flags & OFN_ALLOWMULTISELECT) != 0;
    dialog->setFileMode(several   ? QFileDialog::ExistingFiles
                        : m_bOpen ? QFileDialog::ExistingFile
                                  : QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite, (m_ofn.Flags & OFN_OVERWRITEPROMPT) == 0);
    dialog->setNameFilters(nameFilters(m_strFilter));
    dialog->setDefaultSuffix(QString::fromUtf8(m_strExtension.GetString()));
    applyPreset(*dialog, m_ofn.lpstrFile != nullptr && *m_ofn.lpstrFile != '\0' ? CString(m_ofn.lpstrFile)
                                                                                : m_strFileName);
    showColumnsWhole(*dialog);
    leaveOutMenus(*dialog);
    m_paths.clear();
    const bool chosen = qtbackend::runDialog(dialog.data());
    if (chosen) {
        for (const QString& path : dialog->selectedFiles()) {
            m_paths.emplace_back(path.toUtf8().constData());
        }
    }
    delete dialog;
    return chosen && !m_paths.empty() ? IDOK : IDCANCEL;
}

// A position is the number of files still to come: null ends the walk.

POSITION CFileDialog::GetStartPosition() const {
    return reinterpret_cast<POSITION>(m_paths.size());
}

CString CFileDialog::GetNextPathName(POSITION& position) const {
    const auto left = reinterpret_cast<std::size_t>(position);
    if (left == 0 || left > m_paths.size()) {
        position = nullptr;
        return {};
    }
    position = reinterpret_cast<POSITION>(left - 1);
    return m_paths[m_paths.size() - left];
}
