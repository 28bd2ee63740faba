// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// The jobs of the panels on 24 megapixels, against a plain copy of the same tiles and OpenCV's nearest equivalent on
// the same pixels. A new transformation adds one RegisterJob line, and a peer if OpenCV has one.

#include "HBBenchmarkSummary.h"
#include "HBThresholdRGB32.h"

#include <HBAdjustmentProcessingTemplate.h>
#include <HBIterativeBrightnessContrastTransformation.h>
#include <HBIterativeCurvesTransformation.h>
#include <HBIterativeExposureTransformation.h>
#include <HBIterativeGammaCorrectionTransformation.h>
#include <HBIterativeLevelsTransformation.h>
#include <HBIterativePosterizeTransformation.h>
#include <HBParallel.h>

#include <opencv2/core.hpp>

#include <QCoreApplication>

#include <atomic>
#include <functional>

namespace
{

constexpr int Width = 6000;
constexpr int Height = 4000;
constexpr const char* CopyName = "TileCopy";

/// No two neighbours alike and no level rare, as in a photo with noise.
HBImage<> MakePhoto()
{
    HBImage<> image(Width, Height);
    std::uint32_t state = 1;
    for (int index = 0; index < image.Tiles().size(); ++index) {
        const KMTilePin<HBRGBA32i> pin(image.Tile(index), true);
        for (int i = 0; i < HBImage<>::TilePixels; ++i) {
            state = state * 1664525u + 1013904223u;
            pin.Pixels()[i] = HBRGBA32i::FromRgba(0xFF000000u | (state >> 8));
        }
    }
    return image;
}

const HBImage<>& Photo()
{
    static const HBImage<> photo = MakePhoto();
    return photo;
}

const cv::Mat& PhotoMat()
{
    static const QImage image = Photo().ToQImage();
    static const cv::Mat mat(Height, Width, CV_8UC4, const_cast<uchar*>(image.constBits()),
                             std::size_t(image.bytesPerLine()));
    return mat;
}

/// Calls `function` for every tile, shared out as a job's tiles are.
void ForEachTile(const std::function<void(int index)>& function)
{
    const int tiles = Photo().Tiles().size();
    std::atomic<int> next{0};
    HBRunLanes(HBLaneCount(tiles), [&] {
        for (int index; (index = next.fetch_add(1)) < tiles;)
            function(index);
    });
}

void TileCopy(benchmark::State& state)
{
    Photo();
    for (auto _ : state) {
        HBImage<> copy = Photo();
        copy.DetachList();
        ForEachTile([&](int index) { copy.Detach(index); });
    }
}

void TileRead(benchmark::State& state)
{
    Photo();
    for (auto _ : state) {
        std::atomic<std::uint32_t> total{0};
        ForEachTile([&](int index) {
            const KMTilePin<std::uint32_t> pin(Photo().Tile(index), false);
            std::uint32_t sum = 0;
            for (int i = 0; i < HBImage<>::TilePixels; ++i)
                sum += pin.Pixels()[i];
            total += sum;
        });
        benchmark::DoNotOptimize(total.load());
    }
}

/// Milliseconds by the clock on the wall: the work is spread over threads.
void Register(const char* name, const std::function<void(benchmark::State&)>& function)
{
    benchmark::RegisterBenchmark(name, function)->Unit(benchmark::kMillisecond)->UseRealTime();
}

template <class Transformation>
void RegisterJob(const char* name, const Transformation& transformation)
{
    Register(name, [=](benchmark::State& state) {
        QReadWriteLock guard;
        const bool newData = false;
        HBAdjustmentProcessingTemplate<Transformation> processing(transformation, &guard, &newData);
        Photo();
        for (auto _ : state)
            benchmark::DoNotOptimize(processing.Process(Photo(), {}, {}, QRect()));
    });
}

/// \param function makes the adjusted picture from the photo: a new one each time, as a job does
void RegisterPeer(const char* name, const std::function<cv::Mat(const cv::Mat&)>& function)
{
    Register(name, [=](benchmark::State& state) {
        PhotoMat();
        for (auto _ : state)
            benchmark::DoNotOptimize(function(PhotoMat()).data);
    });
}

/// A cv::LUT with a table a channel, alpha last and kept.
std::function<cv::Mat(const cv::Mat&)> Lut(const HBChannelTables& tables)
{
    cv::Mat lut(1, 256, CV_8UC4);
    for (int level = 0; level < 256; ++level)
        lut.at<cv::Vec4b>(level) = {tables.blue[std::size_t(level)], tables.green[std::size_t(level)],
                                    tables.red[std::size_t(level)], std::uint8_t(level)};
    return [lut](const cv::Mat& photo) {
        cv::Mat result;
        cv::LUT(photo, lut, result);
        return result;
    };
}

/// Levels with other settings in every channel.
HBIterativeLevelsTransformation Levels()
{
    const int input[4][2] = {{5, 250}, {0, 240}, {10, 255}, {3, 200}};
    const int output[4][2] = {{0, 255}, {0, 255}, {10, 240}, {0, 255}};
    const double gamma[4] = {1.2, 1.0, 0.9, 1.1};
    return {input, output, gamma, 100};
}

/// Curves with other points in every channel.
HBIterativeCurvesTransformation Curves()
{
    const QVector<QPoint> points[4] = {
        {{0, 0}, {60, 40}, {190, 220}, {255, 255}}, {{0, 10}, {255, 255}}, {}, {{0, 0}, {128, 140}, {255, 240}}};
    return {points, 100};
}

std::vector<HBBenchmarkAim> RegisterAll()
{
    Register(CopyName, TileCopy);
    Register("TileRead", TileRead);

    const HBIterativeBrightnessContrastTransformation brightnessContrast(30, 40);
    RegisterJob("BrightnessContrast", brightnessContrast);
    RegisterPeer("BrightnessContrast_OpenCV", Lut(brightnessContrast.Operation()));

    // One peer for all that follow: the time of a look-up does not depend on what the tables hold.
    RegisterPeer("Lut_OpenCV", Lut(Levels().Operation()));
    RegisterJob("Gamma", HBIterativeGammaCorrectionTransformation(2.2));
    RegisterJob("Exposure", HBIterativeExposureTransformation(0.7, 0.01));
    RegisterJob("Posterize", HBIterativePosterizeTransformation(5));
    RegisterJob("Levels", Levels());
    RegisterJob("Curves", Curves());
    using Threshold = HBThresholdRGB32<30, 59, 11>;
    RegisterJob("Threshold", HBIterativeAdjustmentTransformation<Threshold>(Threshold{128}));

    std::vector<HBBenchmarkAim> aims = {{"BrightnessContrast", "BrightnessContrast_OpenCV", 2.0, 2.5}};
    for (const char* name : {"Gamma", "Exposure", "Posterize", "Levels", "Curves", "Threshold"})
        aims.push_back({name, "Lut_OpenCV", 2.0, 2.5});
    return aims;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const std::vector<HBBenchmarkAim> aims = RegisterAll();
    // Medians of many short repetitions, interleaved: another program on the machine then disturbs all alike.
    std::vector<char*> arguments(argv, argv + argc);
    std::string defaults[] = {"--benchmark_repetitions=15", "--benchmark_min_time=0.1",
                              "--benchmark_enable_random_interleaving=true"};
    for (std::string& argument : defaults)
        arguments.insert(arguments.begin() + 1, argument.data());
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    HBMedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.PrintSummary(CopyName, aims) ? 0 : 1;
}
