// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// How well the picture follows the hand: a control of a panel is moved every 8 ms over a photo of 24 and of 300
// megapixels, fitted into the view and at 100 %. Prints how many pictures a second were painted meanwhile, how
// long one change takes to be painted, and how long until the whole picture is there; with what is in sight first,
// and without; and through a colour profile. Argument: the megapixels, in place of those two sizes.

#include <HBAdjustmentWidget.h>
#include <HBPanelSession.h>
#include <KMDocumentView.h>

#include <QApplication>
#include <QColorSpace>
#include <QElapsedTimer>
#include <QSpinBox>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace
{

constexpr int DragMilliseconds = 2000;
constexpr int MoveMilliseconds = 8;

HBImage<> MakePhoto(int megapixels)
{
    const int width = int(std::sqrt(megapixels * 1.5e6));
    HBImage<> image(width, width * 2 / 3);
    for (int index = 0; index < image.Tiles().size(); ++index) {
        const KMTilePin<HBRGBA32i> pin(image.Tile(index), true);
        for (int i = 0; i < HBImage<>::TilePixels; ++i)
            pin.Pixels()[i] = HBRGBA32i(std::uint8_t(index), std::uint8_t(i), std::uint8_t(i >> 7));
    }
    return image;
}

template <class Condition>
void RunUntil(Condition condition)
{
    QTimer wakes;
    wakes.start(1);
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// Counts the paints that have something new to show.
class Paints : public QObject
{
public:
    explicit Paints(QWidget* watched) { watched->installEventFilter(this); }
    int count = 0;
    bool isNew = false;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && isNew) {
            isNew = false;
            QTimer::singleShot(0, this, [this] { ++count; }); // behind the paint
        }
        return false;
    }
};

void Measure(const HBImage<>& photo, bool fitted, bool follows, bool converts)
{
    KMDocumentView view;
    view.resize(1100, 760);
    view.show();
    view.SetPicture(photo);
    if (!fitted)
        view.ZoomToActual();
    if (converts) {
        HBTileMips::Look look;
        look.colors = HBColorTransform::Make(QColorSpace(QColorSpace::AdobeRgb).iccProfile(), {});
        view.SetLook(look);
    }
    Paints paints(view.viewport());
    HBPanelSession session(*HBFindPanel("HBHueSaturationWidget"));
    const auto noted = [&] { paints.isNew = true; };
    QObject::connect(&session, &HBPanelSession::PreviewReady, &view, &KMDocumentView::SetPicture);
    QObject::connect(&session, &HBPanelSession::PreviewReady, &paints, noted);
    QObject::connect(&session, &HBPanelSession::SightReady, &view, &KMDocumentView::ShowSight);
    QObject::connect(&session, &HBPanelSession::SightReady, &paints, noted);
    QObject::connect(&session, &HBPanelSession::SightOver, &view, &KMDocumentView::EndSight);
    if (follows)
        session.SetSight(view.SightArea(), view.Zoom());
    session.SetTarget({photo});
    RunUntil([&] { return session.IsUpToDate() && !session.IsBusy(); });

    auto* control = session.Panel()->findChild<QSpinBox*>();
    QElapsedTimer time;
    std::vector<qint64> first;
    std::vector<qint64> whole;
    for (int change = 0; change < 5; ++change) {
        const int before = paints.count;
        time.start();
        control->setValue(control->value() + 3);
        RunUntil([&] { return paints.count > before; });
        first.push_back(time.elapsed());
        RunUntil([&] { return session.IsUpToDate() && !session.IsBusy(); });
        whole.push_back(time.elapsed());
    }
    std::sort(first.begin(), first.end());
    std::sort(whole.begin(), whole.end());

    const int before = paints.count;
    int moved = 0;
    QTimer hand;
    hand.setTimerType(Qt::PreciseTimer);
    QObject::connect(&hand, &QTimer::timeout, control, [&] { control->setValue(++moved % 100); });
    hand.start(MoveMilliseconds);
    time.start();
    RunUntil([&] { return time.elapsed() >= DragMilliseconds; });
    hand.stop();
    const double rate = (paints.count - before) * 1000.0 / DragMilliseconds;
    std::printf("%4d MP  %-7s  %-12s  %6.1f pictures/s  first %4lld ms (at most %4lld)  whole %5lld ms\n",
                int(double(photo.Width()) * photo.Height() / 1e6 + 0.5), fitted ? "fitted" : "100 %",
                converts  ? "with profile"
                : follows ? "sight first"
                          : "whole only",
                rate, static_cast<long long>(first[2]), static_cast<long long>(first[4]),
                static_cast<long long>(whole[2]));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::vector<int> sizes = {24, 300};
    if (argc > 1)
        sizes = {std::max(1, std::atoi(argv[1]))};
    for (const int megapixels : sizes) {
        const HBImage<> photo = MakePhoto(megapixels);
        for (const bool fitted : {true, false}) {
            Measure(photo, fitted, false, false);
            Measure(photo, fitted, true, false);
            Measure(photo, fitted, true, true);
        }
    }
    return 0;
}
