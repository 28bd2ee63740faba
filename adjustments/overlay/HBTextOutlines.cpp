// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTextOutlines.h"

#include "HBOverlayText.h"
#include "HBStage.h"

#include <HBQtImage.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace
{

// As on a screen: a text looks on a photo shown 1000 pixels high as it does in a dialog.
constexpr double UnitsPerPoint = 96.0 / 72.0;
constexpr double MinimumUnits = 1;
constexpr double MaximumUnits = 1000;
constexpr double DefaultPoints = 12;

// Qt tries, and takes apart at commas, each name that a font has; no font that anybody chose has this many.
constexpr int MaximumFamilies = 32;
constexpr int MaximumFamilyLength = 1000;

/// Names beyond the limits count as none.
QFont WithFewNames(const QFont& font)
{
    QFont few = font;
    if (font.family().size() > MaximumFamilyLength)
        few.setFamily(font.family().left(MaximumFamilyLength));
    QStringList names = font.families().mid(0, MaximumFamilies);
    for (QString& name : names)
        name.truncate(MaximumFamilyLength);
    if (names != font.families())
        few.setFamilies(names);
    return few;
}

bool IsInstalled(const QFont& font)
{
    const QFontDatabase database;
    QStringList names = font.families();
    names.append(font.family());
    return std::any_of(names.cbegin(), names.cend(), [&database](const QString& name) {
        // The application's own font always goes: its name may be one that the platform only stands in for.
        return name.isEmpty() || name == QFont().family() || database.hasFamily(name);
    });
}

/// The same font at the size of the outlines, without what fits it to a screen's pixels.
QFont OutlineFont(const QFont& font)
{
    const double factor = HBTextOutlines::FontPixels / HBFontUnits(font);
    QFont large = font;
    if (font.family().isEmpty())
        large.setFamily(QFont().family());
    large.setPixelSize(HBTextOutlines::FontPixels);
    large.setHintingPreference(QFont::PreferNoHinting);
    large.setStyleStrategy(QFont::ForceOutline);
    if (font.letterSpacingType() == QFont::AbsoluteSpacing)
        large.setLetterSpacing(QFont::AbsoluteSpacing, font.letterSpacing() * factor);
    large.setWordSpacing(font.wordSpacing() * factor);
    return large;
}

} // namespace

double HBFontUnits(const QFont& font)
{
    const double size = font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * UnitsPerPoint;
    // The comparison fails for what is not a number, too.
    return size > 0 ? qBound(MinimumUnits, size, MaximumUnits) : DefaultPoints * UnitsPerPoint;
}

HBTextOutlines HBTextOutlines::Make(const QString& text, const QFont& font)
{
    HBTextOutlines outlines;
    if (text.trimmed().isEmpty())
        return outlines;
    // Qt aborts the program that asks for a font without one.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        throw HBAdjustmentError(
            HBOverlayText::tr("A text needs a program with a graphical application object (QGuiApplication)"));
    HBCheckMemory();
    const QFont named = WithFewNames(font);
    if (!IsInstalled(named))
        throw HBAdjustmentError(HBOverlayText::tr("The font %1 is not installed").arg(named.family().left(100)));
    const QFont large = OutlineFont(named);
    const double lineHeight = QFontMetricsF(large).lineSpacing();
    const QStringList lines = text.left(MaximumLength).split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QPainterPath path;
        path.addText(0, 0, large, lines.at(i));
        path.translate(-path.boundingRect().center().x(), i * lineHeight);
        outlines.Add(path);
    }
    if (outlines.IsEmpty())
        throw HBAdjustmentError(
            HBOverlayText::tr("The font %1 cannot draw this text").arg(QFontInfo(named).family()));
    return outlines;
}

void HBTextOutlines::Add(const QPainterPath& path)
{
    QPainterPath part;
    auto finish = [&] {
        const QRectF box = part.boundingRect();
        if (!box.isEmpty()) {
            m_Parts.append({part, box});
            m_Corners << box.topLeft() << box.topRight() << box.bottomRight() << box.bottomLeft();
        }
        part = QPainterPath();
    };
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            finish();
            part.moveTo(element);
        } else if (element.isLineTo()) {
            part.lineTo(element);
        } else if (element.isCurveTo()) {
            part.cubicTo(element, path.elementAt(i + 1), path.elementAt(i + 2));
        }
    }
    finish();
}

void HBTextOutlines::Fill(QPainter& painter, const QRectF& window) const
{
    HBCheckMemory();
    QPainterPath path;
    // Letters may overlap and then are not holes in each other.
    path.setFillRule(Qt::WindingFill);
    for (const Part& part : m_Parts) {
        if (part.box.intersects(window))
            path.addPath(part.path);
    }
    painter.fillPath(path, Qt::black);
}
