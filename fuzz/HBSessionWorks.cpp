// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBAttackWork.h"
#include "HBFuzz.h"
#include "HBTestRecords.h"

#include <HBPanelSession.h>

#include <memory>

namespace {

/// What the session has told.
struct Told {
    HBImage<> accepted;
    QString trouble, reason;
    bool isAccepted = false, isResumed = false;
};

HBAttackResult RunSession(const HBPanelEntry& entry, const HBTarget& target, const HBRecipeStep& step, double zoom,
                          const QImage& right) {
    const auto comesTrue = [&](const std::function<bool()>& isSo) {
        if (!HBComesTrue(isSo)) HBFuzzFail(QString("A session of %1 does not come to rest").arg(entry.className));
    };
    std::unique_ptr<HBPanelSession> session;
    Told told;
    const auto isAnswered = [&] { return told.isAccepted || told.isResumed; };
    {
        const HBCalm calm;
        session = std::make_unique<HBPanelSession>(entry);
        QObject::connect(session.get(), &HBPanelSession::Troubled,
                         [&](const QString& reason) { told.trouble = reason; });
        QObject::connect(session.get(), &HBPanelSession::Resumed, [&](const QString& reason) {
            told.isResumed = true;
            told.reason = reason;
        });
        QObject::connect(session.get(), &HBPanelSession::Accepted, [&](const HBImage<>& image) {
            told.isAccepted = true;
            told.accepted = image;
        });
        session->SetAmount(step.amount);
        session->SetSight({20, 20, 200, 150}, zoom);
        session->SetTarget(target);
        comesTrue([&] { return session->IsUpToDate() && !session->IsBusy(); }); // the thread of the sight stands
        session->SetStep(step);
    }
    comesTrue([&] { return !session->IsBusy() && (session->IsUpToDate() || !told.trouble.isEmpty()); });
    session->Accept();
    comesTrue(isAnswered);
    HBEndFailing();
    HBFuzzCheck(session->Step().values == step.values, "A session has lost its values");
    const QString error = told.reason;
    if (told.isResumed) {
        HBFuzzCheck(!error.isEmpty(), "A session goes on without a reason");
        told.isResumed = false;
        session->Accept(); // with memory all is well
        comesTrue(isAnswered);
    }
    HBFuzzCheck(told.isAccepted && told.accepted.ToQImage() == right, "OK gives another picture than the values");
    return {right, error};
}

} // namespace

QVector<HBAttackWork> HBSessionWorks() {
    struct Case {
        const char* panel;
        bool selected;
        int amount;
        double zoom;
    };
    QVector<HBAttackWork> works;
    for (const Case& c : {Case{"HBCurvesWidget", true, 100, 1}, Case{"HBLevelsWidget", true, 60, 0.3},
                          Case{"HBColorEnhancerWidget", false, 30, 1}, Case{"HBSignWidget", false, 100, 1},
                          Case{"HBWatermarkWidget", false, 40, 1}, Case{"KMFillColorWidget", true, 100, 1}}) {
        const HBPanelEntry& entry = *HBFindPanel(c.panel);
        const HBTarget target = HBTestTarget({300, 200}, c.selected);
        HBRecipeStep step = HBStepOf(*entry.adjustment, HBDemonstration(*entry.adjustment));
        step.amount = c.amount;
        QString error;
        const QImage right = HBApplyRecipe(target, {{step}}, &error, nullptr).ToQImage();
        HBFuzzCheck(error.isEmpty(), error);
        works.append({QString("session ") + c.panel, HBFailing::OutsideMainThread,
                      [=, &entry] { return RunSession(entry, target, step, c.zoom, right); },
                      qstrcmp(c.panel, "HBWatermarkWidget") != 0});
    }
    return works;
}
