// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// A user and a host at a panel, in any order: control moves, mouse on curve and handles, keys, records, pictures,
// waits, cancels, deletion. When it has come to rest its picture must be the core's for its record, and nothing
// may be left of it. Input: panel, with or without its frame, then three bytes a gesture.
#include "HBFuzz.h"
#include "HBTestRecords.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelCatalog.h>
#include <HBParallel.h>
#include <KMApplication.h>
#include <KMDocumentView.h>
#include <KMTheme.h>
#include <MavuCustomSlider.h>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QGraphicsView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace {

/// Ends every modal dialog as soon as it stands, one way or the other.
class DialogEnder : public QObject {
public:
    bool accepts = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* dialog = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
        if (dialog && dialog->isModal())
            QTimer::singleShot(0, dialog, [dialog, ends = accepts] { dialog->done(ends); });
        return false;
    }
};

DialogEnder& Ender() {
    static DialogEnder ender;
    return ender;
}

constexpr Qt::Key Keys[] = {Qt::Key_Left,     Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,   Qt::Key_PageUp,
                            Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_End,      Qt::Key_Insert, Qt::Key_Delete,
                            Qt::Key_Plus,     Qt::Key_Tab,    Qt::Key_Backtab,  Qt::Key_Space,  Qt::Key_5,
                            Qt::Key_Minus,    Qt::Key_Return, Qt::Key_Backspace};

void PressKey(QWidget* widget, Qt::Key key) {
    const QPointer<QWidget> receiver = widget;
    const QString text = key >= ' ' && key <= '~' ? QString(QChar(key)) : QString();
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        if (receiver) QApplication::sendEvent(receiver, &event);
    }
}

void Drag(QWidget* widget, QPoint from, QPoint to, Qt::MouseButton button) {
    const QPointer<QWidget> receiver = widget;
    const auto send = [&](QEvent::Type type, QPoint at) {
        if (!receiver) return;
        QMouseEvent event(type, at, receiver->mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
        QApplication::sendEvent(receiver, &event);
    };
    send(QEvent::MouseButtonPress, from);
    send(QEvent::MouseMove, (from + to) / 2);
    send(QEvent::MouseMove, to);
    send(QEvent::MouseButtonRelease, to);
}

QPoint PointIn(const QWidget& widget, int share) {
    return {widget.width() * (share & 15) / 15, widget.height() * (share >> 4) / 15};
}

/// Controls by name; dialogs' own buttons, which end the panel, are among the gestures of their own.
QVector<QWidget*> Controls(const QWidget& panel) {
    QVector<QWidget*> controls;
    for (QWidget* widget : panel.findChildren<QWidget*>()) {
        if (widget->objectName().isEmpty() || widget->objectName().startsWith("qt_")) continue;
        if (!qobject_cast<QDialogButtonBox*>(widget->parent())) controls += widget;
    }
    std::sort(controls.begin(), controls.end(),
              [](auto* a, auto* b) { return a->objectName() < b->objectName(); });
    return controls;
}

void MoveControl(QWidget* control, int value) {
    if (!control->isEnabled()) return;
    if (auto* handles = qobject_cast<MavuCustomSlider*>(control)) {
        if (handles->ControlCount()) handles->SetValue(uint(value) % handles->ControlCount(), value * 3 - 200);
    } else if (qobject_cast<QAbstractSlider*>(control) || qobject_cast<QAbstractSpinBox*>(control)) {
        const double low = control->property("minimum").toDouble(), high = control->property("maximum").toDouble();
        control->setProperty("value", low + (high - low) * value / 255);
    } else if (auto* combo = qobject_cast<QComboBox*>(control)) {
        combo->setCurrentIndex(value % (combo->count() + 1) - 1);
    } else if (auto* edit = qobject_cast<QLineEdit*>(control)) {
        if (!edit->isReadOnly()) edit->setText(value % 3 ? QString::number(value) : QString(QChar(value)));
    } else if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        button->click();
    } else if (auto* view = qobject_cast<QGraphicsView*>(control)) {
        Drag(view->viewport(), PointIn(*view, value), PointIn(*view, value * 7 & 255),
             value & 1 ? Qt::RightButton : Qt::LeftButton);
    }
}

void ProcessEvents(int milliseconds) {
    QElapsedTimer time;
    time.start();
    do QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    while (time.elapsed() < milliseconds);
}

