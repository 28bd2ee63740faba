// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBTileMips.h>

#include <QObject>
#include <QString>

class QActionGroup;
class QMenu;
class QWidget;

/// How the photo is to be shown on the window's monitor: its colours through both profiles, and clipping marked if
/// that is asked for. The photo's bytes are never changed. GUI thread only.
class HBViewColors : public QObject
{
    Q_OBJECT
public:
    /// \param window whose screen counts
    explicit HBViewColors(QWidget* window);

    const HBTileMips::Look& Look() const { return m_Look; }
    /// \param icc empty: sRGB is assumed
    void SetPhotoProfile(const QByteArray& icc);
    /// As people know it, for a label.
    QString PhotoProfileName() const;
    QString MonitorProfileName() const;

    /// The file of the monitor's profile; empty: the desktop's, or sRGB.
    QString MonitorFile() const { return m_MonitorFile; }
    /// False with a reason, and all as it was, if that is no profile for a monitor.
    bool SetMonitorFile(const QString& path, QString* reason);
    /// The choice between the desktop's profile and a file.
    void AddTo(QMenu* menu);

public Q_SLOTS:
    void SetClippingMarked(bool marked);

Q_SIGNALS:
    void LookChanged(const HBTileMips::Look& look);
    /// To be told to the user.
    void Failed(const QString& reason);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FollowScreen();
    void ReadMonitor();
    void Update();
    void ShowChoice();
    void ChooseFile();

    QWidget* m_pWindow;
    QActionGroup* m_pChoice = nullptr;
    HBTileMips::Look m_Look;
    QByteArray m_Photo;
    QByteArray m_Monitor; ///< empty: sRGB
    QString m_MonitorFile;
};
