// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBAdjustment.h>
#include <HBLevels.h>
#include <HBRecipe.h>
#include <HBSelectionImage.h>

#include <QImage>
#include <QTextStream>

#include <chrono>
#include <future>

namespace
{

/// How far a piece of work is; asked from another thread than that which works.
struct Progress : HBJobControl
{
    void SetRange(int, int maximum) override { m_Maximum = maximum; }
    void SetProgress(int value) override { m_Value = value; }
    int Percent() const { return m_Maximum > 0 ? int(100LL * m_Value / m_Maximum) : 0; }

private:
    std::atomic<int> m_Value{0};
    std::atomic<int> m_Maximum{0};
};

/// The upper half of the photo by the recipe, then all of it a little lighter. Empty, with the error, if that
/// fails.
QImage Adjust(QImage photo, const HBRecipe& recipe, QString* error, Progress* progress)
{
    HBTarget upperHalf{HBImage<>::FromQImage(photo)};
    if (!HBSelectRectangle({0, 0, photo.width(), photo.height() / 2}, &upperHalf, error))
        return {};
    const HBImage<> picture = HBApplyRecipe(upperHalf, recipe, error, progress);
    if (picture.IsEmpty()) {
        if (error->isEmpty()) // nothing failed
            *error = "cancelled";
        return {};
    }
    HBLevelsParams lighter;
    lighter.gamma[0] *= 1.1; // of all channels together
    const HBOutcome outcome = HBAdjust(lighter, {picture}, progress);
    if (!outcome.IsWhole()) {
        *error = outcome.status == HBOutcome::Cancelled ? "cancelled" : HBFailureReason(outcome);
        return {};
    }
    return outcome.image.ToQImage();
}

} // namespace

// service RECIPE PHOTO RESULT: adjusts on a thread of its own, without a window, an event loop or an application
// object, and gives up after a minute.
int main(int argc, char* argv[])
{
    QTextStream err(stderr);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    HBRecipe recipe;
    QString error;
    if (!HBRecipe::Load(arguments.value(0), &recipe, &error)) {
        err << error << '\n';
        return 2;
    }
    const QImage photo(arguments.value(1));
    if (photo.isNull()) {
        err << "Usage: service RECIPE PHOTO RESULT\n";
        return 2;
    }

    Progress progress;
    std::future<QImage> work =
        std::async(std::launch::async, [&] { return Adjust(photo, recipe, &error, &progress); });
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (work.wait_for(std::chrono::seconds(1)) == std::future_status::timeout) {
        err << progress.Percent() << " %\n" << Qt::flush;
        if (std::chrono::steady_clock::now() > deadline)
            progress.Cancel(); // from here; the work ends at its next tile
    }
    const QImage result = work.get(); // the thread has ended: nobody else writes the error now
    if (!error.isEmpty() || !result.save(arguments.value(2))) {
        err << (error.isEmpty() ? "The result cannot be written" : error) << '\n';
        return 1;
    }
    return 0;
}
