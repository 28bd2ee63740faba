// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// A long life in one process: recipes on pictures of any small size, panels opened, shown a picture and closed.
// Memory, descriptors, threads, widgets and timers must end where they were after the first 500 recipes.
//
// soak [RECIPES [PANELS [SEED]]]: 20,000 and 2,000 unless told.
#include "HBFuzz.h"
#include "HBTestRecords.h"

#include <HBAdjustmentWidget.h>
#include <HBPanelCatalog.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDir>

#include <cstdio>
#include <malloc.h>
#include <memory>
#include <unistd.h>

namespace {

constexpr int Beginning = 500; ///< recipes, after which all that is made once has been made
constexpr int Room = 12288;    ///< kB: caches of fonts and stamps, and pages that the allocator keeps in pieces
constexpr int LateRoom = 2048; ///< kB in the second half, when the caches are full

int EntriesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System | QDir::Hidden).size();
}

/// Of the application and of each widget with all that belongs to it.
int Timers() {
    QSet<QObject*> objects{qApp};
    for (QWidget* widget : QApplication::allWidgets()) {
        objects.insert(widget);
        for (QObject* child : widget->findChildren<QObject*>()) objects.insert(child);
    }
    int count = 0;
    for (QObject* object : qAsConst(objects))
        count += QAbstractEventDispatcher::instance()->registeredTimers(object).size();
    return count;
}

struct Holdings {
    long memory; ///< resident, kB
    int descriptors, threads, widgets, timers;

    static Holdings Now() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        malloc_trim(0);
        long all = 0, resident = 0;
        if (std::FILE* file = std::fopen("/proc/self/statm", "r")) {
            if (std::fscanf(file, "%ld %ld", &all, &resident) != 2) HBFuzzFail("no figure of the memory");
            std::fclose(file);
        }
        return {resident * (sysconf(_SC_PAGESIZE) / 1024), EntriesOf("/proc/self/fd"),
                EntriesOf("/proc/self/task"), int(QApplication::allWidgets().size()), Timers()};
    }
    void Print(int recipes, int panels) const {
        std::printf("%d recipes, %d panels: %ld kB, %d descriptors, %d threads, %d widgets, %d timers\n", recipes,
                    panels, memory, descriptors, threads, widgets, timers);
        std::fflush(stdout);
    }
};

HBTarget RandomTarget(QRandomGenerator& random) {
    return HBTestTarget({1 + random.bounded(300), 1 + random.bounded(200)}, random.bounded(2));
}

/// False for one that is refused.
bool RunRecipe(QRandomGenerator& random) {
    HBRecipe recipe;
    for (int i = 1 + random.bounded(3); i > 0; --i) {
        const HBAdjustment& adjustment = HBAdjustments()[random.bounded(HBAdjustments().size())];
        recipe.steps += HBStepOf(adjustment, HBRandomRecord(adjustment, random));
    }
    QString error;
    const HBImage<> result = HBApplyRecipe(RandomTarget(random), recipe, &error, nullptr);
    HBFuzzCheck(error.isEmpty() != result.IsEmpty(), "neither a picture nor an error: " + error);
    return error.isEmpty();
}

void RunPanel(const HBPanelEntry& entry, QRandomGenerator& random) {
    const std::unique_ptr<HBAdjustmentWidget> panel(entry.create(random.bounded(2), nullptr));
    const HBTarget target = RandomTarget(random);
    panel->show();
    panel->SetImage(target.source, target.selection, target.offset, target.bounds);
    entry.set(*panel, HBRandomRecord(*entry.adjustment, random));
    panel->ProcessNow();
    if (random.bounded(4) == 0) return; // in the middle of the job
    HBFuzzCheck(HBComesTrue([&] { return !panel->IsProcessing(); }),
                QString("%1 does not come to rest").arg(entry.className));
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const int recipes = argc > 1 ? std::atoi(argv[1]) : 20000, panels = argc > 2 ? std::atoi(argv[2]) : 2000;
    QRandomGenerator random(argc > 3 ? quint32(std::atoi(argv[3])) : 1);
    const int beginning = qMin(Beginning, recipes / 2);
    int opened = 0, refused = 0;
    Holdings first{}, middle{}, last{};
    for (int done = 1; done <= recipes; ++done) {
        refused += !RunRecipe(random);
        for (; opened < qint64(panels) * done / recipes; ++opened)
            RunPanel(HBPanelCatalog()[opened % HBPanelCatalog().size()], random);
        if (done % 2000 && done != beginning && done != recipes / 2 && done != recipes) continue;
        last = Holdings::Now();
        last.Print(done, opened);
        if (done == beginning) first = last;
        if (done == recipes / 2) middle = last;
    }
    HBFuzzCheck(last.descriptors <= first.descriptors, "descriptors are left open");
    HBFuzzCheck(last.threads <= first.threads, "threads are left");
    HBFuzzCheck(last.widgets <= first.widgets, "widgets are left");
    HBFuzzCheck(last.timers <= first.timers, "timers are left");
#ifndef SOAK_ANY_MEMORY // a sanitizer keeps what is freed for a while
    HBFuzzCheck(last.memory <= first.memory + Room, "memory grows");
    HBFuzzCheck(recipes < 10000 || last.memory <= middle.memory + LateRoom, "memory grows and grows");
#endif
    std::printf("%d recipes (%d refused), %d panels: %+ld kB since the first %d\n", recipes, refused, opened,
                last.memory - first.memory, beginning);
    return 0;
}
