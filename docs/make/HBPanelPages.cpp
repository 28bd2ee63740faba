// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// panel-pages DOCS README RECIPES [--check]: writes what docs/panels.md says of an adjustment's fields, record and
// cost, from the fields themselves, its demonstration and the figures of the README; or checks that it stands
// there.
// panel-pages --picture BEFORE AFTER RESULT: puts two pictures side by side.

#include <HBAdjustment.h>
#include <HBRecipe.h>

#include <QColor>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonDocument>
#include <QPainter>
#include <QRegularExpression>
#include <QTextStream>

#include <cmath>
#include <cstring>
#include <stdexcept>

namespace
{

struct Fault : std::runtime_error
{
    explicit Fault(const QString& text) : std::runtime_error(text.toStdString()) {}
};

QString Read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Fault(path + ": " + file.errorString());
    return QString::fromUtf8(file.readAll());
}

// ---- Fields ----

QString UnitName(HBUnit unit)
{
    switch (unit) {
    case HBUnit::None:
        return {};
    case HBUnit::Levels:
        return "levels of 0..255";
    case HBUnit::Degrees:
        return "degrees";
    case HBUnit::Kelvin:
        return "kelvin";
    case HBUnit::Stops:
        return "stops (powers of 2)";
    case HBUnit::Light:
        return "share of full light";
    case HBUnit::Exponent:
        return "exponent";
    case HBUnit::Thousandths:
        return "thousandths of the shorter side";
    case HBUnit::Copies:
        return "copies";
    default:
        return HBUnitSymbol(unit);
    }
}

QString Number(double value)
{
    return QString::number(value, 'g', 6);
}

QString Code(const QString& text)
{
    return '`' + text + '`';
}

QString Default(const HBFieldInfo& field, const QVariant& value)
{
    if (field.type == HBFieldInfo::Number)
        return Number(value.toDouble());
    if (field.type == HBFieldInfo::Choice)
        return Code(field.values.at(std::size_t(value.toInt())));
    switch (value.userType()) {
    case QMetaType::Bool:
        return Code(value.toBool() ? "true" : "false");
    case QMetaType::QColor:
        return Code(value.value<QColor>().name());
    case QMetaType::QFont:
        return "the application's font";
    case QMetaType::QString:
        return value.toString().isEmpty() ? "none" : Code(value.toString());
    default:
        return Code(QJsonDocument::fromVariant(value).toJson(QJsonDocument::Compact));
    }
}

QString Allowed(const HBFieldInfo& field, const QVariant& value)
{
    if (field.type == HBFieldInfo::Number)
        return QString("%1 .. %2").arg(Number(field.range.minimum), Number(field.range.maximum));
    if (field.type == HBFieldInfo::Choice) {
        QStringList names;
        for (const QString& name : field.values) {
            if (!name.isNull())
                names.append(Code(name));
        }
        return names.join(", ");
    }
    switch (value.userType()) {
    case QMetaType::Bool:
        return "`false`, `true`";
    case QMetaType::QColor:
        return "a colour";
    case QMetaType::QFont:
        return "a font";
    case QMetaType::QString:
        return "a text";
    default:
        return "see above";
    }
}

QString FieldTable(const HBAdjustment& adjustment)
{
    QString table = "| field | range | unit | default | changes nothing at |\n|---|---|---|---|---|\n";
    for (const HBFieldInfo& field : adjustment.fields) {
        const QVariant value = field.get(adjustment.data(adjustment.defaults()));
        const double neutral = field.range.neutral;
        const QString nothing =
            field.type == HBFieldInfo::Number && !std::isnan(neutral) ? Number(neutral) : QString();
        table +=
            QString("| `%1` | %2 | %3 | %4 | %5 |\n")
                .arg(field.key, Allowed(field, value), UnitName(field.range.unit), Default(field, value), nothing);
    }
    return table;
}

// ---- Records ----

QString Hex(const QByteArray& bytes)
{
    QString lines;
    for (int i = 0; i < bytes.size(); i += 32)
        lines += "    " + QString::fromLatin1(bytes.mid(i, 32).toHex(' ').toUpper()) + '\n';
    return lines;
}

QString RecordText(const HBAdjustment& adjustment, const QJsonObject& values)
{
    if (!adjustment.tag)
        return "Stored as plain values. The demonstration's:\n\n    " +
               QJsonDocument(values["values"].toObject()).toJson(QJsonDocument::Compact) + '\n';
    const QByteArray record = QByteArray::fromBase64(values["record"].toString().toLatin1());
    const int tag = int(std::strlen(adjustment.tag));
    return QString("Record: %1 bytes, the %2 of the tag `%3` and then the fields. The demonstration's, behind the "
                   "tag:\n\n%4")
        .arg(record.size())
        .arg(tag)
        .arg(adjustment.tag, Hex(record.mid(tag)));
}

