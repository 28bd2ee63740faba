// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// The panels on 24 megapixels, the bare job and end to end, against a plain copy of the same tiles and OpenCV's
// nearest equivalent on the same pixels. A panel that Rows() does not name is measured by its demonstration, and
// held against aims that all of them reach.
//
//   panels-bench [--short | --figures] [OPTION OF GOOGLE BENCHMARK...]
//
// --short: each once, to see that all of them work. --figures: prints the README's tables. Otherwise fails if an
// aim is missed.

#include "HBAverageTintRGB32.h"
#include "HBBenchmarkSummary.h"
#include "HBOkBenchmark.h"
#include "HBPanelBenchmark.h"
#include "HBRecipeBenchmark.h"
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
#include <HBPanelCatalog.h>
#include <HBParallel.h>
#include <HBTemperatureCorrection.h>
#include <HBTintRGB32.h>
#include <KMFillTransformation.h>
#include <KMIterativeWBTransformation.h>
#include <KMTheme.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <iostream>

namespace
{

constexpr int Width = 6000;
constexpr int Height = 4000;
constexpr const char* CopyName = "TileCopy";
constexpr const char* ReadName = "TileRead";
constexpr const char* FloodName = "FloodFill";
constexpr const char* ChangedName = "HBColorEnhancerWidget"; ///< it remembers the picture's thresholds

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

/// All of one colour: a flood reaches every pixel.
const HBImage<>& PlainPicture()
{
    static const HBImage<> picture(Width, Height);
    return picture;
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

/// OpenCV at its best: as many threads as it likes, and memory that it had before, so that no page is new.
/// \param function makes the adjusted picture from the photo; the result and one picture between are kept
void RegisterPeer(const char* name,
                  const std::function<void(const cv::Mat&, cv::Mat& between, cv::Mat&)>& function)
{
    Register(name, [=](benchmark::State& state) {
        cv::Mat between;
        cv::Mat result;
        function(PhotoMat(), between, result);
        for (auto _ : state) {
            function(PhotoMat(), between, result);
            benchmark::DoNotOptimize(result.data);
        }
    });
}

/// A cv::LUT with a table a channel, alpha last and kept.
std::function<void(const cv::Mat&, cv::Mat&, cv::Mat&)> Lut(const HBChannelTables& tables)
{
    cv::Mat lut(1, 256, CV_8UC4);
    for (int level = 0; level < 256; ++level)
        lut.at<cv::Vec4b>(level) = {tables.blue[std::size_t(level)], tables.green[std::size_t(level)],
                                    tables.red[std::size_t(level)], std::uint8_t(level)};
    return [lut](const cv::Mat& photo, cv::Mat&, cv::Mat& result) { cv::LUT(photo, lut, result); };
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

void HlsThereAndBack(const cv::Mat& photo, cv::Mat& hls, cv::Mat& result)
{
    cv::cvtColor(photo, hls, cv::COLOR_BGR2HLS_FULL);
    cv::cvtColor(hls, result, cv::COLOR_HLS2BGR_FULL, 4);
}

void GrayThereAndBack(const cv::Mat& photo, cv::Mat& gray, cv::Mat& result)
{
    cv::cvtColor(photo, gray, cv::COLOR_BGRA2GRAY);
    cv::cvtColor(gray, result, cv::COLOR_GRAY2BGRA);
}

/// Every channel a weighted sum of the channels: what OpenCV has for a change of colours as a whole.
void MatrixOfColors(const cv::Mat& photo, cv::Mat&, cv::Mat& result)
{
    const cv::Mat matrix = (cv::Mat_<float>(4, 4) << 0.8, 0.1, 0.1, 0, 0.1, 0.9, 0, 0, 0, 0.2, 0.7, 0, 0, 0, 0, 1);
    cv::transform(photo, result, matrix);
}

void MixWithColor(const cv::Mat& photo, cv::Mat&, cv::Mat& result)
{
    static const cv::Mat color(Height, Width, CV_8UC4, cv::Scalar(90, 200, 1, 255));
    cv::addWeighted(photo, 0.5, color, 0.5, 0.0, result);
}

/// Works in place, so the picture is made plain again each time: our flood leaves its source alone, too.
void FloodWhite(const cv::Mat&, cv::Mat&, cv::Mat& white)
{
    white.create(Height, Width, CV_8UC3); // floodFill takes no alpha
    white.setTo(cv::Scalar(255, 255, 255));
    cv::floodFill(white, cv::Point(0, 0), cv::Scalar(1, 2, 3));
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
        for (auto _ : state) {
            HBImage<> image = PlainPicture();
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
void RegisterOverlays()
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
}

void RegisterColor()
{
    const HBRGBA32i orange(236, 138, 0);
    const HBRGBA32i pale(170, 209, 255);
    RegisterPeer("OpenCV_HlsAndBack", HlsThereAndBack);
    RegisterPeer("OpenCV_GreyAndBack", GrayThereAndBack);
    RegisterPeer("OpenCV_ColorMatrix", MatrixOfColors);
    RegisterPeer("OpenCV_WeightedSum", MixWithColor);
    RegisterPeer("OpenCV_FloodFill", FloodWhite);

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
    RegisterFlood(FloodName);
}

void RegisterAll()
{
    Register(CopyName, TileCopy);
    Register(ReadName, TileRead);
    RegisterHistogram("Histogram");

    const HBIterativeBrightnessContrastTransformation brightnessContrast(30, 40);
    RegisterJob("BrightnessContrast", brightnessContrast);
    // One peer for all look-ups: their time does not depend on what the tables hold.
    RegisterPeer("OpenCV_LookUpTable", Lut(Levels().Operation()));
    RegisterJob("Gamma", HBIterativeGammaCorrectionTransformation(2.2));
    RegisterJob("Exposure", HBIterativeExposureTransformation(0.7, 0.01));
    RegisterJob("Posterize", HBIterativePosterizeTransformation(5));
    RegisterJob("Levels", Levels());
    RegisterJob("Curves", Curves());
    using Threshold = HBThresholdRGB32<30, 59, 11>;
    RegisterJob("Threshold", HBIterativeAdjustmentTransformation<Threshold>(Threshold{128}));
    RegisterColor();
    RegisterOverlays();
}

/// The aims are times of the tile copy, and how many times as long as our end-to-end time OpenCV takes at least.
std::vector<HBBenchmarkRow> Rows()
{
    const char* const lut = "OpenCV_LookUpTable";
    const char* const matrix = "OpenCV_ColorMatrix";
    // panel, job, peer; aims: job, end to end, peer
    std::vector<HBBenchmarkRow> rows = {
        {"HBBrightnessContrastWidget", "BrightnessContrast", lut, 2.0, 2.0, 2.2},
        {"HBExposureWidget", "Exposure", lut, 2.0, 2.0, 2.2},
        {"HBGammaCorrectionWidget", "Gamma", lut, 2.0, 2.0, 2.2},
        {"HBPosterizeWidget", "Posterize", lut, 2.0, 2.0, 2.2},
        {"HBLevelsWidget", "Levels", lut, 2.0, 2.0, 2.2},
        {"HBCurvesWidget", "Curves", lut, 2.0, 2.0, 2.2},
        {"HBThresholdWidget", "Threshold", lut, 2.0, 2.0, 2.2},
        {"HBHueSaturationWidget", "HueSaturation", "OpenCV_HlsAndBack", 5.0, 3.0, 3.0},
        {"HBColorBalanceWidget", "ColorBalance", matrix, 6.0, 3.2, 1.0},
        {"HBTemperatureWidget", "Temperature", matrix, 6.0, 3.2, 1.0},
        {ChangedName, "ColorEnhancer", lut, 2.0, 3.0, 1.0},
        {"HBTintWidget", "Tint", matrix, 5.0, 3.2, 1.0},
        {"HBBlackAndWhiteWidget", "BlackAndWhite", "OpenCV_GreyAndBack", 5.0, 3.2, 1.0},
        {"HBPhotoFilterWidget", "PhotoFilter", matrix, 5.0, 3.2, 1.0},
        {"HBColorizeWidget", "Colorize", matrix, 5.0, 3.2, 1.0},
        {"KMFillColorWidget", "Fill", "OpenCV_WeightedSum", 5.0, 3.2, 1.0},
        {"HBReplaceColorWidget", FloodName, "OpenCV_FloodFill", 10.0, 3.5, 1.0},
        {"HBWBWidget", "WhiteBalance_Cast", "", 6.0, 6.0, 0.0},
        {"HBSignWidget", "Sign", "", 6.0, 0.0, 0.0},
        {"HBWatermarkWidget", "Watermark", "", 6.0, 0.0, 0.0},
    };
    for (const HBPanelEntry& panel : HBPanelCatalog()) {
        const auto named = [&](const HBBenchmarkRow& row) { return row.panel == panel.className; };
        if (std::none_of(rows.begin(), rows.end(), named))
            rows.push_back(
                {panel.className, HBRegisterRecipe(panel.className, Photo), "", 6.0, panel.draw ? 0.0 : 6.0, 0.0});
    }
    return rows;
}

/// Removes `option` from the arguments.
bool Take(std::vector<char*>& arguments, const char* option)
{
    const auto same = [=](const char* argument) { return qstrcmp(argument, option) == 0; };
    const auto found = std::find_if(arguments.begin(), arguments.end(), same);
    if (found == arguments.end())
        return false;
    arguments.erase(found);
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    KMTheme::Install();
    std::vector<char*> arguments(argv, argv + argc);
    const bool shortRun = Take(arguments, "--short");
    const bool figures = Take(arguments, "--figures");

    RegisterAll();
    const std::vector<HBBenchmarkRow> rows = Rows();
    for (const HBBenchmarkRow& row : rows) {
        if (row.mostEndCopies > 0)
            HBRegisterPanel(row.panel, row.job == FloodName ? PlainPicture : Photo);
    }
    HBRegisterChange(ChangedName, Photo);

    HBRegisterRecipes(Photo);
    HBRegisterOks(Photo);

    // Medians of many short repetitions, interleaved: another program on the machine then disturbs all alike.
    std::vector<std::string> defaults = {"--benchmark_repetitions=15", "--benchmark_min_time=0.1",
                                         "--benchmark_enable_random_interleaving=true"};
    if (shortRun)
        defaults = {"--benchmark_repetitions=1", "--benchmark_min_time=0.001"};
    for (std::string& argument : defaults)
        arguments.insert(arguments.begin() + 1, argument.data());
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;
    HBMedianReporter reporter;
    if (figures) // the tables alone on the standard output
        reporter.SetOutputStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    if (reporter.HasFailed())
        return 1;
    if (figures) {
        reporter.PrintFigures(rows, CopyName);
        std::printf("\nReading the tiles takes %.1f ms; their histogram %.1f times as long, the analysis of a "
                    "colour cast %.1f "
                    "times.\n",
                    reporter.Median(ReadName), reporter.Median("Histogram") / reporter.Median(ReadName),
                    reporter.Median("WhiteBalance_Cast") / reporter.Median(ReadName));
        std::printf("A change in the colour enhancer takes %.1f times the copy.\n",
                    reporter.Median(HBChangeBenchmark(ChangedName)) / reporter.Median(CopyName));
        HBPrintRecipes(reporter, CopyName);
        HBPrintOks(reporter);
        return 0;
    }
    if (shortRun) // its times tell nothing: much of the memory is new
        return 0;
    const bool panels = reporter.PrintSummary(rows, CopyName);
    const bool recipes = HBPrintRecipes(reporter, CopyName);
    return HBPrintOks(reporter) && recipes && panels ? 0 : 1;
}
