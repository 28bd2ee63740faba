// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBBusyDialog.h>

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVector>

#include <functional>

/// What the user does with each dialog that comes, in turn. All of them must have come in the end.
class Answers : public QObject {
public:
    using Answer = std::function<void(QDialog*)>;

    explicit Answers(const QVector<Answer>& answers) : m_Left(answers) { startTimer(5); }
    ~Answers() override {
        QTRY_VERIFY2(m_Left.isEmpty(), "fewer dialogs than expected");
        QVERIFY2(!m_TooMany, "more dialogs than expected");
    }

    static Answer Press(QMessageBox::StandardButton button) {
        return To<QMessageBox>([=](QMessageBox* box) { box->button(button)->click(); });
    }
    static Answer Press(const QString& text) {
        return To<QDialog>([=](QDialog* dialog) {
            for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
                if (button->text().remove('&').startsWith(text)) return button->click();
            }
            dialog->reject();
            QFAIL(qPrintable("no button " + text));
        });
    }
    static Answer File(const QString& path) {
        return To<QFileDialog>([=](QFileDialog* dialog) {
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path); // selectFile() spares what is typed
            static_cast<QDialog*>(dialog)->accept();
        });
    }
    static Answer Number(int number) {
        return To<QInputDialog>([=](QInputDialog* dialog) {
            dialog->setIntValue(number);
            dialog->accept();
        });
    }

private:
    /// Gives up a dialog that is of another kind.
    template <class Dialog, class Act>
    static Answer To(Act act) {
        return [=](QDialog* dialog) {
            if (auto* expected = qobject_cast<Dialog*>(dialog)) return act(expected);
            auto* box = qobject_cast<QMessageBox*>(dialog);
            qWarning("%s: %s", dialog->metaObject()->className(), box ? qPrintable(box->text()) : "");
            dialog->reject();
        };
    }

    void timerEvent(QTimerEvent*) override {
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || m_Seen.contains(dialog) || qobject_cast<HBBusyDialog*>(dialog)) return;
        m_Seen.append(dialog); // one may be in front again when its own question has gone
        m_TooMany |= m_Left.isEmpty();
        const Answer answer = m_Left.isEmpty() ? &QDialog::reject : m_Left.takeFirst();
        // Outside this timer, which would not run in dialogs that the answer brings about.
        QTimer::singleShot(0, this, [=] {
            if (dialog) answer(dialog);
        });
    }

    QVector<Answer> m_Left;
    QVector<QPointer<QDialog>> m_Seen;
    bool m_TooMany = false;
};
