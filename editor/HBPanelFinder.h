// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

struct HBPanelEntry;
class QLineEdit;
class QListWidget;

/// Finds a panel by what is typed of its name: the first letters of its words, in any order. Return opens it.
class HBPanelFinder : public QDialog
{
    Q_OBJECT
public:
    explicit HBPanelFinder(QWidget* parent = nullptr);

    /// Of accept(); null if there is none.
    const HBPanelEntry* Chosen() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void List(const QString& typed);

    QLineEdit* m_pTyped;
    QListWidget* m_pFound;
};
