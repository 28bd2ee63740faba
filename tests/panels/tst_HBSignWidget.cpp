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
    void initTestCase();
    void alignment_data();
    void alignment();
    void alignmentsByHand();
    void modes() { HBVerifyModes<Panel>(); }
    void margins() { HBVerifyMargins<Panel>(); }
    void opacity() { HBVerifyOpacity<Panel>(); }
    void noJob() { HBVerifyNoJob<Panel>(); }
    void names();
    void chooseAFile();
    void destroyedInTheDialog();
};

void tst_HBSignWidget::initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName("AdjustmentPanelsTest");
    QCoreApplication::setApplicationName("tst_HBSignWidget");
}

void tst_HBSignWidget::alignment_data() {
    QTest::addColumn<int>("flags");
    QTest::addColumn<QPoint>("rows");
    QTest::newRow("left top") << int(Qt::AlignLeft | Qt::AlignTop) << QPoint(0, 0);
    QTest::newRow("right bottom") << int(Qt::AlignRight | Qt::AlignBottom) << QPoint(2, 2);
    QTest::newRow("center") << int(Qt::AlignCenter) << QPoint(1, 1);
    QTest::newRow("none") << 0 << QPoint(0, 0);
    QTest::newRow("left and right") << int(Qt::AlignLeft | Qt::AlignRight | Qt::AlignBottom) << QPoint(0, 2);
    QTest::newRow("center and right") << int(Qt::AlignHCenter | Qt::AlignRight) << QPoint(1, 0);
    QTest::newRow("center and bottom") << int(Qt::AlignVCenter | Qt::AlignBottom) << QPoint(0, 1);
    QTest::newRow("justified, baseline") << int(Qt::AlignJustify | Qt::AlignBaseline) << QPoint(0, 0);
    QTest::newRow("all") << -1 << QPoint(0, 0);
}

void tst_HBSignWidget::alignment() {
    QFETCH(int, flags);
    QFETCH(QPoint, rows);
    Fixture f;
    f.Load(Qt::AlignRight | Qt::AlignBottom);
    f.Load(Qt::Alignment(QFlag(flags)));
    QCOMPARE(f.Rows(), rows);
    QCOMPARE(f.Alignment(), flags); // kept as it is
    QCOMPARE(f.recorder.Take(), QStringList());
}

/// A choice replaces its own bits and keeps all others.
void tst_HBSignWidget::alignmentsByHand() {
    Fixture f;
    f.Load(Qt::Alignment(QFlag(0x7fffffff)));
    const struct {
        QComboBox* combo;
        int row;
        int flags;
    } choices[] = {{f.horizontal, 1, 0x7fffffe4},  {f.horizontal, 2, 0x7fffffe2}, {f.horizontal, 0, 0x7fffffe1},
                   {f.vertical, 1, 0x7ffffe81},    {f.vertical, 2, 0x7ffffe41},   {f.vertical, 0, 0x7ffffe21},
                   {f.horizontal, -1, 0x7ffffe21}, {f.vertical, -1, 0x7ffffe21}};
    for (const auto& choice : choices) {
        choice.combo->setCurrentIndex(choice.row);
        QCOMPARE(f.Alignment(), choice.flags);
        QCOMPARE(f.recorder.Take(), HBClosingCalls());
    }
}

void tst_HBSignWidget::names() {
    Fixture f;
    for (const QString& name : {QString("a.png"), QString(""), QString(), QString("/x/%1.png")}) {
        HBSignWidget::Params params;
        params.fileName = name;
        f.panel.SetValue(params);
        QCOMPARE(f.panel.GetValue().fileName, name);
        QCOMPARE(f.panel.GetValue().fileName.isNull(), name.isNull());
        QCOMPARE(f.name->text(), name);
    }
    QCOMPARE(f.recorder.Take(), QStringList());
}

void tst_HBSignWidget::chooseAFile() {
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

void tst_HBSignWidget::destroyedInTheDialog() {
    auto panel = std::make_unique<HBSignWidget>(nullptr, Qt::WindowFlags());
    KMFileDialog::SetChooser([&](const QString&, const QString&, const QString&) {
        panel.reset();
        return QString("logo.png");
    });
    QVERIFY(QMetaObject::invokeMethod(panel.get(), "OnSelectFileName"));
    QVERIFY(!panel);
    KMFileDialog::SetChooser(nullptr);
}

HB_TEST_MAIN(tst_HBSignWidget)
#include "tst_HBSignWidget.moc"
