// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <HBRecipe.h>

#include <QDialog>
#include <QProcess>
#include <QTemporaryDir>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

/// Applies a recipe to many photos and writes the results to a folder, by panel-replay: another process, which
/// can neither take the editor's memory nor, with a photo that is broken, the editor itself.
class HBBatchDialog : public QDialog
{
    Q_OBJECT
public:
    HBBatchDialog(const HBRecipe& recipe, const QStringList& photos, QWidget* parent = nullptr);
    /// Ends a run; what it has written is whole.
    ~HBBatchDialog() override;

    /// The program beside this one, or in the path; empty if there is none.
    static QString Program();

    void reject() override;

    // Of the last run.
    int Done() const { return m_Done; }
    int Failed() const { return m_Failed; }
    bool IsRunning() const { return m_Process.state() != QProcess::NotRunning; }

Q_SIGNALS:
    /// A run has ended.
    void Finished();

private:
    void Start();
    void Browse();
    void ReadReport();
    void OnFinished(int code);
    void Update();

    const HBRecipe m_Recipe;
    const QStringList m_Photos;
    QTemporaryDir m_Work; ///< with the recipe
    QProcess m_Process;
    QByteArray m_Report; ///< what is not yet a whole line
    int m_Done = 0;
    int m_Failed = 0;
    bool m_Stopped = false;
    QLineEdit* m_pFolder;
    QComboBox* m_pConflict;
    QProgressBar* m_pBar;
    QLabel* m_pResult;
    QPlainTextEdit* m_pProblems;
    QPushButton* m_pStart;
    QPushButton* m_pClose;
};
