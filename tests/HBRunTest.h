// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

/// Runs a test class and returns the exit code: not 0 if a test failed or if Qt or the code under test logged a
/// warning or an error that no QTest::ignoreMessage announced.
///
/// Qt Test only prints such messages; a second log, in XML, tells how many there were. What the platform without a
/// screen remarks about every window of a fixed or least size does not count.
inline int HBRunTest(QObject* test, QStringList arguments) {
    const QTemporaryDir folder;
    const QString log = folder.filePath(QStringLiteral("log.xml"));
    if (!arguments.contains(QStringLiteral("-o"))) arguments << QStringLiteral("-o") << QStringLiteral("-,txt");
    arguments << QStringLiteral("-o") << log + QStringLiteral(",xml");
    arguments << QStringLiteral("-maxwarnings") << QStringLiteral("0");
    const int failed = QTest::qExec(test, arguments);

    QFile file(log);
    if (!file.open(QIODevice::ReadOnly)) return failed; // options like -functions run nothing
    const QByteArray messages = file.readAll();
    // Errors are called "system" by Qt 5 and "qcritical" by Qt 6.
    const int warnings = int(messages.count("type=\"qwarn\"") + messages.count("type=\"system\"") +
                             messages.count("type=\"qcritical\"") -
                             messages.count("[This plugin does not support propagateSizeHints()]"));
    if (warnings > 0)
        std::fprintf(stderr, "FAIL!  : %d unannounced warnings or errors in the log above\n", warnings);
    return failed ? failed : qMin(warnings, 1);
}

/// Adds the columns of a test's table: HBColumns<int, QString>("level", "text").
template <class... Types, class... Names>
void HBColumns(Names... names) {
    (QTest::addColumn<Types>(names), ...);
}

/// The main() of a test without any application object: one class a file.
#define HB_TEST_MAIN_WITHOUT_APPLICATION(Class)                                                                   \
    int main(int argc, char* argv[]) {                                                                            \
        Class test;                                                                                               \
        QStringList arguments;                                                                                    \
        for (int i = 0; i < argc; ++i) arguments.append(QString::fromLocal8Bit(argv[i]));                         \
        return HBRunTest(&test, arguments);                                                                       \
    }
