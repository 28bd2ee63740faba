// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBRecovery.h"

#include <HBQtImage.h>
#include <HBReadJson.h>
#include <HBSaveFile.h>
#include <HBStage.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QUuid>

#include <exception>
#include <new>
#include <utility>

namespace
{

constexpr int PauseMilliseconds = 1000;
constexpr qint64 MaximumBytes = 64 << 20;

QString LockOf(const QString& file)
{
    return QFileInfo(file).path() + '/' + QFileInfo(file).completeBaseName() + ".lock";
}

QJsonObject JsonOf(const HBDocument::Steps& steps)
{
    const QByteArray json = HBRecipe{steps}.ToJson();
    HBCheckMemory();
    return QJsonDocument::fromJson(json).object();
}

/// None, if it is no recipe, or has none.
HBDocument::Steps StepsOf(const QJsonValue& json)
{
    HBRecipe recipe;
    QString error;
    HBRecipe::FromJson(QJsonDocument(json.toObject()).toJson(), &recipe, &error);
    return recipe.steps;
}

bool Read(const QString& path, HBLostStack* lost)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MaximumBytes)
        return false;
    const QJsonObject json = HBReadJson(file.readAll()).object();
    lost->file = path;
    lost->photo = json.value("photo").toString();
    const auto whole = [&json](const char* key) { return qint64(qBound(-1.0, json[key].toDouble(), 9e15)); };
    lost->size = whole("size");
    lost->time = QDateTime::fromMSecsSinceEpoch(whole("time"));
    lost->steps = StepsOf(json.value("recipe"));
    lost->saved = StepsOf(json.value("saved"));
    lost->panel = StepsOf(json.value("panel")).value(0);
    lost->opened = json.value("opened").toInt(-1);
    if (lost->opened < 0 || lost->opened >= lost->steps.size())
        lost->opened = -1;
    return !lost->photo.isEmpty() && !(lost->steps.isEmpty() && lost->saved.isEmpty() && !lost->HasPanel());
}

} // namespace

bool HBLostStack::IsSamePhoto() const
{
    const QFileInfo info(photo);
    return info.size() == size && info.lastModified() == time;
}

HBDocument::Steps HBLostStack::StepsForFile() const
{
    if (steps.mid(0, saved.size()) == saved)
        return steps.mid(saved.size());
    HBDocument::Steps off = steps;
    for (HBRecipeStep& step : off)
        step.on = false;
    return off;
}

HBDocument::Steps HBLostStack::StepsWithPanel() const
{
    HBDocument::Steps all = StepsForFile();
    if (!HasPanel())
        return all;
    const bool isOff = !saved.isEmpty() && all.size() == steps.size(); // as all of them
    const int index = opened - (steps.size() - all.size());
    const bool isThere = opened >= 0 && index >= 0;
    if (!isThere)
        all.append(panel);
    HBRecipeStep& step = isThere ? all[index] : all.last();
    step = panel;
    step.on = !isOff && (isThere || opened < 0);
    return all;
}

HBRecovery::HBRecovery(const QString& folder, HBDocument* document, QObject* parent)
    : QObject(parent)
    , m_Folder(folder)
    , m_File(folder + '/' + QUuid::createUuid().toString(QUuid::WithoutBraces) + ".json")
    , m_pDocument(document)
{
    m_Soon.setSingleShot(true);
    connect(&m_Soon, &QTimer::timeout, this, &HBRecovery::Update);
    connect(document, &HBDocument::Changed, this, &HBRecovery::OnChanged);
}

HBRecovery::~HBRecovery()
{
    Remove();
}

HBRecovery::State HBRecovery::Present() const
{
    return {m_pDocument->AllSteps(), m_Panel, m_Opened};
}

bool HBRecovery::IsWritten() const
{
    return m_IsThere && m_Written.steps == m_pDocument->AllSteps() && m_Written.panel == m_Panel &&
           m_Written.opened == m_Opened;
}

