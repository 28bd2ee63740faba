// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBPanelFixture.h"
#include "HBTestMain.h"

#include <HBCurvesWidget.h>
#include <HBLevelsWidget.h>
#include <HBThresholdWidget.h>
#include <HistogramWidget.h>

namespace {

template <class Panel>
void VerifyHistogram() {
    HBPanelFixture<Panel> f;
    auto* histogram = f.template Find<HistogramWidget>("m_pHistogramm");
    QVERIFY(histogram);
    f.panel.SetImage(HBTestRamp(30, 20), {}, {}, {});
    QVERIFY(f.Finish());
    QCOMPARE(histogram->GetPixelsCount(), 600.0);
    HBSharedImage<QImage> picture;
    picture.image = QImage(7, 3, QImage::Format_RGB32);
    picture.image.fill(Qt::red);
    f.panel.AttachQImage(&picture);
    HBSettle();
    QCOMPARE(histogram->GetCount(0, 255), 21u);
    picture.Set(QImage());
    f.panel.UpdateHistogramm();
    HBSettle();
    QCOMPARE(histogram->GetPixelsCount(), 0.0);
    HBSharedImage<HBImage<>> tiled;
    tiled.image = HBTestRamp(10, 10);
    f.panel.AttachRGB32iImage(&tiled);
    HBSettle();
    QCOMPARE(histogram->GetPixelsCount(), 100.0);
    f.panel.ClearData();
    HBSettle();
    QCOMPARE(histogram->GetPixelsCount(), 0.0);
}

} // namespace

class tst_HBHistogramPanel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void levels() { VerifyHistogram<HBLevelsWidget>(); }
    void curves() { VerifyHistogram<HBCurvesWidget>(); }
    void threshold() { VerifyHistogram<HBThresholdWidget>(); }
};

HB_TEST_MAIN(tst_HBHistogramPanel)
#include "tst_HBHistogramPanel.moc"
