#include "sandbox/app/places_dialog.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

CPlacesDialog::CPlacesDialog(QWidget& parent, CFilm& film)
    : QDialog(&parent), m_film(film), m_pList(new QListWidget(this)) {
    setWindowTitle(tr("Places"));
    setObjectName("places-dialog");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, Qt::Vertical, this);
    m_pRename = buttons->addButton(tr("&Rename"), QDialogButtonBox::ActionRole);
    m_pRemove = buttons->addButton(tr("Re&move"), QDialogButtonBox::ActionRole);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_pList);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_pRename, &QPushButton::clicked, this, [this] { m_pList->editItem(m_pList->currentItem()); });
    connect(m_pRemove, &QPushButton::clicked, this, &CPlacesDialog::remove);
    connect(m_pList, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) { rename(*item); });
    fill();
}

void CPlacesDialog::fill() {
    const QSignalBlocker quiet(m_pList);
    const int row = m_pList->currentRow();
    m_pList->clear();
    for (const std::unique_ptr<CPlace>& place : m_film.places()) {
        auto* item = new QListWidgetItem(QString::fromUtf8(place->name.getString()), m_pList);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    m_pList->setCurrentRow(std::min(std::max(row, 0), m_pList->count() - 1));
    m_pRename->setEnabled(m_pList->count() > 0);
    m_pRemove->setEnabled(m_pList->count() > 0);
}

void CPlacesDialog::rename(QListWidgetItem& item) {
    const auto index = static_cast<std::size_t>(m_pList->row(&item));
    const QString name = item.text();
    if (name == QString::fromUtf8(m_film.places().at(index)->name.getString())) {
        return;
    }
    const QString refusal = m_film.whyNoName(name);
    if (refusal.isEmpty()) {
        m_film.renamePlace(index, name);
    } else {
        QMessageBox::warning(this, windowTitle(), refusal);
        fill();
    }
}

void CPlacesDialog::remove() {
    m_film.removePlace(static_cast<std::size_t>(m_pList->currentRow()));
    fill();
}
