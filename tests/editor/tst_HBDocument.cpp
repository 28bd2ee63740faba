// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "../photo/HBTestFiles.h"
#include "HBTestMain.h"

#include <HBDocument.h>
#include <HBRecovery.h>
#include <HBTestImages.h>
#include <HBTestRecords.h>
#include <KMTileManager64.h>

#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

namespace {

HBRecipeStep Step(const char* panel) {
    const HBAdjustment& adjustment = *HBFindAdjustment(panel);
    return HBStepOf(adjustment, HBDemonstration(adjustment));
}

HBDocument::Steps Steps(int count) {
    const char* const panels[] = {"HBLevelsWidget", "HBTintWidget", "HBHueSaturationWidget", "HBWBWidget"};
    HBDocument::Steps steps;
    for (int i = 0; i < count; ++i) steps.append(Step(panels[i % 4]));
    return steps;
}

HBShape Ellipse() { return HBShape::OfPixels(HBShape::Kind::Ellipse, {20, 30, 100, 80}, 10, {300, 200}); }

void Open(HBDocument* document, const QString& path = "/photos/a.png", const QSize& size = {300, 200}) {
    HBPhoto photo;
    photo.image = HBTestRamp(size.width(), size.height());
    document->SetPhoto(path, photo);
}

/// What the core makes of all steps at once.
QImage ByCore(const HBDocument& document) {
    QString error;
    const HBImage<> image = HBApplyRecipe(document.Original(), {document.AllSteps()}, &error);
    if (!error.isEmpty()) qWarning("%s", qPrintable(error));
    return image.ToQImage();
}

#define VERIFY_RESULT(document)                                                                                   \
    QTRY_VERIFY((document).Result().IsUpToDate());                                                                \
    QCOMPARE((document).Image().ToQImage(), ByCore(document))

/// A change of the stack, or in an open panel, the same for the same numbers.
/// \param panel as HBRecovery::SetPanel
void ChangeAtRandom(HBDocument* document, const std::function<void(const HBRecipeStep&, int)>& panel,
                    QRandomGenerator& random) {
    const int count = document->StepCount();
    if (random.bounded(3) == 0) return panel(Steps(4).at(random.bounded(4)), random.bounded(count + 1) - 1);
    panel({}, -1);
    switch (count < 3 ? 0 : random.bounded(5)) {
    case 0:
        return document->Append({Steps(4).at(random.bounded(4))}, "append");
    case 1:
        return document->SetOn(1, !document->StepAt(1).on);
    case 2:
        return document->Move(0, 2);
    case 3:
        return document->Remove(random.bounded(count));
    default:
        document->History().undo();
    }
}

/// Changes a stack again and again, and says so after each, until it is killed.
int Victim(const QString& folder, const QString& photo, quint32 seed) {
    HBDocument document;
    HBRecovery recovery(folder, &document);
    Open(&document, photo, {16, 16});
    for (QRandomGenerator random(seed);;) {
        ChangeAtRandom(
            &document, [&](const HBRecipeStep& step, int opened) { recovery.SetPanel(step, opened); }, random);
        QCoreApplication::processEvents();
        std::putchar('.');
        std::fflush(stdout);
    }
}

} // namespace

class TestHBDocument : public QObject {
    Q_OBJECT
private Q_SLOTS:
    /// Each change gives what the core gives of the whole stack, and is undone and redone.
    void everyChangeOfTheStack() {
        HBDocument document;
        document.Append(Steps(1), "nothing is open");
        QVERIFY(!document.IsOpen() && document.Image().IsEmpty());
        Open(&document);
        QVERIFY(!document.History().canUndo() && !document.IsModified());
        const std::function<void()> changes[] = {
            [&] { document.Append(Steps(4), "four"); },
            [&] { document.Move(3, 0); },
            [&] { document.Move(1, 2); },
            [&] { document.SetOn(1, false); },
            [&] { document.SetAmount(2, 40); },
            [&] { document.Duplicate(2); },
            [&] {
                HBRecipeStep step = document.StepAt(0);
                step.selection.shapes = {Ellipse()};
                document.Replace(0, step);
            },
            [&] { document.Remove(1); },
            [&] { document.SetOn(0, false); },
            [&] { document.SetSteps({}, "none"); },
        };
        QVector<HBDocument::Steps> stacks{{}};
        for (const auto& change : changes) {
            change();
            QVERIFY(document.AllSteps() != stacks.last());
            QCOMPARE(document.IsModified(), document.StepCount() > 0);
            stacks.append(document.AllSteps());
            VERIFY_RESULT(document);
        }
        QCOMPARE(document.History().count(), stacks.size() - 1);
        for (int i : {9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 1, 2, 7, 4, 9}) {
            document.History().setIndex(i);
            QCOMPARE(document.AllSteps(), stacks.at(i));
            VERIFY_RESULT(document);
        }
        QCOMPARE(document.Original().ToQImage(), HBTestRamp(300, 200).ToQImage());
        for (const int none : {-1, 100}) { // ignored
            document.Move(0, none);
            document.SetOn(none, true);
            document.SetAmount(none, 1);
            document.Duplicate(none);
            document.Remove(none);
        }
        QCOMPARE(document.AllSteps(), stacks.at(9));
        QCOMPARE(document.History().index(), 9);
    }

