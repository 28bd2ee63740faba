// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpRun.h"
#include "HBTestImages.h"
#include "HBTestMain.h"
#include "HBTestRecords.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QRegularExpression>
#include <QtTest>

namespace {

constexpr int Width = 150;
constexpr int Height = 140;
const QRect selected(10, 20, 90, 110); // of the canvas
const QPoint offset(-20, 15);          // of the layer, a part of which lies outside

// Each picture is opened once, with its layer where it belongs and the selection. A case takes a copy, does to
// it what `prepare` says, which returns the drawable to adjust, makes the call, and stores the drawable.
const char script[] = R"(
(define (say text) (gimp-message text))
(define (open file)
  (let* ((image (car (gimp-file-load RUN-NONINTERACTIVE file file)))
         (layer (car (gimp-image-get-active-layer image)))
         (mask (car (gimp-file-load-layer RUN-NONINTERACTIVE image "mask.png"))))
    (gimp-image-resize image 160 150 0 0)
    (gimp-layer-set-offsets layer -20 15)
    (gimp-image-insert-layer image mask 0 0)
    (gimp-layer-set-offsets mask 0 0)
    (gimp-image-select-item image CHANNEL-OP-REPLACE mask)
    (gimp-image-remove-layer image mask)
    (gimp-image-set-active-layer image layer)
    image))
(define (whole image layer) (gimp-selection-none image) layer)
(define (state image)
  (list (gimp-image-get-active-layer image) (car (gimp-image-get-channels image)) (gimp-selection-bounds image)
        (gimp-selection-value image 11 21) (gimp-selection-value image 60 99) (gimp-selection-value image 99 129)))
(define (try name picture prepare call)
  (say (string-append "case " name))
  (let* ((image (car (gimp-image-duplicate picture)))
         (drawable (prepare image (car (gimp-image-get-active-layer image))))
         (before (state image))
         (out (string-append "out/" name ".png")))
    (catch #f (call image drawable))
    (if (not (equal? before (state image))) (say "the state of the image has changed"))
    (file-png-save2 RUN-NONINTERACTIVE image drawable out out 0 1 0 0 0 0 0 0 1)
    (gimp-image-delete image)))
(define ramp (open "ramp.png"))
(define grey (open "grey.png"))
(define opaque (open "opaque.png"))
(define deep (open "deep.png"))
)";

HBImage<> Grey() {
    return HBTestPicture(Width, Height, [](int x, int y) {
        const int v = (x * 2 + y) % 256;
        return qRgb(v, v, v);
    });
}

QRgb OpaqueColor(int x, int y) { return x < 30 ? qRgb(9, 9, 9) : qRgb(x, 2 * y % 256, 99); }

HBImage<> Opaque() { return HBTestPicture(Width, Height, OpaqueColor); }

/// The opaque picture with 16 bits, of which the lower do not change how it rounds.
QImage Deep() {
    QImage image(Width, Height, QImage::Format_RGBA64);
    for (int y = 0; y < Height; ++y) {
        for (int x = 0; x < Width; ++x) {
            const QRgb color = OpaqueColor(x, y);
            const auto deep = [&](int v) {
                return quint16(qBound(0, v * 257 + (x * 7 + y * 3) % 201 - 100, 65535));
            };
            reinterpret_cast<QRgba64*>(image.scanLine(y))[x] =
                qRgba64(deep(qRed(color)), deep(qGreen(color)), deep(qBlue(color)), 65535);
        }
    }
    return image;
}

int Coverage(int x, int y) { return selected.contains(x, y) ? qBound(1, (x - 10) * 3 + (y - 20) % 7, 255) : 0; }

HBTarget Target(const HBImage<>& picture, bool isSelected) {
    HBTarget target{picture, {}, {}, {}};
    if (isSelected) {
        target.selection = HBTestPicture(160, 150, [](int x, int y) {
            const int c = Coverage(x, y);
            return qRgba(c, c, c, c);
        });
        target.offset = -offset;
        target.bounds = selected;
    }
    return target;
}

QByteArray Quoted(QByteArray text) { return '"' + text.replace('\\', "\\\\").replace('"', "\\\"") + '"'; }

QByteArray Procedure(const HBAdjustment& adjustment) {
    return "adjustment-panels-" + QByteArray(adjustment.title).toLower().replace(' ', '-');
}

} // namespace

/// The plug-in in GIMP itself, without a display: all cases in one run, each compared with what the core makes
/// of the same pixels.
class tst_GimpProcedures : public QObject {
    Q_OBJECT

private:
    struct Case {
        QByteArray picture;
        QByteArray prepare;
        QByteArray call;
        HBImage<> expected; ///< empty: of no interest
        QByteArray said;    ///< "": GIMP says nothing
    };

