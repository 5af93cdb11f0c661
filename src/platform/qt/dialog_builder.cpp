#include "platform/dialog_template.h"
#include "platform/qt/application.h"
#include "platform/qt/controls/control_factory.h"
#include "platform/qt/dialog_window.h"
#include "platform/qt/foreign_window.h"
#include "platform/qt/window_registry.h"
#include "platform/windows/back_end.h"

#include <QLabel>

#include <utility>

using qtbackend::CDialogWidget;
using qtbackend::CDialogWindow;
using qtbackend::CForeignWindow;
using qtbackend::CWindow;
using qtbackend::CWindowRegistry;

namespace {

Qt::WindowFlags flagsOf(const DialogTemplate& layout) {
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint;
    if ((layout.style & WS_CAPTION) == WS_CAPTION) {
        flags |= Qt::WindowTitleHint;
    }
    if ((layout.style & WS_SYSMENU) != 0) {
        flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    }
    return flags;
}

std::unique_ptr<CDialogWidget> makeWidget(const DialogTemplate& layout, const CWindow* owner) {
    // The owner may be a child of the host's main window: a dialog stands over the whole of it.
    QWidget* const ownerWidget = owner != nullptr ? owner->widget() : nullptr;
    auto widget = std::make_unique<CDialogWidget>(ownerWidget != nullptr ? ownerWidget->window() : nullptr,
                                                  flagsOf(layout));
    widget->setObjectName(QStringLiteral("dialog-%1").arg(layout.id));
    widget->setWindowTitle(QString::fromStdString(layout.caption));
    widget->setFont(qtbackend::dialogFont(QString::fromStdString(layout.fontFace), layout.fontPointSize));
    return widget;
}

/// A control without a text of its own is called, by a screen reader, what the label before it says.
void labelControl(QWidget* before, QWidget& control) {
    auto* const label = qobject_cast<QLabel*>(before);
    if (label != nullptr && !label->text().isEmpty() && qobject_cast<QLabel*>(&control) == nullptr) {
        label->setBuddy(&control);
    }
}

/// False when the template names a class that nobody registered.
bool addControls(CDialogWindow& dialog, const DialogTemplate& layout) {
    QWidget* before = nullptr;
    for (const DialogItem& item : layout.items) {
        const qtbackend::ControlTraits traits{{item.id, item.style, item.windowClass},
                                              item.exStyle,
                                              QString::fromStdString(item.text),
                                              dialog.mapDialogRect(item.rect)};
        CWindow* const control = qtbackend::makeControl(dialog, traits);
        if (control == nullptr) {
            return false;
        }
        if (traits.text.isEmpty()) {
            labelControl(before, *control->widget());
        }
        before = control->widget();
    }
    return true;
}

CDialogWindow* findDialogWindow(HWND dialog) {
    return dynamic_cast<CDialogWindow*>(CWindowRegistry::instance().find(dialog));
}

} // namespace

HWND CreateDialogWindow(const DialogTemplate& layout, HWND parent) {
    if (!qtbackend::ensureApplication()) {
        return nullptr;
    }
    CWindowRegistry& registry = CWindowRegistry::instance();
    CWindow* const owner = registry.findOrAdopt(parent);
    auto made = std::make_unique<CDialogWindow>(makeWidget(layout, owner), owner,
                                                qtbackend::WindowTraits{layout.id, layout.style, "#32770"});
    CDialogWindow& dialog = registry.add(std::move(made));
    static_cast<CDialogWidget*>(dialog.widget())->setWindow(dialog.handle());
    dialog.widget()->setFixedSize(dialog.mapDialogRect(layout.rect).size());
    if (auto* const foreign = dynamic_cast<CForeignWindow*>(owner)) {
        foreign->adopt(*dialog.widget());
    }
    if (!addControls(dialog, layout)) {
        DestroyWindow(dialog.handle());
        return nullptr;
    }
    return dialog.handle();
}

INT_PTR RunDialogWindow(HWND dialog, INT_PTR broken) {
    CDialogWindow* const found = findDialogWindow(dialog);
    return found != nullptr ? found->run(broken) : broken;
}

void EndDialogWindow(HWND dialog, INT_PTR result) {
    if (CDialogWindow* const found = findDialogWindow(dialog)) {
        found->end(result);
    }
}