void HBRecovery::SetPanel(const HBRecipeStep& step, int opened)
{
    m_Panel = step;
    m_Opened = step.panel.isEmpty() ? -1 : opened;
    if (!step.panel.isEmpty())
        Update();
    else if (m_IsThere && !m_Soon.isActive())
        m_Soon.start(0);
}

/// Makes the file as it is to be.
void HBRecovery::Update()
{
    m_Soon.stop();
    if (!IsNeeded())
        Remove();
    else if (!IsWritten())
        Write();
}

bool HBRecovery::Keep()
{
    Update();
    return !IsNeeded() || IsWritten();
}

void HBRecovery::OnChanged()
{
    if (!IsNeeded() || IsWritten())
        return Update();
    // Only while an amount is dragged there are more changes than a disk should hear of.
    const int index = m_pDocument->History().index();
    const QUndoCommand* last = index > 0 ? m_pDocument->History().command(index - 1) : nullptr;
    const bool isGesture = last && last->id() >= 0;
    if (!isGesture || !m_SinceWrite.isValid() || m_SinceWrite.elapsed() >= PauseMilliseconds)
        Update();
    else if (!m_Soon.isActive())
        m_Soon.start(PauseMilliseconds - int(m_SinceWrite.elapsed()));
}

void HBRecovery::Write()
{
    m_SinceWrite.start();
    const State state = Present();
    QString reason;
    bool written = false;
    try {
        written = HBSaveFile(m_File, Json(state), &reason);
    } catch (const std::bad_alloc&) {
        reason = HBFailureReason({{}, HBOutcome::Failed, std::current_exception()});
    }
    if (written) {
        m_Written = state;
        m_IsThere = true;
        m_HasFailed = false;
    } else if (!m_HasFailed) {
        m_HasFailed = true; // said once
        Q_EMIT Failed(reason);
    }
}

/// Of the file, behind a lock.
QByteArray HBRecovery::Json(const State& state)
{
    if (!m_pLock) {
        QDir().mkpath(m_Folder);
        auto lock = std::make_unique<QLockFile>(LockOf(m_File));
        lock->setStaleLockTime(0); // it lasts as long as the process
        lock->tryLock(0);
        m_pLock = std::move(lock);
    }
    HBCheckMemory(); // Qt ends the process if its JSON finds none
    QJsonObject json{
        {"format", "panel-editor-recovery"},       {"photo", m_pDocument->Path()},
        {"size", double(m_pDocument->FileSize())}, {"time", double(m_pDocument->FileTime().toMSecsSinceEpoch())},
        {"recipe", JsonOf(state.steps)},           {"saved", JsonOf(m_pDocument->SavedSteps())}};
    if (!state.panel.panel.isEmpty()) {
        json.insert("panel", JsonOf({state.panel}));
        json.insert("opened", state.opened);
    }
    HBCheckMemory();
    return QJsonDocument(json).toJson();
}

void HBRecovery::Remove()
{
    if (m_IsThere)
        QFile::remove(m_File);
    m_IsThere = false;
    m_pLock.reset(); // which deletes its file
}

QVector<HBLostStack> HBRecovery::FindLost() const
{
    QVector<HBLostStack> all;
    const QDir folder(m_Folder);
    for (const QFileInfo& info : folder.entryInfoList({"*.json"}, QDir::Files, QDir::Time)) {
        const auto lock = std::make_shared<QLockFile>(LockOf(info.filePath()));
        lock->setStaleLockTime(0);
        if (info.filePath() == m_File || !lock->tryLock(0))
            continue; // of an editor that lives
        HBLostStack lost;
        lost.lock = lock;
        if (Read(info.filePath(), &lost))
            all.append(lost);
    }
    return all;
}

void HBRecovery::Forget(const HBLostStack& lost)
{
    // And what was being written when its editor ended.
    const QFileInfo file(lost.file);
    for (const QString& name : file.dir().entryList({file.fileName() + '*'}, QDir::Files))
        QFile::remove(file.dir().filePath(name));
    lost.lock->unlock();
}
