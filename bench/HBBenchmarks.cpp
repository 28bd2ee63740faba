// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// The jobs of the panels on 24 megapixels, against a plain copy of the same tiles and OpenCV's nearest equivalent on
// the same pixels. A new transformation adds one RegisterJob line, and a peer if OpenCV has one.

#include "HBAverageTintRGB32.h"
#include "HBBenchmarkSummary.h"
#include "HBThresholdRGB32.h"

#include <HBAdjustmentProcessingTemplate.h>
#include <HBColorEnhancerTransformation.h>
#include <HBFloodFillHelper.h>
#include <HBHistogrammCalculator.h>
#include <HBHueSaturationTransformation.h>
#include <HBIterativeBlackAndWhiteTransformation.h>
#include <HBIterativeBrightnessContrastTransformation.h>
#include <HBIterativeColorBalanceTransformation.h>
#include <HBIterativeColorizeTransformation.h>
#include <HBIterativeCurvesTransformation.h>
#include <HBIterativeExposureTransformation.h>
#include <HBIterativeGammaCorrectionTransformation.h>
#include <HBIterativeLevelsTransformation.h>
#include <HBIterativePhotoFilterTransformation.h>
#include <HBIterativePosterizeTransformation.h>
#include <HBOverlay.h>
#include <HBParallel.h>
#include <HBTemperatureCorrection.h>
#include <HBTintRGB32.h>
#include <KMFillTransformation.h>
#include <KMIterativeWBTransformation.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <QGuiApplication>
#include <QTemporaryDir>

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

/// A job of a pixel operation.
template <class Operation>
void RegisterOperation(const char* name, const Operation& operation)
{
    RegisterJob(name, HBIterativeAdjustmentTransformation<Operation>(operation));
}

cv::Mat HlsThereAndBack(const cv::Mat& photo)
{
    cv::Mat hls;
    cv::Mat result;
    cv::cvtColor(photo, hls, cv::COLOR_BGR2HLS_FULL);
    cv::cvtColor(hls, result, cv::COLOR_HLS2BGR_FULL, 4);
    return result;
}

cv::Mat GrayThereAndBack(const cv::Mat& photo)
{
    cv::Mat gray;
    cv::Mat result;
    cv::cvtColor(photo, gray, cv::COLOR_BGRA2GRAY);
    cv::cvtColor(gray, result, cv::COLOR_GRAY2BGRA);
    return result;
}

/// Every channel a weighted sum of the channels: what OpenCV has for a change of colours as a whole.
cv::Mat MatrixOfColours(const cv::Mat& photo)
{
    const cv::Mat matrix = (cv::Mat_<float>(4, 4) << 0.8, 0.1, 0.1, 0, 0.1, 0.9, 0, 0, 0, 0.2, 0.7, 0, 0, 0, 0, 1);
    cv::Mat result;
    cv::transform(photo, result, matrix);
    return result;
}

cv::Mat MixWithColour(const cv::Mat& photo)
{
    static const cv::Mat colour(Height, Width, CV_8UC4, cv::Scalar(90, 200, 1, 255));
    cv::Mat result;
    cv::addWeighted(photo, 0.5, colour, 0.5, 0.0, result);
    return result;
}

cv::Mat FloodWhite(const cv::Mat&)
{
    cv::Mat white(Height, Width, CV_8UC3, cv::Scalar(255, 255, 255)); // floodFill takes no alpha
    cv::floodFill(white, cv::Point(0, 0), cv::Scalar(1, 2, 3));
    return white;
}

HBIterativeColorBalanceTransformation Balance()
{
    const int cyanRed[3] = {10, -20, 30};
    const int magentaGreen[3] = {-5, 0, 15};
    const int yellowBlue[3] = {0, 25, -40};
    return {cyanRed, magentaGreen, yellowBlue};
}

void RegisterAnalysis(const char* name, KMWBTransformation::BalanceFunction function)
{
    Register(name, [=](benchmark::State& state) {
        Photo();
        for (auto _ : state)
            benchmark::DoNotOptimize(KMIterativeWBTransformation(Photo(), function, 100));
    });
}

void RegisterFlood(const char* name)
{
    Register(name, [](benchmark::State& state) {
        const HBImage<> plain(Width, Height);
        for (auto _ : state) {
            HBImage<> image = plain;
            HBFloodFillHelper::FloodFill(image, QPoint(0, 0), HBRGBA32i(0, 0, 0, 0), HBRGBA32i(1, 2, 3));
            benchmark::DoNotOptimize(image);
        }
    });
}

void RegisterHistogram(const char* name)
{
    Register(name, [](benchmark::State& state) {
        Photo();
        for (auto _ : state)
            benchmark::DoNotOptimize(HBHistogrammCalculator::Count(Photo(), QRect(0, 0, Width, Height)));
    });
}

