// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBShortcutSheet.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QMenu>
#include <QMenuBar>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace
{

QString Row(const QString& keys, const QString& does)
{
    return QString("<tr><td style='padding-right: 16px'><b>%1</b></td><td>%2</td></tr>")
        .arg(keys.toHtmlEscaped(), does.toHtmlEscaped());
}

QString WithoutMnemonic(const QString& text)
{
    return QString(text).replace("&&", "\n").remove('&').replace('\n', '&').remove(QChar(0x2026));
}

/// Also those of the menus within it.
QString Rows(const QMenu* menu)
{
    QString rows;
    for (const QAction* action : menu->actions()) {
        if (action->menu()) {
            rows += Rows(action->menu());
            continue;
        }
        QStringList keys;
        for (const QKeySequence& key : action->shortcuts())
            keys.append(key.toString(QKeySequence::NativeText));
        if (!keys.isEmpty())
            rows += Row(keys.join(", "), WithoutMnemonic(action->text()));
    }
    return rows;
}

} // namespace

HBShortcutSheet::HBShortcutSheet(const QMenuBar* menus, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Keys and Mouse"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    QString html;
    const auto section = [&](const QString& title, const QString& rows) {
        if (!rows.isEmpty())
            html += QString("<h3>%1</h3><table>%2</table>").arg(title.toHtmlEscaped(), rows);
    };
    section(tr("Photo"), Row(tr("Drag"), tr("Move the photo, or draw with the chosen tool")) +
                             Row(tr("Middle button, Space and drag"), tr("Move the photo with any tool")) +
                             Row(tr("Wheel"), tr("Zoom to the mouse")) +
                             Row(tr("Shift and wheel"), tr("Move the photo")) +
                             Row(tr("B, \\ (held)"), tr("The photo as it was before")));
    section(tr("Selections"),
            Row(tr("Shift, Ctrl or Alt, both"), tr("As a drag begins: add, subtract, intersect")) +
                Row(tr("Shift"), tr("During a drag: a square, a circle, a multiple of 45°")) +
                Row(tr("Drag within the selection"), tr("Move it")) +
                Row(tr("Click, double click"), tr("Lasso: a corner, the last corner")) +
                Row(tr("Arrows"), tr("Move the crosshair, or with Move the selection; with Shift ten steps")) +
                Row(tr("Return, Space"), tr("At the crosshair: begin, set a corner, pick a color; Return ends")) +
                Row(tr("Backspace"), tr("Lasso: take the last corner back")) +
                Row(tr("Escape"), tr("Give up what is being drawn, else drop the selection")));
    section(tr("Controls of a panel"),
            Row(tr("Double click on a handle or a name"), tr("Set the default")) +
                Row(tr("Arrows, Page Up, Page Down"), tr("A small step, a large step")) +
                Row(tr("Wheel"), tr("Changes the control that has the focus")) + Row(tr("Return"), tr("OK")) +
                Row(tr("Escape"), tr("Cancel")));
    for (const QAction* menu : menus->actions()) {
        if (menu->menu())
            section(WithoutMnemonic(menu->text()), Rows(menu->menu()));
    }
    auto* text = new QTextBrowser;
    text->setHtml(html);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    resize(560, 640);
}
