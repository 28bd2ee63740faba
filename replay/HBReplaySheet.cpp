// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplaySheet.h"

#include "HBContactSheet.h"
#include "HBFileNames.h"
#include "HBInterrupt.h"
#include "HBReplayLog.h"
#include "HBReplayWords.h"

#include <HBAdjustment.h>
#include <HBRecipe.h>

#include <QFileInfo>

#include <cstdio>
#include <new>
#include <unistd.h>

namespace
{

bool Write(const QString& path, const HBImage<>& image, const HBReplayTarget& target,
           const HBPhotoOptions& options, QString* error)
{
    QString problem = HBReplayTarget::NameProblem(path);
    if (problem.isEmpty() && target.onConflict == HBReplayTarget::Fail && HBReplayTarget::IsTaken(path))
        problem = HBReplayTarget::TakenProblem(path);
    if (!problem.isEmpty()) {
        *error = path + ": " + problem;
        return false;
    }
    if (!HBWritePhoto(path, image, options, error))
        return false;
    // Other programs get the very bytes.
    std::puts(qPrintable(isatty(STDOUT_FILENO) ? HBShownOnTerminal(path) : path));
    std::fflush(stdout); // an interrupt ends the process as it is
    return true;
}

/// The picture for the sheet.
HBContact Contact(const HBImage<>& image, const QString& label)
{
    const QImage thumbnail = HBThumbnail(image.ToQImage());
    if (thumbnail.isNull())
        throw std::bad_alloc();
    return {thumbnail, label};
}

/// Writes the photo adjusted as the adjustment's demonstration does it. False, with the error set, if that failed.
bool Demonstrate(const HBAdjustment& adjustment, const HBImage<>& image, const QString& path,
                 const HBReplayTarget& target, const HBPhotoOptions& options, QVector<HBContact>* contacts,
                 QString* error)
{
    try {
        HBRecipe recipe;
        if (!HBRecipe::Load(QString(":/recipes/%1.json").arg(adjustment.className), &recipe, error))
            return false;
        const HBImage<> adjusted = HBApplyRecipe(image, recipe, error, [](int) { return !HBIsInterrupted(); });
        if (adjusted.IsEmpty() || !Write(path, adjusted, target, options, error))
            return false;
        contacts->append(Contact(adjusted, adjustment.Title()));
        return true;
    } catch (const std::bad_alloc&) {
        *error = path + ": " + HBReplayWords::tr("there is not enough memory");
        return false;
    }
}

} // namespace

int HBReplaySheet(const QString& photo, const HBReplayTarget& target, const HBPhotoOptions& chosen)
{
    HBPhoto original;
    QString error;
    const auto isWanted = [] { return !HBIsInterrupted(); };
    if (!HBReadPhoto(photo, &original, &error, isWanted)) {
        if (!HBIsInterrupted())
            HBPrintError(error);
        return 1;
    }
    HBPhotoOptions options = chosen;
    options.mayWrite = [&](const QByteArray&) { return isWanted(); };
    for (const QString& warning : original.warnings)
        HBPrintError(photo + ": " + warning);
    const QString name = QFileInfo(photo).fileName();
    int failed = 0;
    QVector<HBContact> contacts{Contact(original.image, HBReplayWords::tr("Original"))};
    HBReplayLog log(HBAdjustments().size());
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        if (HBIsInterrupted())
            return failed + 1;
        error.clear();
        const QString path = target.PathFor(name, QString("-") + adjustment.className);
        if (Demonstrate(adjustment, original.image, path, target, options, &contacts, &error)) {
            log.FileDone(path);
        } else if (HBIsInterrupted()) {
            return failed + 1;
        } else {
            log.Message(error);
            ++failed;
        }
    }
    HBReplayTarget png = target;
    png.suffix = "png";
    const HBImage<> sheet = HBImage<>::FromQImage(HBContactSheet(contacts));
    if (!Write(png.PathFor(name, "-contact-sheet"), sheet, png, options, &error) && !HBIsInterrupted()) {
        log.Message(error);
        ++failed;
    }
    return failed;
}
