// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// The journal of a batch, as a killed run or a stranger left it: what it says may make a photo be done once more,
// but never one that was not adjusted count as done, and nothing that is not ours may vanish.
// Input: how to go on, the file.
#include "HBFuzz.h"

#include <HBReplayJournal.h>

#include <QCoreApplication>
#include <QFile>

#include <csignal>
#include <sys/resource.h>

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    new QCoreApplication(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HBFuzzInput input(data, size);
    const bool continues = input.Below(2);
    const QString folder = HBFuzzFolder();
    HBFuzzWrite(folder + "/.panel-replay.journal", input.Rest());
    HBFuzzWrite(folder + "/a.jpg", "photo");
    HBFuzzWrite(folder + "/a.jpg.abcdef", "mine"); // named as a left-over, and none
    HBReplayJournal journal(folder, HBShard(), "job", continues);
    QString problem, output;
    HBFuzzCheck(journal.Read(&problem), problem);
    // The photo itself has never been written by a job: whatever the line says, its time cannot be known.
    if (journal.IsDone(folder + "/a.jpg", &output))
        HBFuzzCheck(QFile::exists(output), "a photo is done whose result does not exist: " + output);
    journal.Begin();
    HBFuzzCheck(QFile::exists(folder + "/a.jpg"), "the photo is gone");
    HBFuzzCheck(QFile::exists(folder + "/a.jpg.abcdef"), "a stranger's file is gone");
    const HBFileState state = HBStateOf(folder + "/a.jpg");
    // The disk is full for a moment, in the middle of a line: that must not spoil the next one.
    std::signal(SIGXFSZ, SIG_IGN); // here, because Clang's fuzzer has taken it since LLVMFuzzerInitialize
    rlimit usual;
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit full{rlim_t(HBStateOf(folder + "/.panel-replay.journal").size + 20), usual.rlim_max};
    setrlimit(RLIMIT_FSIZE, &full);
    const bool fitted = journal.Note(folder + "/a.jpg", state, folder + "/c.jpg", true, "result", &problem);
    setrlimit(RLIMIT_FSIZE, &usual);
    HBFuzzCheck(!fitted, "a line got onto a full disk");
    problem.clear();
    HBFuzzCheck(journal.Note(folder + "/a.jpg", state, folder + "/b.jpg", true, "result", &problem), problem);
    HBFuzzWrite(folder + "/b.jpg", "result");
    HBReplayJournal next(folder, HBShard(), "job", true);
    HBFuzzCheck(next.Read(&problem), problem);
    HBFuzzCheck(next.IsDone(folder + "/a.jpg", &output), "what was just noted is not done");
    QFile::remove(folder + "/b.jpg");
    return 0;
}