    void amountsOfOneGestureAreOneEntry() {
        HBDocument document;
        Open(&document);
        document.Append(Steps(2), "two");
        for (int amount = 99; amount >= 20; --amount) document.SetAmount(1, amount);
        QCOMPARE(document.History().count(), 2);
        VERIFY_RESULT(document);
        document.SetAmount(0, 50);
        QCOMPARE(document.History().count(), 3);
        document.History().undo();
        QCOMPARE(document.StepAt(0).amount, 100);
        QCOMPARE(document.StepAt(1).amount, 20);
    }

    void modifiedMeansOtherThanTheFile() {
        HBDocument document;
        Open(&document);
        document.Append(Steps(1), "one");
        document.History().undo();
        QVERIFY(!document.IsModified());
        document.History().redo();
        document.SetSaved("/photos/b.jpg");
        QCOMPARE(document.FileName(), QString("b.jpg"));
        QVERIFY(!document.IsModified());
        QCOMPARE(document.SavedSteps().size(), 1);
        document.History().undo();
        QVERIFY(document.IsModified());
        document.Append(Steps(2).mid(1), "other"); // the saved state is lost, though this one has its number
        QVERIFY(document.IsModified());
        document.SetOn(0, false);
        QVERIFY(document.Recipe().steps.isEmpty());
    }

    /// A step that cannot be made loses nothing, and can be taken back.
    void withoutAResult() {
        HBDocument document;
        Open(&document);
        document.Append(Steps(1), "one");
        VERIFY_RESULT(document);
        const QImage before = document.Image().ToQImage();
        QString reason;
        connect(&document, &HBDocument::Failed, this, [&](const QString& text) { reason = text; });
        document.Append({HBRecipeStep{"HBFoo", {}}}, "unknown");
        QTRY_VERIFY(!reason.isEmpty());
        QVERIFY2(reason.contains("HBFoo"), qPrintable(reason));
        QVERIFY(!document.Result().IsUpToDate());
        QCOMPARE(document.Image().ToQImage(), before);
        document.History().undo();
        VERIFY_RESULT(document);
    }

    /// Twenty steps, changed here and there, take at most half as much more than one.
    void memory() {
        HBDocument document;
        Open(&document, "/photos/a.png", {1000, 900});
        const auto tiles = [&] {
            // All that are alive: what is kept is nobody's business.
            return KMTileManager64::Instance().CurrentUsage().resident;
        };
        const qint64 before = tiles() - qint64(document.Original().Tiles().size()) * KMTileManager64::TileBytes;
        document.Append(Steps(1), "one");
        VERIFY_RESULT(document);
        const qint64 one = tiles() - before;
        for (int i = 1; i < 20; ++i) {
            document.Append({Steps(4).at(i % 4)}, "next");
            VERIFY_RESULT(document);
        }
        for (const int step : {19, 3, 10}) {
            document.SetAmount(step, 50);
            VERIFY_RESULT(document);
            QVERIFY2(tiles() - before <= one * 3 / 2, qPrintable(QString("%1 %2").arg(tiles() - before).arg(one)));
        }
    }

    // ---- After a crash ----

    void onlyWhatIsNotSavedIsKept() {
        const QTemporaryDir folder;
        const QString photo = folder.filePath("a.png");
        QVERIFY(HBTestRamp(16, 16).ToQImage().save(photo));
        const QString place = folder.filePath("deep/unsaved");
        const auto files = [&] { return QDir(place).entryList({"*.json", "*.lock"}, QDir::Files); };
        HBDocument document, mine;
        {
            HBRecovery recovery(place, &document), other(place, &mine);
            Open(&document, photo);
            QVERIFY(files().isEmpty());
            document.Append(Steps(2), "two");
            QCOMPARE(files().size(), 2);
            QVERIFY(other.FindLost().isEmpty()); // this one lives
            const QString copy = place + "/copy.json";
            const QByteArray kept = HBBytesOf(place + '/' + files().value(0));
            for (const bool ambiguous : {false, true}) {
                const QByteArray key = ambiguous ? "\"photo\": \"x\", \"photo\"" : "\"photo\"";
                QVERIFY(HBWriteBytes(copy, QByteArray(kept).replace("\"photo\"", key)));
                QCOMPARE(other.FindLost().isEmpty(), ambiguous);
            }
            QVERIFY(QFile::remove(copy));
            document.History().undo();
            QVERIFY(files().isEmpty());
            document.History().redo();
            document.SetSaved(photo);
            QVERIFY(files().isEmpty());
            document.Append(Steps(1), "one");
            QCOMPARE(files().size(), 2);
        }
        QVERIFY(files().isEmpty()); // a regular end
    }

