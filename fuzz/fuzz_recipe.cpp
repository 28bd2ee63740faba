// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// JSON → recipe → picture; and what is written of it is read as the same.
// Input: target (HBFuzzTarget), JSON.
#include "HBFuzz.h"

#include <HBRecipe.h>

#include <QGuiApplication>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QGuiApplication(*argc, *argv); // lives as long as the process
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HBFuzzInput input(data, size);
    const HBTarget target = HBFuzzTarget(&input);
    HBRecipe recipe, again;
    QString error;
    if (!HBRecipe::FromJson(input.Rest(), &recipe, &error)) {
        HBFuzzCheck(!error.isEmpty(), "a recipe is refused without a reason");
        HBFuzzCheck(recipe.steps.isEmpty(), "a refused recipe has changed");
        return 0;
    }
    const QByteArray json = recipe.ToJson();
    HBFuzzCheck(HBRecipe::FromJson(json, &again, &error), "what was written cannot be read: " + error);
    HBFuzzCheck(again.ToJson() == json, "what was written is read as something else");
    const HBImage<> result = HBApplyRecipe(target, recipe, &error, nullptr);
    HBFuzzCheck(!error.isEmpty() || result.ToQImage().size() == target.source.ToQImage().size(),
                "neither a picture nor an error");
    HBFuzzCheck(error.isEmpty() || result.IsEmpty(), "a picture and an error: " + error);
    return 0;
}
