// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBGimpRun.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <csignal>
#include <sys/prctl.h>

void HBGimpChild::setupChildProcess() { prctl(PR_SET_PDEATHSIG, SIGKILL); }

HBGimpRun::HBGimpRun() {
    const QDir folder(m_Folder.path());
    for (const char* name : {"plug-ins", "scripts", "home", "run", "out"}) folder.mkpath(name);
    QFile::setPermissions(Path("run"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QFile::link(GIMP_PLUG_INS, Path("plug-ins/adjustment-panels"));
    for (const char* name : {"script-fu", "file-png"})
        QFile::link(GIMP_LIBRARY_FOLDER "/plug-ins/" + QString(name), Path("plug-ins/" + QString(name)));
    QFile::link("/usr/share/gimp/2.0/scripts/script-fu.init", Path("scripts/script-fu.init"));
    const QByteArray path = m_Folder.path().toUtf8();
    Write("home/gimprc", "(plug-in-path \"" + path + "/plug-ins\")\n(script-fu-path \"" + path +
                             "/scripts\")\n(check-updates no)\n(theme \"Dark\")\n");
}

QString HBGimpRun::Missing(const QStringList& programs) {
    for (const QString& program : programs) {
        if (QStandardPaths::findExecutable(program).isEmpty()) return program + " is not installed";
    }
    return {};
}

bool HBGimpRun::Write(const QString& name, const QByteArray& bytes) const {
    QFile file(Path(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QProcessEnvironment HBGimpRun::Environment() const {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "LANGUAGE", "LANG"})
        environment.remove(name);
    environment.insert("GIMP2_DIRECTORY", Path("home"));
    environment.insert("XDG_RUNTIME_DIR", Path("run"));
    environment.insert("LC_ALL", "C.UTF-8");
    return environment;
}
