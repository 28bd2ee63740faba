// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBReplayNames.h"

#include "HBReplayWords.h"

#include <HBPhotoFile.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace
{

const QRegularExpression& Placeholder()
{
    static const QRegularExpression expression("\\{([^{}]*)\\}");
    return expression;
}

} // namespace

QString HBReplayTarget::PathFor(const QString& name, const QString& addition) const
{
    const QFileInfo info(name);
    const QString ending = suffix.isEmpty() ? info.suffix() : suffix;
    QString file;
    int end = 0; // one pass: a name may hold what looks like a placeholder
    for (QRegularExpressionMatchIterator found = Placeholder().globalMatch(pattern); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QString key = match.captured(1);
        file += pattern.mid(end, match.capturedStart() - end);
        file += key == "name" ? info.completeBaseName() : key == "recipe" ? recipe : ending;
        end = match.capturedEnd();
    }
    file += pattern.mid(end);
    if (!addition.isEmpty())
        file.insert(qMax(0, file.lastIndexOf('.')), addition);
    const QString inner = info.path() == "." ? QString() : info.path() + '/';
    return QDir(folder).filePath(inner + file);
}

QString HBReplayTarget::NameProblem(const QString& output)
{
    return HBCanWritePhoto(output)
               ? QString()
               : HBReplayWords::tr("files of this kind cannot be written; choose another with --format");
}

bool HBReplayTarget::IsTaken(const QString& output)
{
    const QFileInfo info(output);
    return info.exists() || info.isSymLink();
}

QString HBReplayTarget::TakenProblem(const QString& output)
{
    return HBReplayWords::tr("%1 is there already; replace it with --overwrite").arg(output);
}

QString HBReplayTarget::PatternProblem(const QString& pattern)
{
    for (QRegularExpressionMatchIterator found = Placeholder().globalMatch(pattern); found.hasNext();) {
        const QString key = found.next().captured(1);
        if (key != "name" && key != "recipe" && key != "ext")
            return HBReplayWords::tr("--name knows {name}, {recipe} and {ext}, not {%1}").arg(key);
    }
    return pattern.isEmpty() || pattern.contains('/')
               ? HBReplayWords::tr("--name must be the name of a file, without folders")
               : QString();
}
