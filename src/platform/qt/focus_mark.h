#pragma once

#include <QPointer>
#include <QWidget>

namespace qtbackend {

/// A line around the control of a dialog that has the keyboard. Most styles hint at the focus so faintly that
/// a person who walks through a panel with Tab is lost after an icon button. The mark takes no input, and is
/// owned by its dialog.
class CFocusMark : public QWidget {
public:
    explicit CFocusMark(QWidget& dialog);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void follow(QWidget* focused);
    void place();

    QPointer<QWidget> m_pMarked;
};

} // namespace qtbackend
