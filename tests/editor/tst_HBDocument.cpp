// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBTestMain.h"

#include <HBDocument.h>

#include <QSignalSpy>

class TestHBDocument : public QObject {
    Q_OBJECT

    static HBImage<> Image(int value) {
        HBImage<> image(10, 10);
        image.SetPixel(0, 0, HBRGBA32i(std::uint8_t(value), 0, 0));
        return image;
    }
    static HBDocument::State Step(int value) { return {QString::number(value), Image(value), {}, true}; }
    static int Value(const HBDocument& document) { return document.Image().PixelAt(0, 0).red; }

    static void Open(HBDocument* document) {
        HBPhoto photo;
        photo.image = Image(1);
        document->SetPhoto("/photos/a.png", photo);
    }

private Q_SLOTS:
    void undoAndRedo() {
        HBDocument document;
        QVERIFY(document.Image().IsEmpty());
        document.Undo();
        document.Apply(Step(2)); // nothing is open
        QVERIFY(!document.IsOpen());
        Open(&document);
        QVERIFY(!document.CanUndo() && !document.CanRedo());
        document.Apply(Step(2));
        document.Apply(Step(3));
        document.Undo();
        QCOMPARE(Value(document), 2);
        document.GoTo(0);
        document.Undo();
        QCOMPARE(Value(document), 1);
        document.Redo();
        document.Apply(Step(4)); // what could be redone is gone
        QVERIFY(!document.CanRedo());
        QCOMPARE(document.States().size(), 3);
        QCOMPARE(Value(document), 4);
        QCOMPARE(document.Original().PixelAt(0, 0).red, Image(1).PixelAt(0, 0).red);
        QSignalSpy changed(&document, &HBDocument::Changed);
        document.GoTo(-1);
        document.GoTo(3);
        document.GoTo(2);
        QCOMPARE(changed.count(), 0);
    }

    void modifiedMeansOtherThanTheFile() {
        HBDocument document;
        Open(&document);
        QVERIFY(!document.IsModified());
        document.Apply(Step(2));
        QVERIFY(document.IsModified());
        document.Undo();
        QVERIFY(!document.IsModified());
        document.Redo();
        document.SetSaved("/photos/b.jpg");
        QCOMPARE(document.FileName(), QString("b.jpg"));
        QVERIFY(!document.IsModified());
        document.Undo();
        QVERIFY(document.IsModified());
        document.Apply(Step(3)); // the saved state is lost, though this one has its number
        QVERIFY(document.IsModified());
    }
};

HB_TEST_MAIN(TestHBDocument)
#include "tst_HBDocument.moc"
