// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// A photo file with its metadata, through reading, writing in some format, and reading again.
// Input: the format to write, the file.
#include "HBFuzz.h"

#include <HBPhotoCheck.h>
#include <HBPhotoFile.h>

#include <QCoreApplication>

namespace {

const char* const Formats[] = {"jpg", "png", "tif", "webp", "bmp"};

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QCoreApplication(*argc, *argv); // finds the formats' plug-ins; lives as long as the process
    // What libraries remark about each broken file is not asked for.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    HBFuzzInput input(data, size);
    const QString path = HBFuzzFolder() + "/in", written = HBFuzzFolder() + "/out." + Formats[input.Below(5)];
    HBFuzzWrite(path, input.Rest());
    HBPhoto photo, again;
    QString error;
    HBIsWholeFile(input.Rest()); // also of one that claims too much below
    const QSize told = HBPhotoSize(path);
    if (qint64(told.width()) * told.height() > 20000000) return 0; // all the machine's memory is not the fuzzer's
    if (!HBReadPhoto(path, &photo, &error)) {
        HBFuzzCheck(error.contains("/in"), "a photo is refused, and its name not said: " + error);
        HBFuzzCheck(photo.image.IsEmpty(), "a refused photo has changed");
        return 0;
    }
    const QSize found(photo.image.Width(), photo.image.Height());
    HBFuzzCheck(!told.isValid() || told == found || told == found.transposed(), "the head tells another size");
    if (qint64(found.width()) * found.height() > 4000000) return 0; // would be slow, not wrong
    QStringList warnings;
    if (!HBWritePhoto(written, photo.image, {}, &error, &warnings)) {
        HBFuzzCheck(error.contains("/out"), "a photo is not written, and its name not said: " + error);
        return 0;
    }
    HBFuzzCheck(HBReadPhoto(written, &again, &error), "what was written cannot be read: " + error);
    HBFuzzCheck(again.image.Width() == found.width() && again.image.Height() == found.height(),
                "what was written has another size");
    if (written.endsWith("png"))
        HBFuzzCheck(again.image.ToQImage() == photo.image.ToQImage(), "a PNG file has other pixels");
    return 0;
}