    void Add(const QByteArray& name, const Case& row) { m_Cases.insert(name, row); }
    void AddRecipe(const QByteArray& name, const QByteArray& call, const HBRecipe& recipe, bool isSelected,
                   const QByteArray& said = {}) {
        QString error;
        const HBImage<> source = HBTestRamp(Width, Height);
        Add(name, {"ramp", isSelected ? "layer" : "(whole image layer)", call,
                   HBApplyRecipe(Target(source, isSelected), recipe, &error, nullptr), said});
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    void AddEveryAdjustment() {
        for (const HBAdjustment& adjustment : HBAdjustments()) {
            std::any record = HBDemonstration(adjustment);
            for (const HBFieldInfo& field : adjustment.fields) {
                if (field.key == "file")
                    field.set(adjustment.mutableData(record), SAMPLE_RECIPES "/HBSignWidget.png");
            }
            const HBRecipeStep step = HBStepOf(adjustment, record);
            const QByteArray text = QJsonDocument(step.values).toJson(QJsonDocument::Compact);
            AddRecipe(Procedure(adjustment),
                      '(' + Procedure(adjustment) + " RUN-NONINTERACTIVE image layer " + Quoted(text) + ')',
                      {{step}}, true);
        }
    }

    void AddRecipes() {
        const auto step = [](const char* panel) {
            return HBRecipeStep{panel, HBDemonstrationStep(*HBFindAdjustment(panel))};
        };
        const HBRecipe recipe{{step("HBCurvesWidget"), step("HBWBWidget"), step("HBTintWidget")}};
        const QByteArray call = "(adjustment-panels-apply RUN-NONINTERACTIVE image layer ";
        AddRecipe("recipe-text", call + Quoted(recipe.ToJson()) + ')', recipe, true);
        AddRecipe("recipe-file", call + "\"recipe.json\")", recipe, false);
        QVERIFY(m_Gimp.Write("recipe.json", recipe.ToJson()));
        const QByteArray record =
            QByteArray::fromBase64(step("HBLevelsWidget").values["record"].toString().toLatin1()).toHex();
        AddRecipe("bytes", "(adjustment-panels-levels RUN-NONINTERACTIVE image layer \"" + record + "\")",
                  {{step("HBLevelsWidget")}}, true);
        // As a dialog has left it.
        AddRecipe("last", "(adjustment-panels-tint RUN-WITH-LAST-VALS image layer \"\")", {{step("HBTintWidget")}},
                  true);
        const QJsonObject kept{
            {"format", "adjustment-presets"}, {"version", 1}, {"last", step("HBTintWidget").values}};
        QVERIFY(QDir(m_Gimp.Path("home")).mkpath("adjustment-panels") &&
                m_Gimp.Write("home/adjustment-panels/HBTintWidget.json", QJsonDocument(kept).toJson()));
    }

    HBImage<> Adjusted(const HBImage<>& picture, const char* panel, bool isSelected) {
        const HBAdjustment& adjustment = *HBFindAdjustment(panel);
        return HBRun(adjustment, HBDemonstration(adjustment), Target(picture, isSelected)).image;
    }
    QByteArray Call(const char* panel) {
        const HBAdjustment& adjustment = *HBFindAdjustment(panel);
        return '(' + Procedure(adjustment) + " RUN-NONINTERACTIVE image layer " +
               Quoted(QJsonDocument(HBDemonstrationStep(adjustment)).toJson(QJsonDocument::Compact)) + ')';
    }

    void AddKinds() {
        const HBImage<> ramp = HBTestRamp(Width, Height);
        const char* levels = "HBLevelsWidget";
        const char* grey = "HBBrightnessContrastWidget"; // keeps it so
        Add("grey", {"grey", "layer", Call(grey), Adjusted(Grey(), grey, true), ""});
        Add("grey-colours",
            {"grey", "(whole image layer)", Call("HBColorizeWidget"), {}, "colors were stored as shades of gray"});
        Add("deep", {"deep", "layer", Call(levels), {}, "8 bits of accuracy"});
        // The mask becomes the alpha, whose numbers are the same: a mask alone would be stored with a gamma.
        const HBImage<> mask = Adjusted(HBTestPicture(Width, Height,
                                                      [](int x, int y) {
                                                          const int c = Coverage(x + offset.x(), y + offset.y());
                                                          return qRgb(c, c, c);
                                                      }),
                                        grey, true);
        Add("mask", {"opaque",
                     "(begin (gimp-layer-add-mask layer (car (gimp-layer-create-mask layer ADD-MASK-SELECTION)))"
                     " (gimp-layer-set-edit-mask layer TRUE) layer)",
                     "(let ((adjusted layer) (layer (car (gimp-layer-get-mask layer)))) " + Call(grey) +
                         " (if (= FALSE (car (gimp-layer-get-edit-mask adjusted))) (say \"another is edited\"))"
                         " (gimp-layer-remove-mask adjusted MASK-APPLY))",
                     HBTestPicture(Width, Height,
                                   [&](int x, int y) {
                                       const QRgb color = OpaqueColor(x, y);
                                       return qRgba(qRed(color), qGreen(color), qBlue(color),
                                                    mask.PixelAt(x, y).red);
                                   }),
                     ""});
        Add("opaque", {"opaque", "layer", Call(levels), Adjusted(Opaque(), levels, true), ""});
        Add("nothing-to-do", {"ramp", "(whole image layer)",
                              "(adjustment-panels-levels RUN-NONINTERACTIVE image layer \"\")", ramp, ""});
        // GIMP's own locks hold.
        HBImage<> locked = Adjusted(ramp, "KMFillColorWidget", false);
        for (int i = 0; i < Width * Height; ++i) {
            HBRGBA32i pixel = locked.PixelAt(i % Width, i / Width);
            pixel.alpha = ramp.PixelAt(i % Width, i / Width).alpha;
            locked.SetPixel(i % Width, i / Width, pixel);
        }
        Add("alpha-locked",
            {"ramp", "(begin (gimp-selection-none image) (gimp-layer-set-lock-alpha layer TRUE) layer)",
             Call("KMFillColorWidget"), locked, ""});
    }

    void AddRefusals() {
        const HBImage<> ramp = HBTestRamp(Width, Height);
        const char* levels = "HBLevelsWidget";
        const auto exposure = [](const QByteArray& text) {
            return "(adjustment-panels-exposure RUN-NONINTERACTIVE image layer " + Quoted(text) + ')';
        };
        Add("indexed",
            {"opaque",
             "(begin (gimp-image-convert-indexed image CONVERT-DITHER-NONE CONVERT-PALETTE-GENERATE 16 FALSE "
             "FALSE \"\") layer)",
             Call(levels),
             {},
             "Image > Mode > RGB"});
        Add("group", {"ramp",
                      "(let ((g (car (gimp-layer-group-new image)))) (gimp-image-insert-layer image g 0 0) g)",
                      Call(levels),
                      {},
                      "layer group"});
        Add("locked",
            {"ramp", "(begin (gimp-item-set-lock-content layer TRUE) layer)", Call(levels), ramp, "locked"});
        Add("selected-elsewhere",
            {"ramp", "(begin (gimp-image-select-rectangle image CHANNEL-OP-REPLACE 140 0 20 10) layer)",
             Call(levels), ramp, "Nothing of the layer is selected"});
        Add("out-of-range",
            {"ramp", "(whole image layer)", exposure(R"({"exposure": 1000})"), ramp, "\"exposure\" is 1000"});
        Add("not-json", {"ramp", "(whole image layer)", exposure("{"), ramp, "not JSON"});
        Add("missing-recipe",
            {"ramp", "(whole image layer)",
             "(adjustment-panels-apply RUN-NONINTERACTIVE image layer \"none.json\")", ramp, "no such file"});
        Add("missing-stamp", {"ramp", "(whole image layer)", Call("HBSignWidget"), ramp, "HBSignWidget.png"});
    }

    void RunGimp() {
        QByteArray text = script;
        for (auto row = m_Cases.begin(); row != m_Cases.end(); ++row)
            text += "(try \"" + row.key() + "\" " + row->picture + " (lambda (image layer) " + row->prepare +
                    ") (lambda (image layer) " + row->call + "))\n";
        // The example of the guide, word for word.
        QFile guide(GIMP_GUIDE);
        QVERIFY(guide.open(QIODevice::ReadOnly));
        m_Guide = guide.readAll();
        const auto quoted = [this](const char* pattern) {
            const QRegularExpression expression(pattern, QRegularExpression::DotMatchesEverythingOption);
            return expression.match(m_Guide).captured(1);
        };
        const QString call = quoted("gimp -i -b '(.*?)' -b '\\(gimp-quit 0\\)'");
        QVERIFY(!call.isEmpty());
        QVERIFY(m_Gimp.Write("adjust.scm", quoted("```scheme\n(.*?)```").toUtf8()));
        text += "(say \"case end\")\n";
        QVERIFY(m_Gimp.Write("cases.scm", text));

        HBGimpChild gimp;
        gimp.setProcessEnvironment(m_Gimp.Environment());
        gimp.setWorkingDirectory(m_Gimp.Path({}));
        gimp.setProcessChannelMode(QProcess::MergedChannels);
        gimp.start("gimp", {"-i", "-d", "-f", "--batch-interpreter", "plug-in-script-fu-eval", "-b",
                            "(load \"cases.scm\")", "-b", call, "-b", "(gimp-quit 0)"});
        const bool finished = gimp.waitForFinished(500000);
        const QString log = QString::fromUtf8(gimp.readAll());
        QVERIFY2(finished && log.contains("case end"), qPrintable(log.right(900)));
        // PNG has its own opinion on the profile of a mask.
        const auto parts =
            QString(log).remove(QRegularExpression("libpng warning.*\n")).split("script-fu-Warning: case ");
        for (const QString& part : parts)
            m_Said.insert(part.section('\n', 0, 0).trimmed(), part.section('\n', 1).trimmed());
    }

    HBGimpRun m_Gimp;
    QMap<QByteArray, Case> m_Cases;
    QMap<QString, QString> m_Said;
    QString m_Guide;

private Q_SLOTS:
    void initTestCase() {
        const QString missing = HBGimpRun::Missing({"gimp"});
        if (!missing.isEmpty()) QSKIP(qPrintable(missing));
        QVERIFY(HBTestRamp(Width, Height).ToQImage().save(m_Gimp.Path("ramp.png")));
        QVERIFY(Grey().ToQImage().convertToFormat(QImage::Format_Grayscale8).save(m_Gimp.Path("grey.png")));
        QVERIFY(Opaque().ToQImage().convertToFormat(QImage::Format_RGB32).save(m_Gimp.Path("opaque.png")));
        QVERIFY(Deep().save(m_Gimp.Path("deep.png")));
        QVERIFY(Target({}, true).selection.ToQImage().save(m_Gimp.Path("mask.png")));
        QVERIFY(QFile::copy(SAMPLE_PHOTO, m_Gimp.Path("photo.png")));
        QVERIFY(QFile::copy(SAMPLE_RECIPES "/HBTemperatureWidget.json", m_Gimp.Path("warm.json")));
        AddEveryAdjustment();
        AddRecipes();
        AddKinds();
        AddRefusals();
        RunGimp();
    }

    void Cases_data() {
        QTest::addColumn<QByteArray>("name");
        for (auto row = m_Cases.begin(); row != m_Cases.end(); ++row)
            QTest::newRow(row.key().constData()) << row.key();
    }
    void Cases() {
        QFETCH(QByteArray, name);
        const Case& row = m_Cases[name];
        const QString said = m_Said.value(name);
        QVERIFY2(row.said.isEmpty() ? said.isEmpty() : said.contains(row.said), qPrintable(said));
        if (row.expected.IsEmpty()) return;
        const QImage actual = QImage(m_Gimp.Path("out/" + name + ".png")).convertToFormat(QImage::Format_ARGB32);
        const QImage expected = row.expected.ToQImage();
        QCOMPARE(actual.size(), expected.size());
        for (int y = 0; y < Height; ++y) {
            for (int x = 0; x < Width; ++x)
                QVERIFY2(actual.pixel(x, y) == expected.pixel(x, y),
                         qPrintable(QString("(%1, %2) is %3, not %4")
                                        .arg(x)
                                        .arg(y)
                                        .arg(actual.pixel(x, y), 8, 16)
                                        .arg(expected.pixel(x, y), 8, 16)));
        }
    }

    void UnchangedPixelsKeepSixteenBits() {
        const QImage before = Deep();
        const QImage after = QImage(m_Gimp.Path("out/deep.png")).convertToFormat(QImage::Format_RGBA64);
        QCOMPARE(after.size(), before.size());
        const HBImage<> source = Opaque();
        const HBImage<> adjusted = Adjusted(source, "HBLevelsWidget", true);
        int kept = 0;
        for (int y = 0; y < Height; ++y) {
            for (int x = 0; x < Width; ++x) {
                const auto at = [&](const QImage& image) {
                    return reinterpret_cast<const QRgba64*>(image.constScanLine(y))[x];
                };
                const HBRGBA32i pixel = adjusted.PixelAt(x, y);
                const bool changed = pixel != source.PixelAt(x, y);
                kept += !changed;
                QCOMPARE(quint64(at(after)),
                         quint64(changed ? qRgba64(quint16(pixel.red * 257), quint16(pixel.green * 257),
                                                   quint16(pixel.blue * 257), 65535)
                                         : at(before)));
            }
        }
        QVERIFY(kept > 1000 && kept < Width * Height - 1000);
    }

    void TheGuideIsTrue() {
        const QImage photo(m_Gimp.Path("photo.png"));
        const QImage example(m_Gimp.Path("adjusted.png")); // of three procedures; nothing if one fails
        QCOMPARE(example.size(), photo.size());
        QVERIFY(example != photo);
        for (const HBAdjustment& adjustment : HBAdjustments()) {
            const QString row =
                QString("| `%1` | `%2` |").arg(Procedure(adjustment).constData(), adjustment.className);
            QVERIFY2(m_Guide.contains(row), qPrintable(row));
        }
    }
};

HB_TEST_MAIN(tst_GimpProcedures)
#include "tst_GimpProcedures.moc"
