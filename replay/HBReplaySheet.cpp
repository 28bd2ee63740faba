// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplaySheet.h"

#include "HBContactSheet.h"
#include "HBInterrupt.h"
#include "HBReplayLog.h"

#include <HBPanelCatalog.h>
#include <HBRecipe.h>

#include <QCoreApplication>

#include <cstdio>

namespace
{

QString Translated(const char* text)
{
    return QCoreApplication::translate("PanelReplay", text);
}

bool Write(const QString& path, const HBImage<>& image, const HBReplayTarget& target,
           const HBPhotoOptions& options, QString* error)
{
    const QString problem = target.ProblemOf(path);
    if (!problem.isEmpty()) {
        *error = path + ": " + problem;
        return false;
    }
    if (!HBWritePhoto(path, image, options, error))
        return false;
    std::puts(qPrintable(path));
    return true;
}

/// The photo adjusted as the panel's demonstration does it; empty, with the error set, if that failed.
HBImage<> Demonstrate(const HBPanelEntry& panel, const HBImage<>& image, QString* error)
{
    HBRecipe recipe;
    if (!HBRecipe::Load(QString(":/recipes/%1.json").arg(panel.className), &recipe, error))
        return {};
    return HBApplyRecipe(image, recipe, error);
}

} // namespace

int HBReplaySheet(const QString& photo, const HBReplayTarget& target, const HBPhotoOptions& options)
{
    HBPhoto original;
    QString error;
    if (!HBReadPhoto(photo, &original, &error)) {
        HBPrintError(error);
        return 1;
    }
    int failed = 0;
    QVector<HBContact> contacts{{HBThumbnail(original.image.ToQImage()), Translated("Original")}};
    HBReplayLog log(HBPanelCatalog().size());
    for (const HBPanelEntry& panel : HBPanelCatalog()) {
        if (HBIsInterrupted())
            return failed + 1;
        error.clear();
        const QString path = target.PathFor(photo, QString("-") + panel.className);
        const HBImage<> adjusted = Demonstrate(panel, original.image, &error);
        if (!error.isEmpty() || !Write(path, adjusted, target, options, &error)) {
            log.Message(error);
            ++failed;
            continue;
        }
        contacts.append({HBThumbnail(adjusted.ToQImage()), panel.Title()});
        log.FileDone(path);
    }
    HBReplayTarget png = target;
    png.suffix = "png";
    const HBImage<> sheet = HBImage<>::FromQImage(HBContactSheet(contacts));
    if (!Write(png.PathFor(photo, "-contact-sheet"), sheet, png, options, &error)) {
        log.Message(error);
        ++failed;
    }
    return failed;
}