    /// What of a lost stack fits the photo's file.
    void savedInBetween_data() {
        // opened: the step that a panel had opened; withPanel: which step of how many that becomes, and whether on
        HBColumns<int, int, int, bool, int, QVector<int>>("saved", "all", "left", "on", "opened", "withPanel");
        QTest::newRow("nothing") << 0 << 3 << 3 << true << -1 << QVector<int>{3, 4, 1};
        QTest::newRow("the first") << 1 << 3 << 2 << true << 2 << QVector<int>{1, 2, 1};
        QTest::newRow("the first, opened") << 1 << 3 << 2 << true << 0 << QVector<int>{2, 3, 0};
        QTest::newRow("others") << -1 << 3 << 3 << false << -1 << QVector<int>{3, 4, 0};
        QTest::newRow("others, opened") << -1 << 3 << 3 << false << 1 << QVector<int>{1, 3, 0};
    }
    void savedInBetween() {
        QFETCH(int, saved);
        QFETCH(int, all);
        QFETCH(QVector<int>, withPanel);
        HBLostStack lost;
        lost.steps = Steps(all);
        lost.saved = saved < 0 ? HBDocument::Steps{Step("HBExposureWidget")} : Steps(saved);
        const HBDocument::Steps left = lost.StepsForFile();
        QTEST(int(left.size()), "left");
        QTEST(left.first().on, "on");
        QCOMPARE(lost.StepsWithPanel(), left);
        lost.panel = Step("HBTemperatureWidget");
        QFETCH(int, opened);
        lost.opened = opened;
        const HBDocument::Steps more = lost.StepsWithPanel();
        QCOMPARE(int(more.size()), withPanel[1]);
        QCOMPARE(more.at(withPanel[0]).panel, lost.panel.panel);
        QCOMPARE(more.at(withPanel[0]).on, withPanel[2] != 0);
    }

    /// Killed a hundred times, at any moment: each time there is the stack, and what an open panel had changed,
    /// before the last change, or after it.
    void killed() {
        const QTemporaryDir folder;
        const QString photo = folder.filePath("a.png");
        QVERIFY(HBTestRamp(16, 16).ToQImage().save(photo));
        QFile file(photo);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        HBDocument none;
        const HBRecovery recovery(folder.filePath("unsaved"), &none);
        constexpr quint32 Kills = 100, AtOnce = 4;
        for (quint32 kill = 0; kill < Kills; kill += AtOnce) {
            std::vector<std::unique_ptr<QProcess>> victims;
            for (quint32 i = 0; i < AtOnce; ++i) {
                victims.push_back(std::make_unique<QProcess>());
                const QStringList arguments{"--victim", recovery.Folder(), photo, QString::number(kill + i)};
                victims.back()->start(QCoreApplication::applicationFilePath(), arguments);
            }
            QVector<HBLostStack> possible;
            for (quint32 i = 0; i < AtOnce; ++i) {
                QProcess& victim = *victims[i];
                QVERIFY(victim.waitForReadyRead(30000));
                QThread::usleep((kill + i) * 997 % 13000);
                victim.kill();
                QVERIFY(victim.waitForFinished());
                const int said = victim.readAllStandardOutput().size();
                HBDocument same;
                Open(&same, photo, {16, 16});
                QRandomGenerator random(kill + i);
                HBLostStack state;
                for (int change = 0; change <= said; ++change) { // and one that was not said any more
                    ChangeAtRandom(
                        &same,
                        [&](const HBRecipeStep& step, int opened) {
                            state.panel = step;
                            state.opened = opened;
                        },
                        random);
                    state.steps = same.AllSteps();
                    if (change + 1 >= said) possible.append(state);
                }
            }
            const QVector<HBLostStack> all = recovery.FindLost();
            QCOMPARE(all.size(), int(AtOnce));
            for (const HBLostStack& lost : all) {
                QCOMPARE(lost.photo, photo);
                QVERIFY(lost.IsSamePhoto());
                QVERIFY(std::any_of(possible.begin(), possible.end(), [&](const HBLostStack& state) {
                    return state.steps == lost.steps && state.panel == lost.panel && state.opened == lost.opened;
                }));
                HBRecovery::Forget(lost);
            }
            QVERIFY(QDir(recovery.Folder()).isEmpty());
        }
        QVERIFY(file.seek(0));
        QCOMPARE(file.readAll(), bytes);
    }
};

int main(int argc, char* argv[]) {
    if (argc == 5 && qstrcmp(argv[1], "--victim") == 0) {
        const QCoreApplication application(argc, argv);
        return Victim(argv[2], argv[3], QByteArray(argv[4]).toUInt());
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TestHBDocument test;
    return HBRunTest(&test, application.arguments());
}
#include "tst_HBDocument.moc"
