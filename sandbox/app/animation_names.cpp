#include "sandbox/app/animation_names.h"

#include <QAction>
#include <QStyle>

namespace {

constexpr const char* ANIM_FIELD = "2095"; // the panel's widgets bear their numbers as names

} // namespace

CAnimationNames::CAnimationNames(QLineEdit& field, const QStringList& names)
    : QObject(&field), m_field(field) {
    m_menu.setObjectName("animation-names");
    for (const QString& name : names) {
        m_menu.addAction(name, &m_field, [this, name] {
            m_field.setFocus(); // the panel takes the text when the field is left
            m_field.setText(name);
        });
    }
    QAction* const arrow =
        field.addAction(field.style()->standardIcon(QStyle::SP_ArrowDown), QLineEdit::TrailingPosition);
    arrow->setToolTip(tr("The scene's animations"));
    connect(arrow, &QAction::triggered, this, &CAnimationNames::list);
}

void CAnimationNames::list() {
    m_menu.popup(m_field.mapToGlobal(QPoint(0, m_field.height())));
}

QLineEdit* animationField(const QWidget& panel) {
    return panel.findChild<QLineEdit*>(ANIM_FIELD);
}