// ---- Pages ----

struct Sources
{
    QString readme;
    QString recipes; ///< folder
};

/// The columns of an adjustment's row in the README's table of figures.
QString Cost(const HBAdjustment& adjustment, const QString& readme)
{
    for (const QString& line : readme.split('\n')) {
        const QStringList columns = line.split('|');
        if (columns.size() < 7 || columns[1].trimmed() != QLatin1String(adjustment.title))
            continue;
        const QString whole = columns[5].trimmed();
        return QString("Costs %1 the copying of the tiles").arg(columns[3].trimmed()) +
               (whole.isEmpty() ? "." : QString("; %1 from `SetImage` to the preview.").arg(whole));
    }
    throw Fault(QString("README.md has no figures of ") + adjustment.title);
}

QString Block(const QString& className, const Sources& sources)
{
    const HBAdjustment* adjustment = HBFindAdjustment(className);
    if (!adjustment)
        throw Fault("There is no adjustment " + className);
    // As it is stored: a stamp that is loaded lies in a folder of this machine.
    const QString path = sources.recipes + '/' + className + ".json";
    HBRecipe recipe;
    QString error;
    if (!HBRecipe::FromJson(Read(path).toUtf8(), &recipe, &error))
        throw Fault(path + ": " + error);
    return FieldTable(*adjustment) + '\n' + Cost(*adjustment, sources.readme) + "\n\n" +
           RecordText(*adjustment, recipe.steps.first().values);
}

QString WithBlocks(const QString& page, const Sources& sources)
{
    static const QRegularExpression blocks("(<!-- fields of (\\w+) -->\n).*?(<!-- end -->)",
                                           QRegularExpression::DotMatchesEverythingOption);
    QStringList missing;
    for (const HBAdjustment& adjustment : HBAdjustments())
        missing.append(adjustment.className);
    QString result;
    int end = 0;
    for (auto it = blocks.globalMatch(page); it.hasNext();) {
        const QRegularExpressionMatch block = it.next();
        result += page.mid(end, block.capturedStart() - end) + block.captured(1) + '\n' +
                  Block(block.captured(2), sources) + '\n' + block.captured(3);
        end = block.capturedEnd();
        missing.removeOne(block.captured(2));
    }
    if (!missing.isEmpty())
        throw Fault("Not described: " + missing.join(", "));
    return result + page.mid(end);
}

/// Each adjustment has its picture, and the page shows it.
void CheckPictures(const QString& path, const QString& page)
{
    for (const HBAdjustment& adjustment : HBAdjustments()) {
        const QString picture = QString("pictures/panels/%1.jpg").arg(adjustment.className);
        if (!page.contains("](" + picture + ')') || !QFile::exists(QFileInfo(path).path() + '/' + picture))
            throw Fault("No " + picture + ": build the target docs-pictures");
    }
}

void PutSideBySide(const QString& before, const QString& after, const QString& path)
{
    constexpr int Height = 120;
    constexpr int Gap = 4;
    const QImage left = QImage(before).scaledToHeight(Height, Qt::SmoothTransformation);
    const QImage right = QImage(after).scaledToHeight(Height, Qt::SmoothTransformation);
    if (left.isNull() || right.isNull())
        throw Fault(before + ", " + after + ": cannot be read");
    QImage both(left.width() + Gap + right.width(), Height, QImage::Format_RGB32);
    both.fill(Qt::white);
    QPainter painter(&both);
    painter.drawImage(0, 0, left);
    painter.drawImage(left.width() + Gap, 0, right);
    painter.end();
    if (!both.save(path, "JPEG", 78))
        throw Fault(path + ": cannot be written");
}

void Run(const QStringList& arguments)
{
    if (arguments.value(1) == "--picture") {
        PutSideBySide(arguments.value(2), arguments.value(3), arguments.value(4));
        return;
    }
    const QString path = arguments.value(1);
    const QString page = Read(path);
    const QString current = WithBlocks(page, {Read(arguments.value(2)), arguments.value(3)});
    if (arguments.contains("--check")) {
        CheckPictures(path, page);
        if (page != current)
            throw Fault(path + " is not what the fields say: build the target docs-panels");
        return;
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(current.toUtf8()) < 0)
        throw Fault(path + ": " + file.errorString());
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    try {
        Run(QCoreApplication::arguments());
    } catch (const std::exception& fault) {
        QTextStream(stderr) << fault.what() << '\n';
        return 1;
    }
    return 0;
}
