#pragma once

#include <QLineEdit>
#include <QMenu>
#include <QStringList>

/// Offers names in a field of a panel that knows none: an arrow in it lists them, and any other text may
/// still be typed. Belongs to the field.
class CAnimationNames : public QObject {
public:
    CAnimationNames(QLineEdit& field, const QStringList& names);

private:
    void list();

    QLineEdit& m_field;
    QMenu m_menu;
};

/// The field of the movie editor's panel that names a frame's animation; null when there is none.
QLineEdit* animationField(const QWidget& panel);