/// Overlays that cover the picture.
void RegisterOverlays(std::vector<HBBenchmarkAim>& aims)
{
    static const QTemporaryDir folder;
    HBSignParams sign;
    sign.fileName = folder.filePath("stamp.png");
    sign.margins = QRect(QPoint(0, 0), QPoint(0, 0));
    sign.opacity = 50;
    QImage stamp(1500, 1000, QImage::Format_ARGB32);
    stamp.fill(QColor(200, 120, 40, 180));
    stamp.save(sign.fileName);
    HBWatermarkParams watermark;
    watermark.text = "Adjustment Panels";
    watermark.font.setPointSize(300);
    watermark.opacity = 50;
    watermark.margins = sign.margins;
    const auto overlay = [](const char* name, auto draw, const auto& params) {
        Register(name, [=](benchmark::State& state) {
            Photo();
            QString error;
            for (auto _ : state)
                benchmark::DoNotOptimize(draw(Photo(), params, &error));
            if (!error.isEmpty())
                state.SkipWithError(qPrintable(error));
        });
    };
    overlay("Sign", &HBDrawSign, sign);
    overlay("Watermark", &HBDrawWatermark, watermark);
    aims.push_back({"Sign", "TileRead", 6.0, 0.0});
    aims.push_back({"Watermark", "TileRead", 6.0, 0.0});
}

void RegisterColour(std::vector<HBBenchmarkAim>& aims)
{
    const HBRGBA32i orange(236, 138, 0);
    const HBRGBA32i pale(170, 209, 255);
    RegisterPeer("Hls_OpenCV", HlsThereAndBack);
    RegisterPeer("Gray_OpenCV", GrayThereAndBack);
    RegisterPeer("Matrix_OpenCV", MatrixOfColours);
    RegisterPeer("Mix_OpenCV", MixWithColour);
    RegisterPeer("Flood_OpenCV", FloodWhite);

    HBTemperatureCorrection temperature;
    temperature.SetData(4000, 70, 10);
    HBColorEnhancerTransformation enhancer;
    enhancer.SetLevels(Levels().Operation());
    enhancer.SetAmountData(60);
    KMFillTransformation fill;
    fill.SetData(HBRGBA32i(1, 200, 90, 127));

    RegisterOperation("HueSaturation", HBHueSaturationTransformation(40, 20, 10, false));
    RegisterJob("ColorBalance", Balance());
    RegisterOperation("Temperature", temperature);
    RegisterOperation("ColorEnhancer", enhancer);
    RegisterAnalysis("WhiteBalance_Cast", KMWBTransformation::AutoBalance);
    RegisterAnalysis("WhiteBalance_Exposure", KMWBTransformation::Overexposure);
    RegisterOperation("Tint", HBAverageTintRGB32<333, 334, 333>(orange, pale, 191250));
    RegisterOperation("TintRGB", HBTintRGB32(orange, pale, 75));
    RegisterJob("BlackAndWhite", HBIterativeBlackAndWhiteTransformation(false, 0.3f, 0.59f, 0.11f));
    RegisterJob("BlackAndWhite_CIE", HBIterativeBlackAndWhiteTransformation(true, 0.2126f, 0.7152f, 0.0722f));
    RegisterJob("PhotoFilter", HBIterativePhotoFilterTransformation(orange, 60));
    RegisterJob("Colorize", HBIterativeColorizeTransformation(orange, 60));
    RegisterOperation("Fill", fill);
    RegisterFlood("FloodFill");

    aims.push_back({"HueSaturation", "Hls_OpenCV", 5.0, 2.5});
    for (const char* name : {"ColorBalance", "Temperature"})
        aims.push_back({name, "Matrix_OpenCV", 6.0, 1.0});
    aims.push_back({"ColorEnhancer", "Lut_OpenCV", 6.0, 1.0});
    // At most three times a read, that is to say.
    for (const char* name : {"WhiteBalance_Cast", "WhiteBalance_Exposure"})
        aims.push_back({name, "TileRead", 6.0, 1.0 / 3.0});
    for (const char* name : {"Tint", "BlackAndWhite_CIE", "PhotoFilter", "Colorize"})
        aims.push_back({name, "Matrix_OpenCV", 5.0, 1.0});
    aims.push_back({"TintRGB", "Lut_OpenCV", 5.0, 1.0});
    aims.push_back({"BlackAndWhite", "Gray_OpenCV", 5.0, 1.0});
    aims.push_back({"Fill", "Mix_OpenCV", 5.0, 1.0});
    aims.push_back({"FloodFill", "Flood_OpenCV", 10.0, 1.0});
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
    RegisterHistogram("Histogram");
    aims.push_back({"Histogram", "TileRead", 6.0, 1.0 / 3.0});
    RegisterColour(aims);
    RegisterOverlays(aims);
    return aims;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv); // for the fonts of the watermark
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
