// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBOverlayPanelChecks.h"
#include "HBTestMain.h"

#include <HBSignWidget.h>
#include <KMApplication.h>
#include <KMFileDialog.h>
#include <KMImageFileManager.h>

#include <QLineEdit>
#include <QPushButton>

namespace {

using Panel = HBOverlayPanel<HBSignWidget>;

struct Fixture : HBPanelFixture<Panel> {
    QComboBox* horizontal = Find<QComboBox>("m_pHrzAlignment");
    QComboBox* vertical = Find<QComboBox>("m_pVrtAlignment");
    QLineEdit* name = Find<QLineEdit>("m_pImageFileName");
    QPushButton* select = Find<QPushButton>("m_pSelectAnImage");

    void Load(Qt::Alignment alignment) {
        HBSignWidget::Params params;
        params.alignment = alignment;
        panel.SetValue(params);
    }
    int Alignment() const { return int(panel.GetValue().alignment); }
    QPoint Rows() const { return {horizontal->currentIndex(), vertical->currentIndex()}; }
};

/// Answers in place of the file dialog, and writes down what it was asked.
struct Chooser {
    explicit Chooser(const QString& answer) {
        KMFileDialog::SetChooser(
            [this, answer](const QString& title, const QString& folder, const QString& filter) {
                asked += title + '|' + folder + '|' + filter;
                return answer;
            });
    }
    ~Chooser() { KMFileDialog::SetChooser(nullptr); }
    QStringList asked;
};

} // namespace

class tst_HBSignWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() {
        QStandardPaths::setTestModeEnabled(true);
        QCoreApplication::setOrganizationName("AdjustmentPanelsTest");
        QCoreApplication::setApplicationName("tst_HBSignWidget");
    }

    void alignment() {
        const struct {
            int flags;
            QPoint rows;
        } cases[] = {{Qt::AlignLeft | Qt::AlignTop, {0, 0}},
                     {Qt::AlignRight | Qt::AlignBottom, {2, 2}},
                     {Qt::AlignCenter, {1, 1}},
                     {0, {0, 0}},
                     {Qt::AlignLeft | Qt::AlignRight | Qt::AlignBottom, {0, 2}},
                     {Qt::AlignHCenter | Qt::AlignRight, {1, 0}},
                     {Qt::AlignVCenter | Qt::AlignBottom, {0, 1}},
                     {Qt::AlignJustify | Qt::AlignBaseline, {0, 0}},
                     {-1, {0, 0}}};
        Fixture f;
        for (const auto& row : cases) {
            f.Load(Qt::AlignRight | Qt::AlignBottom);
            f.Load(Qt::Alignment(QFlag(row.flags)));
            QCOMPARE(f.Rows(), row.rows);
            QCOMPARE(f.Alignment(), row.flags); // kept as it is
            QCOMPARE(f.recorder.Take(), QStringList());
        }
    }

    /// A choice replaces its own bits and keeps all others.
    void alignmentsByHand() {
        Fixture f;
        f.Load(Qt::Alignment(QFlag(0x7fffffff)));
        const struct {
            QComboBox* combo;
            int row;
            int flags;
        } choices[] = {{f.horizontal, 1, 0x7fffffe4},  {f.horizontal, 2, 0x7fffffe2},
                       {f.horizontal, 0, 0x7fffffe1},  {f.vertical, 1, 0x7ffffe81},
                       {f.vertical, 2, 0x7ffffe41},    {f.vertical, 0, 0x7ffffe21},
                       {f.horizontal, -1, 0x7ffffe21}, {f.vertical, -1, 0x7ffffe21}};
        for (const auto& choice : choices) {
            choice.combo->setCurrentIndex(choice.row);
            QCOMPARE(f.Alignment(), choice.flags);
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
        }
    }

    void modes() { HBVerifyModes<Panel>(); }
    void chooseAFile() {
        const QTemporaryDir folder;
        KMApplication::SetPathOpen(folder.path());
        const QString filter = KMImageFileManager::GetFilterForRead();
        QVERIFY(filter.contains("*.png"));
        Fixture f;
        {
            Chooser cancelled{QString()};
            f.select->click();
            QCOMPARE(cancelled.asked, QStringList("Select an image|" + folder.path() + '|' + filter));
            QCOMPARE(f.recorder.Take(), QStringList());
            QVERIFY(f.panel.GetValue().fileName.isNull());
        }
        const QString chosen = "/no/such/folder/logo.png";
        for (const QString& start : {folder.path(), QString("/no/such/folder")}) {
            Chooser chooser(chosen);
            f.select->click(); // the second time the same file once more
            QCOMPARE(chooser.asked, QStringList("Select an image|" + start + '|' + filter));
            QCOMPARE(f.panel.GetValue().fileName, chosen);
            QCOMPARE(f.name->text(), chosen);
            QCOMPARE(f.recorder.Take(), HBClosingCalls());
        }
    }

    void destroyedInTheDialog() {
        auto panel = std::make_unique<HBSignWidget>(nullptr, Qt::WindowFlags());
        KMFileDialog::SetChooser([&](const QString&, const QString&, const QString&) {
            panel.reset();
            return QString("logo.png");
        });
        QVERIFY(QMetaObject::invokeMethod(panel.get(), "OnSelectFileName"));
        QVERIFY(!panel);
        KMFileDialog::SetChooser(nullptr);
    }
};

HB_TEST_MAIN(tst_HBSignWidget)
#include "tst_HBSignWidget.moc"
