// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBBatchDialog.h"

#include <HBReadJson.h>

#include <QComboBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStandardPaths>

#include <new>

HBBatchDialog::HBBatchDialog(const HBRecipe& recipe, const QStringList& photos, QWidget* parent)
    : QDialog(parent)
    , m_Recipe(recipe)
    , m_Photos(photos)
    , m_pFolder(new QLineEdit)
    , m_pConflict(new QComboBox)
    , m_pBar(new QProgressBar)
    , m_pResult(new QLabel)
    , m_pProblems(new QPlainTextEdit)
{
    setWindowTitle(tr("Apply to Marked Photos"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pFolder->setObjectName("folder");
    const QString photo = photos.value(0);
    m_pFolder->setText(QDir::toNativeSeparators(QFileInfo(photo).absolutePath() + '/' + tr("adjusted")));
    m_pFolder->setMinimumWidth(40 * fontMetrics().averageCharWidth());
    m_pConflict->addItem(tr("Keep both, with a number"), "rename");
    m_pConflict->addItem(tr("Leave out the photo"), "skip");
    m_pConflict->addItem(tr("Replace the file"), "overwrite");
    m_pBar->setRange(0, qMax(1, photos.size()));
    m_pBar->setFormat(tr("%v of %m"));
    m_pResult->setWordWrap(true);
    m_pProblems->setReadOnly(true);
    m_pProblems->hide();

    auto* browse = new QPushButton(tr("&Browse…"));
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, &HBBatchDialog::Browse);
    auto* where = new QHBoxLayout;
    where->addWidget(m_pFolder, 1);
    where->addWidget(browse);
    auto* form = new QFormLayout;
    form->addRow(new QLabel(tr("Photos: %1, steps: %2").arg(photos.size()).arg(recipe.steps.size())));
    form->addRow(tr("&Into the folder:"), where);
    qobject_cast<QLabel*>(form->labelForField(where))->setBuddy(m_pFolder);
    form->addRow(tr("A file is there &already:"), m_pConflict);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_pClose = buttons->button(QDialogButtonBox::Close);
    m_pStart = buttons->addButton(tr("&Apply"), QDialogButtonBox::ActionRole);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_pBar);
    layout->addWidget(m_pResult);
    layout->addWidget(m_pProblems, 1);
    layout->addWidget(buttons);
    m_pStart->setDefault(true); // not before it knows its dialog, for which Close would be it
    connect(m_pStart, &QPushButton::clicked, this, &HBBatchDialog::Start);
    connect(buttons, &QDialogButtonBox::rejected, this, &HBBatchDialog::reject);
    connect(m_pFolder, &QLineEdit::textChanged, this, &HBBatchDialog::Update);
    connect(&m_Process, &QProcess::readyReadStandardOutput, this, &HBBatchDialog::ReadReport);
    connect(
        &m_Process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
        [this](int code, QProcess::ExitStatus status) { OnFinished(status == QProcess::NormalExit ? code : -1); });
    connect(&m_Process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            OnFinished(-1);
    });
    Update();
}

HBBatchDialog::~HBBatchDialog()
{
    m_Process.disconnect(this);
    if (!IsRunning())
        return;
    m_Process.terminate();
    if (!m_Process.waitForFinished(3000))
        m_Process.kill();
    m_Process.waitForFinished();
}

QString HBBatchDialog::Program()
{
    const QString own = QCoreApplication::applicationDirPath();
    // Installed side by side; in the build tree each has a folder.
    const QString beside = QStandardPaths::findExecutable(PANEL_REPLAY_PROGRAM, {own, own + "/../replay"});
    return beside.isEmpty() ? QStandardPaths::findExecutable(PANEL_REPLAY_PROGRAM) : beside;
}

void HBBatchDialog::Browse()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Folder of the Results"), QFileInfo(m_pFolder->text()).path());
    if (!folder.isEmpty())
        m_pFolder->setText(QDir::toNativeSeparators(folder));
}

void HBBatchDialog::Update()
{
    m_pStart->setEnabled(!IsRunning() && !m_pFolder->text().trimmed().isEmpty() && !m_Photos.isEmpty());
    for (QWidget* control : {static_cast<QWidget*>(m_pFolder), static_cast<QWidget*>(m_pConflict)})
        control->setEnabled(!IsRunning());
    m_pClose->setText(IsRunning() ? tr("&Stop") : tr("&Close"));
}

void HBBatchDialog::Start()
{
    m_Done = m_Failed = 0;
    m_Stopped = false;
    m_Report.clear();
    m_pProblems->clear();
    m_pProblems->hide();
    m_pBar->setValue(0);
    const QString recipe = m_Work.filePath("steps.adjustment-recipe.json");
    QString error;
    if (Program().isEmpty()) {
        m_pResult->setText(tr("This needs the program %1, which is not installed.").arg(PANEL_REPLAY_PROGRAM));
        return;
    }
    if (!m_Recipe.Save(recipe, &error)) {
        m_pResult->setText(error);
        return;
    }
    m_pResult->setText(tr("Applying…"));
    QByteArray list;
    for (const QString& photo : m_Photos)
        list += QFile::encodeName(photo) + '\0';
    m_Process.start(Program(), {"apply", recipe, "--files-from", "-", "--null", "-o", m_pFolder->text().trimmed(),
                                "--on-conflict", m_pConflict->currentData().toString(), "--json"});
    m_Process.write(list);
    m_Process.closeWriteChannel();
    Update();
}

void HBBatchDialog::ReadReport()
{
    m_Report += m_Process.readAllStandardOutput();
    for (int end = m_Report.indexOf('\n'); end >= 0; end = m_Report.indexOf('\n')) {
        const QByteArray text = m_Report.left(end);
        m_Report.remove(0, end + 1); // first, as reading may throw
        const QJsonObject line = HBReadJson(text).object();
        if (line.value("type").toString() == "summary")
            continue;
        const QString status = line.value("status").toString();
        m_Done += status == "done";
        if (status == "failed") {
            ++m_Failed;
            m_pProblems->show();
            m_pProblems->appendPlainText(line.value("input").toString() + ": " + line.value("error").toString());
        }
        m_pBar->setValue(m_pBar->value() + 1);
    }
}

void HBBatchDialog::OnFinished(int code)
{
    try {
        ReadReport();
    } catch (const std::bad_alloc&) { // that it is over must be said all the same
    }
    const QString said = QString::fromLocal8Bit(m_Process.readAllStandardError()).trimmed();
    if (m_Stopped)
        m_pResult->setText(tr("Stopped. Written: %1").arg(m_Done));
    else if (code == 0 || code == 1)
        m_pResult->setText(tr("Written: %1, failed: %2").arg(m_Done).arg(m_Failed));
    else
        m_pResult->setText(tr("It could not be done. %1").arg(said));
    Update();
    if (code == 0)
        m_pClose->setFocus();
    Q_EMIT Finished();
}

/// While it runs, this stops the run.
void HBBatchDialog::reject()
{
    if (!IsRunning()) {
        QDialog::reject();
        return;
    }
    m_Stopped = true;
    m_Process.terminate();
}