/// In the jobs' pool and in Qt's, which with Qt 6 is another one.
int WorkingThreads() {
    QThreadPool *const global = QThreadPool::globalInstance(), &own = HBThreadPool();
    return global->activeThreadCount() + (&own == global ? 0 : own.activeThreadCount());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    auto* application = new QApplication(*argc, *argv); // lives as long as the process
    application->installEventFilter(&Ender());
    QApplication::setQuitOnLastWindowClosed(false);
    KMApplication::SetProgressTimeout(20);
    KMTheme::Install(); // without its picture the pickers' cursor is the usual one
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HBFuzzInput input(data, size);
    const HBPanelEntry& entry = HBPanelCatalog()[input.Below(HBPanelCatalog().size())];
    KMDocumentView views[2];
    std::unique_ptr<HBAdjustmentWidget> panel(entry.create(input.Below(2), nullptr));
    panel->setAttribute(Qt::WA_DontShowOnScreen);
    HBTarget target;
    int finished = 0, waited = 0;
    QObject::connect(panel.get(), &HBAdjustmentWidget::Finished, [&] { ++finished; });
    for (int gesture = 0; !input.IsAtEnd() && gesture < 60 && panel; ++gesture) {
        const int what = input.Byte(), which = input.Byte(), value = input.Byte();
        const QVector<QWidget*> controls = Controls(*panel);
        QWidget* control = controls[which % controls.size()];
        Ender().accepts = value & 1;
        switch (what % 20) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
            MoveControl(control, value);
            break;
        case 5:
        case 6:
            PressKey(control, Keys[value % int(std::size(Keys))]);
            break;
        case 7:
            Drag(control, PointIn(*control, value), PointIn(*control, value * 13 & 255), Qt::LeftButton);
            break;
        case 8:
        case 9:
            target = HBFuzzTarget(&input);
            panel->SetImage(target.source, target.selection, target.offset, target.bounds);
            break;
        case 10:
            entry.set(*panel, HBHostileRecord(*entry.adjustment, value % HBHostileRecords));
            break;
        case 11:
            panel->OnReset();
            break;
        case 12:
            ProcessEvents(value % 8);
            break;
        case 13:
            ProcessEvents(55);
            break;
        case 14:
            waited += !panel->WaitForProcessingFinished(value % 5 == 0);
            break;
        case 15:
            panel->SetCancelProcessing(value & 1);
            break;
        case 16:
            panel->ProcessNow();
            break;
        case 17:
            if (value % 8 == 0) panel->ClearData(), target = {};
            break;
        case 18:
            panel->SetView(value % 3 == 2 ? nullptr : &views[value % 3]);
            if (value & 64) Drag(views[value % 2].viewport(), {value, 10}, {30, value}, Qt::LeftButton);
            break;
        case 19:
            if (which % 4 == 0)
                panel.reset();
            else
                panel->setVisible(value & 1);
            break;
        }
    }
    if (panel && !entry.draw) {
        const auto rests = [&](const std::function<bool()>& reached) {
            if (HBComesTrue(reached)) return;
            HBFuzzFail(QString("%1 does not come to rest: processing %2, pending %3, finished %4 of %5, pool %6")
                           .arg(entry.className)
                           .arg(panel->IsProcessing())
                           .arg(panel->HasPendingChange())
                           .arg(finished)
                           .arg(waited)
                           .arg(WorkingThreads()));
        };
        rests([&] { return finished >= waited; }); // first: a wait whose dialog is rejected cancels
        panel->SetCancelProcessing(false);
        panel->ProcessNow();
        rests([&] { return !panel->IsProcessing() && !panel->HasPendingChange(); });
        const std::any record = entry.get(*panel);
        const HBOutcome core = HBRun(*entry.adjustment, record, target);
        if (!target.source.IsEmpty()) {
            HBFuzzCheck(core.IsWhole() != panel->HasJobFailed(), "panel and core fail differently");
            HBFuzzCheck(!core.IsWhole() || core.image.ToQImage() == panel->AdjustedImage().ToQImage(),
                        QString("%1 shows another picture than its record").arg(entry.className));
        }
    }
    panel.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    HBFuzzCheck(HBComesTrue([] { return WorkingThreads() == 0; }), "a thread works on");
    HBFuzzCheck(!QApplication::overrideCursor(), "the override cursor is left");
    for (const KMDocumentView& view : views) HBFuzzCheck(!view.HasOverrideCursor(), "a picker's cursor is left");
    for (QWidget* window : QApplication::topLevelWidgets())
        HBFuzzCheck(!qobject_cast<QDialog*>(window),
                    QString("a %1 is left").arg(window->metaObject()->className()));
    return 0;
}
