// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBAdjustment.h>
#include <HBAdjustmentWidget.h>
#include <HBPanelCatalog.h>
#include <HBSign.h>
#include <KMTheme.h>

#include <QApplication>
#include <QFile>
#include <QTranslator>

#include <memory>

namespace {

void Check(bool condition, const char* what) {
    if (!condition) qFatal("%s", what);
}

} // namespace

// Makes every panel in a program that has classes called like some of the host's, and asks each library for
// something.
int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    KMTheme::Install();
    Check(QFile::exists("theme:picker_black.png"), "The theme's pictures are not there");
#ifdef TRANSLATIONS
    QTranslator translator;
    Check(translator.load(QLocale(QLocale::German), "adjustment-panels", "_", TRANSLATIONS), "No translations");
#endif

    QImage grey(2, 1, QImage::Format_ARGB32);
    grey.fill(0xFF646464);
    const HBImage<> photo = HBImage<>::FromQImage(grey);
    Check(!HBPanelCatalog().isEmpty(), "The catalog is empty");
    for (const HBPanelEntry& entry : HBPanelCatalog()) {
        const std::unique_ptr<HBAdjustmentWidget> panel(entry.create(true, nullptr));
        Check(qstrcmp(panel->metaObject()->className(), entry.className) == 0, entry.className);
        panel->SetImage(photo, {}, {}, {});
        panel->show();
        QCoreApplication::processEvents();
    }

    HBSignParams stamp;
    stamp.fileName = "/there/is/no/such/stamp.png";
    Check(!HBAdjust(stamp, {photo}).IsWhole(), "A stamp was drawn that does not exist");
    return 0;
}
