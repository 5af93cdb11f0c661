#pragma once

#include "sandbox/film/film.h"

#include <QDialog>

class QListWidget;
class QListWidgetItem;
class QPushButton;

/// The list of a film's places, to rename and to remove.
class CPlacesDialog : public QDialog {
    Q_OBJECT

public:
    CPlacesDialog(QWidget& parent, CFilm& film);

private:
    void fill();
    void rename(QListWidgetItem& item);
    void remove();

    CFilm& m_film;
    QListWidget* m_pList;
    QPushButton* m_pRename;
    QPushButton* m_pRemove;
};
