// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTranslation.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QPointer>
#include <QTranslator>

#include <dlfcn.h>

namespace
{

/// Where this library is, or the program that it is a part of.
QString OwnFolder()
{
    Dl_info info;
    if (!dladdr(reinterpret_cast<const void*>(&HBTranslatePanels), &info) || !info.dli_fname)
        return {};
    return QFileInfo(QString::fromLocal8Bit(info.dli_fname)).canonicalPath();
}

/// Null if there is none in any of the folders.
QTranslator* Load(const QLocale& language, const QStringList& folders)
{
    auto* translator = new QTranslator(QCoreApplication::instance());
    for (const QString& folder : folders) {
        if (translator->load(language, "adjustment-panels", "_", folder))
            return translator;
    }
    delete translator;
    return nullptr;
}

} // namespace

bool HBTranslatePanels(const QLocale& language, const QStringList& first)
{
    static QPointer<QTranslator> installed;
    delete installed; // which takes it from the application
    QStringList folders = first;
    folders << QCoreApplication::applicationDirPath() + "/../share/" DATA_FOLDER "/translations";
    const QString own = OwnFolder();
    if (!own.isEmpty())
        folders << own + '/' + ADJUSTMENT_PANELS_TRANSLATIONS;
    const QLocale english(QLocale::English); // some texts of the sources are spelt otherwise, on purpose
    const bool isEnglish = language.language() == english.language() || language.language() == QLocale::C;
    installed = isEnglish ? nullptr : Load(language, folders);
    const bool found = isEnglish || installed;
    if (!installed)
        installed = Load(english, folders);
    if (installed)
        QCoreApplication::installTranslator(installed);
    return found;
}
