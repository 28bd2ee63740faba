// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HBLogCapture.h"
#include "HBPanelFixture.h"

#include <KMColorDialog.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

/// The user before the colour dialog.
class HBColorDialogUser {
public:
    explicit HBColorDialogUser(KMColorDialog& dialog) : m_Dialog(dialog) {}

    /// Puts a colour into the dialog's field for names, in one go.
    void Pick(const QColor& color) {
        for (QLineEdit* edit : m_Dialog.findChildren<QLineEdit*>()) {
            if (!qobject_cast<QAbstractSpinBox*>(edit->parent())) {
                edit->selectAll();
                edit->insert(color.name());
            }
        }
    }
    void Press(QDialogButtonBox::StandardButton button) {
        m_Dialog.findChild<QDialogButtonBox*>()->button(button)->click();
    }

    /// Clicks the button; `visit` is called while the dialog is open and closes it. False if there was none.
    static bool Open(QAbstractButton* button, const std::function<void(KMColorDialog&)>& visit) {
        const HBShowsWindows silence;
        bool found = false;
        QTimer::singleShot(0, qApp, [&] {
            if (auto* dialog = qobject_cast<KMColorDialog*>(QApplication::activeModalWidget())) {
                found = true;
                const QPointer<KMColorDialog> alive(dialog);
                visit(*dialog);
                if (alive && alive->isVisible()) // a check has failed
                    alive->reject();
            }
        });
        button->click();
        return found;
    }

private:
    KMColorDialog& m_Dialog;
};

/// The colour that a button shows as its icon, all over it.
inline QColor HBShownColor(const QAbstractButton* button) {
    const QImage icon = button->icon().pixmap(button->iconSize()).toImage();
    const QColor color = icon.pixelColor(0, 0);
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            if (icon.pixelColor(x, y) != color) return {};
        }
    }
    return color;
}

/// One visit to the dialog and what must come of it.
struct HBColorVisit {
    const char* name;
    QColor before;         ///< the panel's colour
    QVector<QColor> picks; ///< what the user tries
    QColor last;           ///< what the dialog holds at the end without having said so; not valid: the last pick
    bool accepted;
    QColor after;
    int changes; ///< how often the closing calls were made
};

/// Visits the dialog that `button` opens.
/// \param color the panel's colour; `setColor` loads one
template <class Fixture>
void HBCheckColorVisit(Fixture& f, QAbstractButton* button, const QString& title, const HBColorVisit& visit,
                       const std::function<QColor()>& color, const std::function<void(const QColor&)>& setColor) {
    setColor(visit.before);
    QCOMPARE(f.recorder.Take(), QStringList());
    const bool opened = HBColorDialogUser::Open(button, [&](KMColorDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), title);
        QCOMPARE(dialog.parent(), &f.panel);
        QCOMPARE(dialog.GetColor(), visit.before);
        HBColorDialogUser user(dialog);
        for (const QColor& pick : visit.picks) {
            user.Pick(pick);
            QCOMPARE(color(), pick); // the picture follows
        }
        if (visit.last.isValid()) dialog.SetColor(visit.last);
        user.Press(visit.accepted ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
    });
    QVERIFY(opened);
    QCOMPARE(f.recorder.Take(), HBClosingCalls(visit.changes));
    QCOMPARE(color(), visit.after);
    QCOMPARE(HBShownColor(button).rgba(), visit.after.rgba());
    QVERIFY(!f.panel.template findChild<KMColorDialog*>());
}

template <class Fixture>
void HBCheckColorVisits(Fixture& f, QAbstractButton* button, const QString& title,
                        const QVector<HBColorVisit>& visits, const std::function<QColor()>& color,
                        const std::function<void(const QColor&)>& setColor) {
    for (const HBColorVisit& visit : visits) {
        HBCheckColorVisit(f, button, title, visit, color, setColor);
        if (QTest::currentTestFailed()) return qWarning("in the visit \"%s\"", visit.name);
    }
}

/// The rule of most panels: an accepted colour is heard if it is not the present one, a cancelled dialog if the
/// user has tried another one.
inline QVector<HBColorVisit> HBComparingVisits() {
    const QColor old("#102030");
    const QColor red("#ff0000");
    const QColor blue("#0000ff");
    const QColor hsv = QColor::fromHsv(120, 255, 255); // not equal to any colour of the dialog's own
    return {
        {"accept at once", old, {}, {}, true, old, 0},
        {"cancel at once", old, {}, {}, false, old, 0},
        {"accept what was tried", old, {red, blue}, {}, true, blue, 2},
        {"cancel what was tried", old, {red, blue}, {}, false, old, 3},
        {"back by hand, then cancel", old, {red, old}, {}, false, old, 2},
        {"accept what was not tried", old, {}, red, true, red, 1},
        {"accept another than was tried", old, {red}, blue, true, blue, 2},
        {"accept another colour model", hsv, {}, {}, true, hsv, 0},
        {"cancel another colour model", hsv, {red}, {}, false, hsv, 2},
        {"accept no colour at all", QColor(), {}, {}, true, QColor(), 0},
        {"cancel from translucent", QColor(255, 0, 255, 51), {}, {}, false, QColor(255, 0, 255, 51), 0},
    };
}

/// The panel, or the dialog, is destroyed while the dialog is open.
template <class Panel>
void HBCheckLostDialog(const char* button) {
    const auto click = [&](Panel& panel, const std::function<void(KMColorDialog&)>& visit) {
        return HBColorDialogUser::Open(panel.template findChild<QAbstractButton*>(button), visit);
    };
    auto panel = std::make_unique<Panel>(true, nullptr, Qt::WindowFlags());
    panel->SetImage(HBTestRamp(300, 300), {}, {}, {});
    QVERIFY(click(*panel, [&](KMColorDialog& dialog) {
        HBColorDialogUser(dialog).Pick(Qt::red);
        panel.reset();
    }));
    QVERIFY(!panel);

    HBPanelFixture<Panel> f;
    QVERIFY(click(f.panel, [](KMColorDialog& dialog) {
        HBColorDialogUser(dialog).Pick(Qt::red);
        delete &dialog;
    }));
    QCOMPARE(f.recorder.Take(), HBClosingCalls(1)); // what the user tried stays, and nothing is told again

    // A host that drops the panel as soon as it hears of a change.
    auto* dropped = new Panel(true, nullptr, Qt::WindowFlags());
    const QPointer<Panel> alive(dropped);
    QObject::connect(dropped, &Panel::ValueChanged, dropped, &QObject::deleteLater);
    QVERIFY(click(*dropped, [&](KMColorDialog& dialog) {
        HBColorDialogUser(dialog).Pick(Qt::red);
        QVERIFY(QTest::qWaitFor([&] { return !alive; }));
    }));
    QVERIFY(!alive);
}

/// All of that for a panel whose record is a colour and a percentage.
template <class Panel>
void HBCheckColorPanel() {
    HBPanelFixture<Panel> f;
    HBCheckColorVisits(
        f, f.template Find<QPushButton>("m_pColor"), "Select a color", HBComparingVisits(),
        [&] { return f.panel.GetValue().color; },
        [&](const QColor& color) {
            f.panel.SetValue({color, 50});
        });
    HBCheckLostDialog<Panel>("m_pColor");
}
