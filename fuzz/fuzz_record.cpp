// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// Stored bytes → record → prepare → operate on an awkward picture with a hostile selection → stored bytes.
// Input: adjustment, target (HBFuzzTarget), bytes of the record.
#include "HBFuzz.h"
#include "HBTestRecords.h"

#include <HBRecipe.h>

#include <QGuiApplication>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(*argc, *argv); // text is laid out; lives as long as the process
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HBFuzzInput input(data, size);
    const HBAdjustment& adjustment = HBAdjustments()[input.Below(HBAdjustments().size())];
    const HBTarget target = HBFuzzTarget(&input);
    std::any record = adjustment.defaults();
    QString reason;
    if (!adjustment.restore(HBFuzzStep(adjustment, input.Rest()), &record, &reason)) {
        HBFuzzCheck(!reason.isEmpty(), "a record is refused without a reason");
        HBFuzzCheck(adjustment.save(record) == adjustment.save(adjustment.defaults()),
                    "a refused record has changed");
        return 0;
    }
    const QJsonObject saved = adjustment.save(record);
    std::any again;
    HBFuzzCheck(adjustment.restore(saved, &again, &reason), "what was stored cannot be read: " + reason);
    HBFuzzCheck(adjustment.save(again) == saved, "what was stored is read as something else");

    const HBOutcome outcome = HBRun(adjustment, record, target);
    HBFuzzCheck(outcome.status != HBOutcome::Cancelled, "nobody has cancelled");
    HBFuzzCheck(outcome.IsWhole() == HBFailureReason(outcome).isEmpty(), "a failure without a reason");
    QString error;
    const HBImage<> byRecipe = HBApplyRecipe(target, {{{adjustment.className, saved}}}, &error, nullptr);
    HBFuzzCheck(error.isEmpty() == outcome.IsWhole(), "recipe and record do not agree: " + error);
    if (!outcome.IsWhole()) return 0;
    const QImage result = outcome.image.ToQImage();
    HBFuzzCheck(result.size() == target.source.ToQImage().size(), "the size has changed");
    HBFuzzCheck(byRecipe.ToQImage() == result, "recipe and record give different pixels");
    // Overlays and the flood fill work on all of it, whatever is selected.
    for (const HBStage& stage : adjustment.stages(record, target.bounds.isValid())) {
        if (stage.ignoresSelection) return 0;
    }
    HBFuzzCheck(HBKeepsOutside(target, outcome.image),
                QString("%1 changes pixels outside the selection").arg(adjustment.className));
    return 0;
}
