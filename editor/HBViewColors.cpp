// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBViewColors.h"

#include "HBMonitorProfile.h"

#include <QAction>
#include <QActionGroup>
#include <QEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QScreen>
#include <QWindow>

namespace
{

constexpr qint64 LargestFile = 64 << 20;

QByteArray ReadProfile(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(LargestFile);
}

} // namespace

HBViewColors::HBViewColors(QWidget* window) : QObject(window), m_pWindow(window)
{
    window->installEventFilter(this); // its QWindow comes with the first show
    ReadMonitor();
}

bool HBViewColors::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pWindow && event->type() == QEvent::Show)
        FollowScreen();
    return QObject::eventFilter(watched, event);
}

void HBViewColors::FollowScreen()
{
    if (QWindow* window = m_pWindow->windowHandle())
        connect(window, &QWindow::screenChanged, this, &HBViewColors::ReadMonitor, Qt::UniqueConnection);
    ReadMonitor();
}

void HBViewColors::ReadMonitor()
{
    const QByteArray chosen = m_MonitorFile.isEmpty() ? QByteArray() : ReadProfile(m_MonitorFile);
    m_Monitor = chosen.isEmpty() ? HBMonitorProfile(m_pWindow->screen()) : chosen;
    if (HBProfileModel(m_Monitor) != "RGB ")
        m_Monitor.clear();
    Update();
}

void HBViewColors::SetPhotoProfile(const QByteArray& icc)
{
    if (icc == m_Photo)
        return;
    m_Photo = icc;
    Update();
}

void HBViewColors::SetClippingMarked(bool marked)
{
    m_Look.marksClipping = marked;
    Q_EMIT LookChanged(m_Look);
}

void HBViewColors::Update()
{
    const auto colors = HBColorTransform::Make(m_Photo, m_Monitor); // null also where it cannot be: as in sRGB
    if (colors != m_Look.colors) {
        m_Look.colors = colors;
        Q_EMIT LookChanged(m_Look);
    }
    ShowChoice();
}

QString HBViewColors::PhotoProfileName() const
{
    if (m_Photo.isEmpty())
        return tr("sRGB (assumed)");
    const QString name = HBProfileName(m_Photo);
    return name.isEmpty() ? tr("Unknown profile (shown as sRGB)") : name;
}

QString HBViewColors::MonitorProfileName() const
{
    const QString name = HBProfileName(m_Monitor);
    return name.isEmpty() ? QString("sRGB") : name;
}

bool HBViewColors::SetMonitorFile(const QString& path, QString* reason)
{
    const QByteArray icc = path.isEmpty() ? QByteArray() : ReadProfile(path);
    QString why;
    if (!path.isEmpty() && !icc.isEmpty())
        HBColorTransform::Make({}, icc, &why);
    if (!path.isEmpty() && (icc.isEmpty() || !why.isEmpty())) {
        *reason = tr("%1: this is not a color profile of a monitor").arg(path);
        ShowChoice();
        return false;
    }
    m_MonitorFile = path;
    ReadMonitor();
    return true;
}

void HBViewColors::AddTo(QMenu* menu)
{
    QMenu* choice = menu->addMenu(tr("&Monitor Profile"));
    m_pChoice = new QActionGroup(this);
    for (int i = 0; i < 2; ++i) {
        QAction* action = m_pChoice->addAction(choice->addAction(QString()));
        action->setCheckable(true);
    }
    m_pChoice->actions().at(0)->setStatusTip(
        tr("Show colors by the profile that the desktop has for this monitor"));
    m_pChoice->actions().at(1)->setStatusTip(tr("Show colors by a profile from a file (ICC)"));
    connect(m_pChoice->actions().at(0), &QAction::triggered, this, [this] {
        QString ignored;
        SetMonitorFile({}, &ignored);
    });
    connect(m_pChoice->actions().at(1), &QAction::triggered, this, &HBViewColors::ChooseFile);
    ShowChoice();
}

void HBViewColors::ShowChoice()
{
    if (!m_pChoice)
        return;
    const bool own = !m_MonitorFile.isEmpty();
    const auto plain = [](QString text) { return text.replace('&', "&&"); };
    m_pChoice->actions().at(0)->setText(own ? tr("The &Desktop’s")
                                            : tr("The &Desktop’s (%1)").arg(plain(MonitorProfileName())));
    m_pChoice->actions().at(1)->setText(own ? tr("From a &File (%1)…").arg(plain(MonitorProfileName()))
                                            : tr("From a &File…"));
    m_pChoice->actions().at(own)->setChecked(true);
}

void HBViewColors::ChooseFile()
{
    const QString path =
        QFileDialog::getOpenFileName(m_pWindow, tr("Monitor Profile"), QFileInfo(m_MonitorFile).absolutePath(),
                                     tr("Color profiles") + " (*.icc *.icm);;" + tr("All files") + " (*)");
    QString reason;
    if (path.isEmpty())
        ShowChoice(); // the click has moved the mark
    else if (!SetMonitorFile(path, &reason))
        Q_EMIT Failed(reason);
}
