// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayPlan.h"

#include <KMImageFileManager.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace
{

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(PanelReplay)
};

} // namespace

QString HBReplayTarget::PathFor(const QString& input, const QString& addition) const
{
    const QFileInfo info(input);
    const QString ending = suffix.isEmpty() ? info.suffix() : suffix;
    return QDir(folder).filePath(info.completeBaseName() + addition + '.' + ending);
}

QString HBReplayTarget::ProblemOf(const QString& output) const
{
    const QFileInfo info(output);
    if (!KMImageFileManager::SuffixesForWrite().contains(info.suffix().toLower()))
        return Text::tr("files of this kind cannot be written; choose another with --format");
    if (!overwrite && (info.exists() || info.isSymLink()))
        return Text::tr("%1 is there already; replace it with --overwrite").arg(output);
    return {};
}

QVector<HBReplayTask> HBPlanReplay(const QStringList& inputs, const HBReplayTarget& target)
{
    QVector<HBReplayTask> tasks;
    QHash<QString, QString> writers; // output → input
    for (const QString& input : inputs) {
        HBReplayTask task{input, target.PathFor(input), {}};
        task.problem = target.ProblemOf(task.output);
        if (writers.contains(task.output))
            task.problem = Text::tr("%1 is written from %2 already").arg(task.output, writers[task.output]);
        if (task.problem.isEmpty())
            writers.insert(task.output, input);
        tasks.append(task);
    }
    return tasks;
}
