// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Memory that fails, and threads that do not start, at every moment of a whole work: the outcome must be the right
// picture or an error that says why, and the process must live. For builds without a sanitizer: those have
// their own malloc.
//
// attack_memory [SECONDS [SEED [WORK]]]: 60 unless told, and all works or those whose names begin so.
#include "HBAttackWork.h"
#include "HBFuzz.h"
#include "HBTestImages.h"
#include "HBTestRecords.h"

#include <HBAdjustmentWidget.h>
#include <HBDocument.h>
#include <HBEditorApplication.h>
#include <HBPanelCatalog.h>
#include <HBParallel.h>
#include <HBPhotoFile.h>
#include <HBQtImage.h>
#include <HBRecipe.h>
#include <HBScaled.h>
#include <HBThumbnail.h>
#include <HBTilePainter.h>

#include <QDir>
#include <QElapsedTimer>
#include <QRunnable>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QThread>
#include <QThreadPool>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <exception>
#include <execinfo.h>
#include <malloc.h>
#include <memory>
#include <new>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <utility>

namespace {

using Where = HBFailing;
enum class What { Once, Again, Ever, Threads }; ///< Again: that call, as many later, and so on

std::atomic<Where> where{Where::Nowhere};
std::atomic<What> what{What::Once};
std::atomic<long> calls{0};
std::atomic<long> failing{-1}; ///< number of the call that fails
thread_local bool isMainThread = false;
std::atomic<int> attempts{0};
std::atomic<int> roomInBlock{0};
thread_local int room = 0;       ///< calls that go well after much has been freed
thread_local int roomOf = 0;     ///< the attempt that freed it
thread_local int starting = 0;   ///< calls that go well in the first steps of a thread
thread_local void* failedAt[30]; ///< the calls that led to the last failure
thread_local int failedDepth = 0;

bool Fails(bool thread = false) {
    if (starting > 0) return --starting, false;
    const Where place = where.load(std::memory_order_relaxed);
    if (place == Where::Nowhere || (place == Where::OutsideMainThread && isMainThread && !thread)) return false;
    const What kind = what;
    if (thread != (kind == What::Threads)) return false;
    if (!thread && room > 0 && roomOf == attempts) return --room, false;
    const long call = calls++;
    const long first = failing;
    if (first < 0) return false;
    if (kind == What::Once ? call != first : kind == What::Again ? (call + 1) % (first + 1) != 0 : call < first)
        return false;
    failedDepth = backtrace(failedAt, int(std::size(failedAt)));
    return true;
}

bool IsQt(const void* caller) {
    Dl_info library;
    return dladdr(caller, &library) && std::strstr(library.dli_fname, "libQt");
}

} // namespace

HBCalm::HBCalm() : m_Before(where.exchange(Where::Nowhere)) {}
HBCalm::~HBCalm() { where = m_Before; }
void HBEndFailing() { where = Where::Nowhere; }

extern "C" {
void __libc_free(void*);
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);

