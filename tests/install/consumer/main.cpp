// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "OwnPanel.h"

#include <HBPanelRow.h>
#include <HBPanelSession.h>
#include <HBPanelSetup.h>
#include <HBSign.h>
#include <KMApplication.h>

#include <QApplication>
#include <QEventLoop>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTranslator>

#include <memory>

namespace {

void Check(bool condition, const char* what) {
    if (!condition) qFatal("%s", what);
}

/// The program's own panel, from its registration to its result, values stored between.
void UseOwnPanel(const HBImage<>& photo) {
    static const HBAdjustment darken = HBRecordRow<DarkenParams>("DarkenPanel", "Own", "Darken");
    Check(HBRegisterPanel(HBPanelRow<DarkenPanel>(darken)), "The program's panel is not taken");
    Check(!HBRegisterPanel(HBPanelRow<DarkenPanel>(darken)), "It is taken twice");
    Check(HBAllPanels().last() == HBFindPanel("DarkenPanel"), "It is not among all panels");

    QByteArray values;
    for (const int expected : {100, 70}) {
        HBPanelSession session(*HBFindPanel("DarkenPanel"));
        HBImage<> result;
        QEventLoop loop;
        QObject::connect(&session, &HBPanelSession::Accepted, &loop, [&](const HBImage<>& image) {
            result = image;
            loop.quit();
        });
        session.SetTarget({photo});
        if (values.isEmpty())
            session.Widget()->findChild<QSlider*>()->setValue(30); // and Reset
        else
            Check(session.RestoreValues(values), "The values do not come back");
        if (values.isEmpty()) {
            values = session.SaveValues();
            session.Reset();
        }
        QMetaObject::invokeMethod(&session, &HBPanelSession::Accept, Qt::QueuedConnection);
        loop.exec();
        Check(result.PixelAt(1, 0).red == expected, "The program's panel has adjusted wrongly");
    }
    HBRecipe recipe;
    QString error;
    Check(HBRecipe::FromJson(values, &recipe, &error), "A recipe does not know the program's adjustment");
    Check(HBApplyRecipe(photo, recipe, &error).PixelAt(0, 0).red == 70, "It is not applied");
}

} // namespace

// Makes every panel in a program that has classes called like some of the host's, and asks each library for
// something.
int main(int argc, char* argv[]) {
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QCoreApplication::setOrganizationName("Consumer");
    QApplication application(argc, argv);
    HBSetUpPanels();
    Check(QFile::exists("theme:picker_black.png"), "The theme's pictures are not there");
#ifdef SHARED
    const QString english = HBPanelCatalog().first().Title();
    Check(HBSetPanelLanguage(QLocale(QLocale::German)), "The libraries do not find their translations");
    Check(HBPanelCatalog().first().Title() != english, "They do not speak German");
    Check(HBSetPanelLanguage(QLocale(QLocale::English)), "They do not know English any more");
    Check(HBPanelCatalog().first().Title() == english, "They do not speak English again");
#endif
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

    UseOwnPanel(photo);

    HBSignParams stamp;
    stamp.fileName = "/there/is/no/such/stamp.png";
    Check(!HBAdjust(stamp, {photo}).IsWhole(), "A stamp was drawn that does not exist");

    KMApplication::SetPathOpen(settings.path()); // as a file dialog does
    Check(QSettings().allKeys().isEmpty(), "Something was written into the program's settings");
    return 0;
}
