#include "sandbox/unsaved/unsaved_work.h"

#include <QCoreApplication>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString tr(const char* text) {
    return QCoreApplication::translate("UnsavedWork", text);
}

QString describe(const AbandonedCopy& copy) {
    const QString place = copy.origin.place.isEmpty() ? tr("none of its own yet") : copy.origin.place;
    return tr("Place: %1\nTime: %2\nSize: %3")
        .arg(place, QLocale().toString(copy.time, QLocale::ShortFormat),
             QLocale().formattedDataSize(copy.bytes));
}

void deleteCopy(const AbandonedCopy& copy) {
    CAutomaticCopy owned;
    if (owned.takeOver(copy.folder)) {
        owned.remove();
    }
}

enum class Answer { OPEN, DELETE, LATER };

Answer ask(QWidget& window, const AbandonedCopy& copy) {
    QMessageBox box(QMessageBox::Question, tr("Terrain sandbox"),
                    tr("There is an automatic copy of %1 with changes that were never saved. Open the copy?")
                        .arg(copy.origin.name),
                    QMessageBox::NoButton, &window);
    box.setInformativeText(describe(copy));
    box.setTextFormat(Qt::PlainText);
    box.setObjectName("autosave-question");
    const QPushButton* open = box.addButton(tr("&Open Copy"), QMessageBox::AcceptRole);
    const QPushButton* remove = box.addButton(tr("&Delete Copy"), QMessageBox::DestructiveRole);
    box.addButton(tr("&Later"), QMessageBox::RejectRole); // Escape as well: asked again the next time
    box.exec();
    return box.clickedButton() == open     ? Answer::OPEN
           : box.clickedButton() == remove ? Answer::DELETE
                                           : Answer::LATER;
}

} // namespace

std::vector<AbandonedCopy> abandonedCopies(const QString& place) {
    std::vector<AbandonedCopy> copies = CAutomaticCopy::abandoned();
    if (!place.isEmpty()) {
        std::erase_if(copies, [&](const AbandonedCopy& copy) { return copy.origin.place != place; });
    }
    return copies;
}

std::optional<AbandonedCopy> askAboutCopies(QWidget& window, const std::vector<AbandonedCopy>& copies) {
    for (const AbandonedCopy& copy : copies) {
        switch (ask(window, copy)) {
        case Answer::OPEN:
            return copy;
        case Answer::DELETE:
            deleteCopy(copy);
            break;
        case Answer::LATER:
            break;
        }
    }
    return std::nullopt;
}