void* malloc(std::size_t size) {
    if (Fails()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    if (Fails()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
    if (Fails()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_realloc(memory, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) {
    if (Fails()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_memalign(alignment, size);
}
int posix_memalign(void** memory, std::size_t alignment, std::size_t size) {
    if (Fails()) return ENOMEM;
    *memory = __libc_memalign(alignment, size);
    return *memory ? 0 : ENOMEM;
}
void* mmap(void* address, std::size_t size, int protection, int flags, int file, off_t offset) {
    if (Fails()) {
        errno = ENOMEM;
        return MAP_FAILED;
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr): how the kernel gives an address
    return reinterpret_cast<void*>(syscall(SYS_mmap, address, size, protection, flags, file, offset));
}
void free(void* memory) {
    if (memory && malloc_usable_size(memory) >= 1 << 18) {
        room = roomInBlock;
        roomOf = attempts;
    }
    __libc_free(memory);
}
int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*), void* argument) {
    // Qt's start right behind one of ours that went well (HBTryStart) goes well, too.
    thread_local bool tried = false;
    const bool isQt = IsQt(__builtin_return_address(0));
    if (!(std::exchange(tried, false) && isQt) && Fails(true)) return EAGAIN;
    tried = !isQt;
    using Run = void* (*)(void*);
    using Create = int (*)(pthread_t*, const pthread_attr_t*, Run, void*);
    static const Create create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    struct Start {
        Run run;
        void* argument;
    };
    const HBCalm calm;
    std::unique_ptr<Start> start(new (std::nothrow) Start{run, argument});
    if (!start) return EAGAIN;
    const int error = create(
        thread, attributes,
        [](void* given) {
            starting = 150;
            const std::unique_ptr<Start> own(static_cast<Start*>(given));
            return own->run(own->argument);
        },
        start.get());
    if (error == 0) static_cast<void>(start.release()); // the thread has it
    return error;
}
}

namespace {

constexpr int Threads = 3;
int wrong = 0;
long tried = 0, failed = 0;
char now[200]; ///< what is tried, for HangsNow

/// Of a signal: takes no memory.
void HangsNow(int) {
    HBEndFailing();
    static const char text[] = "WRONG: does not come to an end: ";
    if (write(2, text, sizeof text - 1) >= 0 && write(2, now, std::strlen(now)) >= 0) std::abort();
    std::abort();
}

/// The jobs' and the one in which Qt converts and scales, which with Qt 5 are the same.
std::array<QThreadPool*, 2> Pools() { return {&HBThreadPool(), QThreadPool::globalInstance()}; }

/// By then the stack that threw is unwound.
[[noreturn]] void TellWhereItFailed() {
    HBEndFailing();
    std::fprintf(stderr, "WRONG: ends the process: %safter a failure in\n", now);
    backtrace_symbols_fd(failedAt, failedDepth, 2);
    std::abort();
}

/// Runs something on so many threads of the pool at once, and waits until they are at rest.
void UseThreads(QThreadPool* pool, int count) {
    QSemaphore begun, end;
    for (int i = 0; i < count; ++i) {
        pool->start(QRunnable::create([&] {
            begun.release();
            end.acquire();
        }));
    }
    begun.acquire(count);
    end.release(count);
    while (pool->activeThreadCount() > 0) QThread::usleep(50);
}

/// Qt ends the process if one of its threads gets no memory in its first steps: these stay. Nor may the list of
/// those at rest, which by one coming and going after the other becomes as long as it ever will.
void StartThreads() {
    for (QThreadPool* pool : Pools()) {
        pool->setExpiryTimeout(-1);
        UseThreads(pool, Threads);
        for (int i = 0; i < 30; ++i) UseThreads(pool, 1);
    }
}

void Attack(const HBAttackWork& work, qint64 milliseconds, QRandomGenerator& random) {
    HBEndFailing();
    roomInBlock = work.room;
    const HBAttackResult right = work.run();
    if (!right.error.isEmpty()) HBFuzzFail(work.name + ": " + right.error);
    for (const What kind : {What::Once, What::Again, What::Ever, What::Threads}) {
        if (kind != What::Threads) {
            if (!work.isMemoryOurs) continue;
            StartThreads();
        }
        const auto attempt = [&](long moment) {
            if (kind == What::Threads) {
                // A thread that is idle is used again: none would be created.
                for (QThreadPool* pool : Pools()) pool->setExpiryTimeout(0);
                QThread::msleep(3);
            }
            std::snprintf(now, sizeof now, "%s, call %ld, kind %d\n", qPrintable(work.name), moment, int(kind));
            alarm(120);
            what = kind;
            failing = moment;
            calls = 0;
            ++attempts;
            where = work.place;
            const HBAttackResult result = work.run();
            HBEndFailing();
            alarm(0);
            return result;
        };
        attempt(-1);
        const long count = calls;
        QElapsedTimer time;
        time.start();
        // All moments if they are few, otherwise as many as there is time for.
        for (long i = 0; i < count && (i < 3 || time.elapsed() < milliseconds / 4); ++i, ++tried) {
            const long moment = count < 20 ? i : random.bounded(int(count));
            const HBAttackResult result = attempt(moment);
            failed += !result.error.isEmpty();
            if (!result.error.isEmpty() || result.image == right.image) continue;
            ++wrong;
            std::fprintf(stderr, "WRONG: %s, call %ld of %ld, kind %d: neither the right picture nor an error\n",
                         qPrintable(work.name), moment, count, int(kind));
            backtrace_symbols_fd(failedAt, failedDepth, 2); // of this thread
        }
    }
}

HBAttackResult RunPanel(const HBPanelEntry& entry, const HBTarget& target) {
    std::unique_ptr<HBAdjustmentWidget> panel;
    {
        const HBCalm calm;
        panel.reset(entry.create(false, nullptr));
        entry.set(*panel, HBDemonstration(*entry.adjustment));
    }
    panel->SetImage(target.source, target.selection, target.offset, target.bounds);
    if (!HBComesTrue([&] { return !panel->IsProcessing(); }))
        HBFuzzFail(QString("%1 does not come to rest").arg(entry.className));
    HBEndFailing();
    return {panel->AdjustedImage().ToQImage(), panel->HasJobFailed() ? "failed" : QString()};
}

/// The photo of the editor and its steps: both must be there whatever becomes of the result.
HBAttackResult RunDocument(const HBPhoto& photo, const QVector<HBRecipeStep>& steps) {
    QString error;
    HBDocument document;
    QObject::connect(&document, &HBDocument::Failed, [&](const QString& reason) { error = reason; });
    document.SetPhoto("photo.png", photo);
    document.SetSteps(steps, "Steps");
    if (!HBComesTrue([&] { return document.Result().IsUpToDate() || !error.isEmpty(); }))
        HBFuzzFail("The editor does not come to rest");
    HBEndFailing();
    HBFuzzCheck(document.AllSteps() == steps && document.Original().IsSameAs(photo.image),
                "The editor has lost the photo or its steps");
    return {document.Image().ToQImage(), error};
}

bool IsOneOf(const HBAdjustment& adjustment, const QStringList& names) {
    return names.contains(adjustment.className);
}

} // namespace

int main(int argc, char** argv) {
    isMainThread = true;
    std::signal(SIGALRM, HangsNow);
    std::set_terminate(TellWhereItFailed);
    backtrace(failedAt, 1); // the first one loads a library
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const HBEditorApplication application(argc, argv);
    const int seconds = argc > 1 ? std::atoi(argv[1]) : 60;
    QRandomGenerator random(argc > 2 ? quint32(std::atoi(argv[2])) : 1);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    for (QThreadPool* pool : Pools()) pool->setMaxThreadCount(Threads);
    const auto testTarget = [](bool selected) {
        HBTarget target = HBTestTarget({300, 200}, selected);
        target.source.AddElement(
            new KMEXIFElement{"Exif.Image.Make", 2, QByteArray("Maker", 6)}); // copies take memory
        return target;
    };
    QVector<HBAttackWork> works;
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        const std::any record = HBDemonstration(adjustment);
        for (const bool selected : {false, true}) {
            const HBTarget target = testTarget(selected);
            works.append({QString("core %1 %2").arg(adjustment.className).arg(selected), Where::Everywhere,
                          [=] {
                              const HBOutcome outcome = HBRun(adjustment, record, target);
                              const HBCalm calm;
                              return HBAttackResult{outcome.image.ToQImage(), HBFailureReason(outcome)};
                          },
                          !IsOneOf(adjustment, {"HBWatermarkWidget"})});
        }
    }
    QVector<HBRecipeStep> steps;
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (!IsOneOf(adjustment, {"HBSignWidget", "HBWatermarkWidget"}))
            steps += HBStepOf(adjustment, HBDemonstration(adjustment));
    }
    const HBTarget whole = testTarget(false);
    works.append({"recipe", Where::Everywhere, [=] {
                      QString error;
                      const HBImage<> image = HBApplyRecipe(whole, {steps}, &error, nullptr);
                      const HBCalm calm;
                      return HBAttackResult{image.ToQImage(), error};
                  }});
    for (const HBPanelEntry& entry : HBPanelCatalog()) {
        if (!entry.draw)
            works.append({QString("panel ") + entry.className, Where::OutsideMainThread,
                          [&entry, whole] { return RunPanel(entry, whole); }});
    }
    HBPhoto opened;
    opened.image = whole.source;
    QVector<HBRecipeStep> inPart = steps;
    inPart[0].amount = 50;
    inPart[1].selection.shapes = {HBShape::OfPixels(HBShape::Kind::Ellipse, {20, 30, 200, 100}, 5, {300, 200})};
    works.append({"document", Where::OutsideMainThread, [=] { return RunDocument(opened, inPart); }});
    const QImage large = HBTestRamp(700, 400).ToQImage();
    works.append({"image", Where::Everywhere, [large] {
                      try {
                          return HBAttackResult{
                              HBScaled(HBConverted(large, QImage::Format_ARGB32_Premultiplied), {60, 30}), {}};
                      } catch (const std::exception&) {
                          const HBCalm calm;
                          return HBAttackResult{{}, "failed"};
                      }
                  }});
    const QTemporaryDir folder;
    qputenv("XDG_CACHE_HOME", folder.path().toLocal8Bit());
    const QString largeFile = folder.filePath("large.png");
    large.save(largeFile);
    works.append({"thumbnail", Where::Everywhere,
                  [largeFile] {
                      {
                          const HBCalm calm;
                          QFile::remove(HBThumbnailPath(largeFile));
                      }
                      const QImage thumbnail = HBThumbnail(largeFile);
                      const HBCalm calm;
                      return HBAttackResult{thumbnail, thumbnail.isNull() ? "none" : QString()};
                  },
                  false});
    works.append({"view", Where::OutsideMainThread,
                  [large] {
                      HBTilePainter painter;
                      painter.SetImage(HBImage<>::FromQImage(large));
                      painter.SetLook({nullptr, true});
                      return HBAttackResult{painter.ToImage(large.rect(), 0.3), {}};
                  },
                  false}); // without memory a view has holes
    for (const char* format : {"png", "jpg", "tif", "webp", "bmp"}) {
        const QString path = folder.filePath(QString("%1/photo.%1").arg(format));
        QDir(folder.path()).mkdir(format);
        const auto file = std::make_shared<HBSavedFile>(HBSavedFile{"what was there", {}});
        const bool holdsMetadata = qstrcmp(format, "bmp") != 0;
        const HBImage<> source = holdsMetadata ? whole.source : HBTestTarget({300, 200}, false).source;
        works.append({QString("photo ") + format, Where::Everywhere,
                      [=] {
                          QString error;
                          HBPhoto photo;
                          HBPhotoOptions options;
                          options.quality = 100;
                          QStringList warnings;
                          file->Restore(path);
                          const bool isWritten = HBWritePhoto(path, source, options, &error, &warnings);
                          file->Check(path, isWritten);
                          if (!isWritten || !HBReadPhoto(path, &photo, &error)) return HBAttackResult{{}, error};
                          const HBCalm calm;
                          const QString told = photo.warnings.join(' ') + warnings.join(' ');
                          const bool isLost = holdsMetadata && photo.image.Elements().isEmpty();
                          if (isLost && qstrcmp(format, "png") != 0) // Exiv2 loses a PNG's without a word
                              return HBAttackResult{{}, told};
                          return HBAttackResult{photo.image.ToQImage(), told};
                      },
                      qstrcmp(format, "tif") != 0});
    }
    works += HBSessionWorks() + HBEditorWorks();
    const QString wanted = argc > 3 ? argv[3] : "";
    works.erase(std::remove_if(works.begin(), works.end(),
                               [&](const HBAttackWork& work) { return !work.name.startsWith(wanted); }),
                works.end());
    for (const HBAttackWork& work : works) Attack(work, seconds * 1000LL / works.size(), random);
    std::printf("%ld failures of memory and threads in %d works: %ld ended with an error, %d wrong\n", tried,
                int(works.size()), failed, wrong);
    return wrong ? 1 : 0;
}
