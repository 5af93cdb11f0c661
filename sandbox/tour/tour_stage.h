#pragma once

#include "sandbox/app/main_window.h"
#include "sandbox/hands/dialogs.h"
#include "sandbox/hands/hands.h"
#include "sandbox/tour/tour_places.h"

#include <QImage>
#include <QTemporaryDir>
#include <functional>
#include <stdexcept>
#include <vector>

/// Why a step of the tour did not do what it should.
class CTourFailure : public std::runtime_error {
public:
    explicit CTourFailure(const QString& reason) : std::runtime_error(reason.toStdString()) {}
};

/// Throws CTourFailure with the reason unless the condition holds.
inline void require(bool condition, const QString& reason) {
    if (!condition) {
        throw CTourFailure(reason);
    }
}

/// What the steps of a tour work with: the window, the hands, the panel's controls by their ids, and a camera
/// for pictures of the screen. Lives for one tour.
class CTourStage {
public:
    explicit CTourStage(CMainWindow& window);

    CMainWindow& window() { return m_window; }
    CMapView& view() { return m_window.view(); }
    CMemoryMap& map() { return m_window.document().map(); }
    CHands& hands() { return m_hands; }

    /// Window of the dialog made from this template, or null when it is not open.
    QWidget* dialog(int templateId) const { return shownDialog(templateId); }
    /// A control of the map editor panel; fails the step when the panel or the control is not there.
    QWidget& control(int id);
    void clickControl(int id) { m_hands.click(control(id)); }
    CMemoryMovie& movie() { return m_window.document().film().movie(); }
    /// A control of the movie editor's panel; fails the step when the panel or the control is not there.
    QWidget& filmControl(int id);
    /// Click one that is enabled.
    void clickFilm(int id);
    /// What is written in a field of the movie editor's panel.
    QString filmText(int id) { return filmControl(id).property("text").toString(); }
    /// Press a tool's button and see it stay down.
    void chooseTool(int tool);
    /// Move the strength slider to one of its ends.
    void setStrength(Qt::Key end);
    /// Bring a tab forward: 0 Terrain, 1 Details.
    void showTab(int index);
    /// Put a text into a field of a panel or of the tool bar, in place of what stands there, and Enter.
    void enterText(QWidget& field, const QString& text);
    void enterNumber(QWidget& field, int number) { enterText(field, QString::number(number)); }
    /// What is written in a field of the panel.
    QString textOf(int id);
    /// The colour that a swatch of the panel shows.
    QColor swatchColour(int id) { return colourOf(control(id)); }
    static QColor colourOf(QWidget& swatch);
    /// Choose a colour for a swatch in the colour dialog. Returns the picture of the dialog.
    QImage chooseColour(int swatch, const QColor& colour) { return chooseColour(control(swatch), colour); }
    QImage chooseColour(QWidget& swatch, const QColor& colour);
    /// Drop the colour of one swatch on another.
    void dragColour(int from, int to);
    /// Click the tool bar's button for the action of this object name.
    void clickToolBar(const char* action);
    /// Do `open`, which brings up modal dialogs one after the other, and with each of them what stands for it
    /// in `acts`. Each act must end its dialog. The dialogs' own loops run meanwhile.
    void answer(const std::function<void()>& open, std::vector<std::function<void(QWidget&)>> acts);
    /// Choose a texture in the list that a picker button opens. Returns the picture of the list.
    QImage chooseTexture(int picker, const QString& name);
    /// A folder of the session's own where the engine finds image files, gone with the tour.
    QString deliveryFolder() const { return m_delivery.path(); }

    /// Where a point of the map is seen in the view.
    QPointF positionOf(double x, double z);
    /// Where the middle of a cell is seen.
    QPointF positionOfCell(int x, int z) { return positionOf(x + 0.5, z + 0.5); }
    /// Fold of all that undo restores, heights, colours and blends, into one number.
    std::uint64_t mapHash();
    int markedPoints();
    int waterPoints();

    /// The screen as it is now, the window and the panel over it, with the pointer drawn in.
    QImage takePicture();
    /// Use this as the picture of the step instead of the screen at its end.
    void setStepPicture(const QImage& picture) { m_stepPicture = picture; }
    /// The picture of the step that has just been acted.
    QImage takeStepPicture();
    /// Wait until the panel stands at its place beside the view, where it stays.
    void waitForPanel();

private:
    CMainWindow& m_window;
    CHands m_hands;
    QImage m_stepPicture;
    QTemporaryDir m_delivery;
};
