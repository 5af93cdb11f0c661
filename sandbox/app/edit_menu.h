#pragma once

#include "sandbox/journal/map_journal.h"

#include <QMainWindow>

#include <functional>
#include <memory>

class CMapView;
class QAction;

/// The menu that takes back and makes again what was done to the map and the film, step by step: a stroke,
/// one press of a command on a panel, a change in the tool bar, a flight of the film's camera. What happens
/// between two moments at which the application is idle and nothing is under way is one step. Escape takes
/// back the stroke that is being made.
class CEditMenu : public QObject {
    Q_OBJECT

public:
    CEditMenu(QMainWindow& window, CMapView& view);

    /// Begin anew with this map and its film, which are as they are on the disk, or with none.
    void setMap(CMemoryMap* map, CFilm* film = nullptr);
    /// Make a step of what has changed. To be called when the application is idle; nothing while a mouse
    /// button is held, the film plays or its camera is flown.
    void follow();
    void markSaved();
    /// No step leads back to what is on the disk.
    void markUnsaved();
    /// Whether the map is as it was saved, as far as steps can tell.
    bool isAsSaved() const { return m_pJournal != nullptr && m_pJournal->isAsSaved(); }

signals:
    /// Steps were taken back or made again, and the panel does not know.
    void mapChanged(CMapJournal::Reach reach);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void go(bool forward);
    void askBudget();
    bool isUnderWay() const;
    QString nameOf(const QWidget& pressed) const;
    /// Take back the stroke that is being made, whole.
    void cancelStroke();
    void showSteps();

    QMainWindow& m_window;
    CMapView& m_view;
    CFilm* m_pFilm = nullptr;
    QAction* m_pUndo;
    QAction* m_pRedo;
    std::unique_ptr<CMapJournal> m_pJournal;
    QString m_strName; // of what the hand did last
};
