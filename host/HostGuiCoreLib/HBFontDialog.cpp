// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFontDialog.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <cmath>
#include <cstdlib>
#include <limits>

namespace
{

/// The font at a size that can be shown; a size that is none (0, negative, not a number) becomes the dialog's own.
QFont Sized(const QFont& font)
{
    QFont shown = font;
    if (font.pixelSize() > 0) {
        shown.setPixelSize(qMin(font.pixelSize(), int(HBFontDialog::MaximumPoints)));
        return shown;
    }
    const double points = font.pointSizeF();
    const double own = QFont().pointSizeF();
    if (points > 0 && std::isfinite(points))
        shown.setPointSizeF(qBound(HBFontDialog::MinimumPoints, points, HBFontDialog::MaximumPoints));
    else
        shown.setPointSizeF(own > 0 ? own : 10);
    return shown;
}

/// What the family calls the style of the font: without a name of its list the dialog takes the first, which may
/// be an oblique one.
QString StyleName(const QFont& font)
{
    const QFontDatabase fonts;
    const QStringList names = fonts.styles(font.family());
    if (names.contains(font.styleName()))
        return font.styleName();
    QString best;
    int least = std::numeric_limits<int>::max();
    for (const QString& name : names) {
        const QFont style = fonts.font(font.family(), name, 12);
        const int distance =
            std::abs(style.weight() - font.weight()) + (style.italic() != font.italic() ? 1000 : 0);
        if (distance < least) {
            least = distance;
            best = name;
        }
    }
    return best;
}

/// What stands in for the font if it is not there: a dialog with no family of its list selected selects the first
/// one by itself, as soon as it has the focus.
QFont Shown(const QFont& font)
{
    QFont shown = Sized(font);
    shown.setFamily(QFontInfo(shown).family());
    shown.setStyleName(StyleName(shown));
    return shown;
}

} // namespace

HBFontDialog::HBFontDialog(const QFont& font, QWidget* parent) : QFontDialog(parent), m_Font(font)
{
    setOption(DontUseNativeDialog);
    setCurrentFont(Shown(font));
    // After setCurrentFont, whose echo is no choice of the user's.
    connect(this, &QFontDialog::currentFontChanged, this, [this](const QFont& chosen) {
        if (!m_Done)
            m_Font = chosen;
    });
}

void HBFontDialog::done(int result)
{
    // Qt announces the font once more when it is accepted, as it shows it.
    m_Done = true;
    QFontDialog::done(result);
}

int HBFontDialog::Exec()
{
    m_Done = false;
    // QDialog::exec() guards itself against its own deletion; nothing of this object may be touched after it.
    return exec() == Accepted ? 1 : 0;
}
