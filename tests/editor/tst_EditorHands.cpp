// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT

// What the hands do in the editor's window: keys, wheel, mouse, files.
#include "HBAnswers.h"
#include "HBTestMain.h"

#include <HBAdjustmentWidget.h>
#include <HBEditorActions.h>
#include <HBEditorStyle.h>
#include <HBEditorWindow.h>
#include <HBExportDialog.h>
#include <HBMessageBar.h>
#include <HBOverlayBox.h>
#include <HBPanelCatalog.h>
#include <HBPanelFinder.h>
#include <HBSelectionTool.h>
#include <HBShortcutSheet.h>
#include <HBSign.h>
#include <HBWatermark.h>
#include <KMDocumentView.h>
#include <MavuCustomSlider.h>

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QGraphicsItem>
#include <QGraphicsView>
#include <QImageWriter>
#include <QLabel>
#include <QMenuBar>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QWheelEvent>

namespace {

QByteArray Bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QImage Ramp(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) image.setPixel(x, y, qRgb(x & 255, y & 255, 100));
    }
    return image;
}

void Wheel(QWidget* widget, int delta) {
    QWheelEvent event(QPointF(3, 3), widget->mapToGlobal(QPoint(3, 3)), {}, QPoint(0, delta), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

void DoubleClick(QWidget* widget, const QPoint& at) {
    QTest::mouseClick(widget, Qt::LeftButton, {}, at); // which QTest leaves out
    QTest::mouseDClick(widget, Qt::LeftButton, {}, at);
    QTest::mouseRelease(widget, Qt::LeftButton, {}, at);
}

bool Activate(QWidget* window) {
    window->show();
    window->activateWindow();
    return QTest::qWaitForWindowActive(window);
}

} // namespace

class tst_EditorHands : public QObject {
    Q_OBJECT

    QString Photo(const QString& name, int quality = -1) {
        const QString path = m_Folder.filePath(name);
        Ramp(300, 200).save(path, nullptr, quality);
        return path;
    }
    static void Apply(const HBEditorWindow& window, const char* panel, const char* box, int value) {
        const_cast<HBEditorWindow&>(window).OpenPanel(*HBFindPanel(panel));
        window.Session()->Panel()->findChild<QSpinBox*>(box)->setValue(value);
        Q_EMIT window.Session()->Panel()->Ok();
        QTRY_VERIFY(!window.Session());
    }
    static void Brighten(const HBEditorWindow& window, int by) {
        Apply(window, "HBBrightnessContrastWidget", "m_pBrightnessSpin", by);
    }

private Q_SLOTS:

    /// The export's quality is its own, the document stays what it is, and the size that was told is the file's.
    void Export() {
        const QString photo = Photo("a.jpg", 99);
        const QString web = m_Folder.filePath("web.jpg");
        const auto tables = HBReadJpegCoding(Bytes(photo)).tables;
        HBEditorWindow window(false);
        window.show();
        QVERIFY(window.Open(photo));
        Brighten(window, 20);
        QString told;
        const auto answer = [&](QDialog* shown) {
            auto* dialog = qobject_cast<HBExportDialog*>(shown);
            QVERIFY(dialog);
            auto* path = dialog->findChild<QLineEdit*>("path");
            QCOMPARE(path->text(), m_Folder.filePath("a-export.jpg"));
            path->setText(photo); // over the photo itself: not so
            shown->accept();
            QVERIFY(shown->isVisible());
            path->setText(web);
            auto* format = dialog->findChild<QComboBox*>("format");
            format->setCurrentIndex(format->findData("png"));
            QCOMPARE(path->text(), m_Folder.filePath("web.png"));
            path->setText(web);
            QCOMPARE(format->currentData().toString(), QString("jpg"));
            auto* chroma = dialog->findChild<QComboBox*>("chroma");
            chroma->setCurrentIndex(chroma->findData(int(HBChroma::Full)));
            auto* quality = dialog->findChild<QSlider*>("quality");
            for (const int value : {90, 50, 10}) quality->setValue(value);
            HBPhotoOptions options;
            options.quality = 10;
            options.chroma = HBChroma::Full;
            QByteArray file;
            QString error;
            QVERIFY(HBEncodePhoto(web, window.Document().Image(), options, &file, &error));
            QTRY_COMPARE(dialog->findChild<QLabel*>("size")->text(), QLocale().formattedDataSize(file.size()));
            QTest::keyClick(path, Qt::Key_Return);
        };
        {
            const Answers given({answer});
            window.Actions()->exportCopy->trigger();
        }
        const HBJpegCoding coding = HBReadJpegCoding(Bytes(web));
        QCOMPARE(coding.components.first().horizontal, 1); // 4:4:4 in spite of the quality
        QVERIFY(coding.tables.first()[0] > 30);
        QCOMPARE(window.Document().Path(), photo);
        QVERIFY(window.Document().IsModified());
        window.Actions()->save->trigger();
        QCOMPARE(HBReadJpegCoding(Bytes(photo)).tables, tables);
    }

    void SavedTwice_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"a.jpg", "a.png", "a.tif", "a.webp", "a.bmp"}) QTest::newRow(name) << name;
    }
    /// Nothing but the step is in the file, whatever its kind.
    void SavedTwice() {
        QFETCH(QString, name);
        const QString path = m_Folder.filePath(name);
        HBImage<> image = HBImage<>::FromQImage(Ramp(300, 200));
        image.AddElement(new KMEXIFElement{"Exif.Image.Make", 2, QByteArray("Maker", 6)});
        QString error;
        HBPhotoOptions best;
        best.quality = 100;
        QVERIFY2(HBWritePhoto(path, image, best, &error), qPrintable(error));
        HBEditorWindow window(false);
        window.show();
        HBPhotoEncoding first;
        for (const int round : {1, 2}) {
            QVERIFY(window.Open(path));
            const HBPhotoEncoding encoding = window.Document().Encoding();
            Brighten(window, 10);
            const QImage shown = window.Document().Image().ToQImage();
            const Answers given({}); // and no question
            window.Actions()->save->trigger();
            HBPhoto saved;
            QVERIFY(HBReadPhoto(path, &saved, &error));
            QCOMPARE(saved.encoding.jpeg.tables, encoding.jpeg.tables);
            QCOMPARE(saved.encoding.webpQuality, encoding.webpQuality);
            QCOMPARE(saved.image.Elements().size(), window.Document().Original().Elements().size());
            QCOMPARE(saved.image.Elements().isEmpty(), name.endsWith("bmp"));
            const QImage read = saved.image.ToQImage();
            int worst = 0;
            for (int x = 0; x < 300; ++x)
                worst = qMax(worst, qAbs(qRed(read.pixel(x, 99)) - qRed(shown.pixel(x, 99))));
            QVERIFY2(worst <= (name == "a.jpg" ? 2 : 0), qPrintable(QString("%1 %2").arg(round).arg(worst)));
        }
    }

    void CutShortOpensWithAWarning() {
        const QString path = Photo("cut.jpg");
        QFile file(path);
        QVERIFY(file.resize(file.size() - 2));
        HBEditorWindow window(false);
        QVERIFY(window.Open(path));
        QVERIFY2(window.MessageBar()->Text().contains("cut short"), qPrintable(window.MessageBar()->Text()));
    }

    /// Open a photo, draw a selection, find the curves, bend one, save: no mouse.
    void KeyboardAlone() {
        const QString path = Photo("keys.png");
        HBEditorWindow window(false);
        QVERIFY(Activate(&window));
        {
            const Answers given({Answers::File(path)});
            QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
        }
        QCOMPARE(window.Document().Path(), path);
        const auto press = [&](int key, int times, Qt::KeyboardModifiers modifiers = {}) {
            for (int i = 0; i < times; ++i) QTest::keyClick(window.focusWidget(), Qt::Key(key), modifiers);
        };
        QVERIFY(Activate(&window));
        press(Qt::Key_R, 1);
        press(Qt::Key_Left, 12, Qt::ShiftModifier); // from the middle
        press(Qt::Key_Up, 15, Qt::ShiftModifier);
        press(Qt::Key_Return, 1);
        press(Qt::Key_Right, 20, Qt::ShiftModifier);
        press(Qt::Key_Down, 5, Qt::ShiftModifier);
        press(Qt::Key_Return, 1);
        QVERIFY(!window.SelectionTool()->Shape().IsNone());
        QCOMPARE(window.SelectionTool()->Shape().shapes.first().PixelRect({300, 200}), QRect(29, 0, 200, 50));
        const auto type = [](QDialog* dialog) {
            auto* line = dialog->findChild<QLineEdit*>();
            QTest::keyClicks(line, "cur");
            QTest::keyClick(line, Qt::Key_Return);
        };
        {
            const Answers given({type});
            QVERIFY(Activate(&window));
            QTest::keyClick(&window, Qt::Key_K, Qt::ControlModifier);
        }
        QVERIFY(window.Session() && Activate(&window));
        QCOMPARE(QByteArray(window.Session()->Entry().className), QByteArray("HBCurvesWidget"));
        auto* curve = window.Session()->Panel()->findChild<QGraphicsView*>();
        for (int i = 0; i < 40 && window.focusWidget() != curve; ++i)
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        QCOMPARE(window.focusWidget(), curve);
        QTest::keyClick(curve, Qt::Key_Insert);
        for (int i = 0; i < 20; ++i) QTest::keyClick(curve, Qt::Key_Up);
        QTest::keyClick(curve, Qt::Key_Return);
        QTRY_VERIFY(!window.Session());
        QVERIFY(window.Document().IsModified());
        const QImage bent = window.Document().Image().ToQImage();
        QVERIFY(qRed(bent.pixel(128, 0)) > 132);
        QCOMPARE(bent.copy(0, 50, 300, 150), Ramp(300, 200).copy(0, 50, 300, 150).convertToFormat(bent.format()));
        QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!window.Document().IsModified());
        QCOMPARE(QImage(path).pixel(128, 0), bent.pixel(128, 0));
        // The same once more, and the keys of the field.
        QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
        QTRY_VERIFY(window.Document().IsModified());
        QVERIFY(window.Document().Image().PixelAt(128, 0).red > 136);
        QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!window.Document().IsModified());
        QTest::keyClick(&window, Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(window.Document().IsModified());
        for (const auto& panel :
             {std::make_pair(Qt::Key_L, "HBLevelsWidget"), std::make_pair(Qt::Key_M, "HBCurvesWidget"),
              std::make_pair(Qt::Key_U, "HBHueSaturationWidget"),
              std::make_pair(Qt::Key_B, "HBColorBalanceWidget")}) {
            QTest::keyClick(&window, panel.first, Qt::ControlModifier);
            QVERIFY(window.Session());
            QCOMPARE(window.Session()->Entry().className, panel.second);
        }
    }

    void ShortcutSheetHasAllKeys() {
        HBEditorWindow window(false);
        const HBShortcutSheet sheet(window.menuBar());
        const QString text = sheet.findChild<QTextBrowser*>()->toPlainText();
        QSet<QString> seen;
        for (const QAction* action : window.findChildren<QAction*>()) {
            for (const QKeySequence& key : action->shortcuts()) {
                const QString keys = key.toString(QKeySequence::NativeText);
                QVERIFY2(text.contains(keys), qPrintable(keys));
                QVERIFY2(!seen.contains(keys), qPrintable(keys + " is there twice"));
                seen.insert(keys);
            }
        }
        QVERIFY(seen.size() > 20);
    }

    void Controls() {
        HBEditorWindow window(false);
        QVERIFY(Activate(&window));
        QVERIFY(window.Open(Photo("a.png")) && window.OpenPanel(*HBFindPanel("HBTemperatureWidget")));
        QWidget* panel = window.Session()->Panel();
        auto* box = panel->findChild<QSpinBox*>("m_pTemperature");
        auto* slider = panel->findChild<QSlider*>("ColorTemperatureSlider");
        auto* strength = panel->findChild<QSlider*>("m_pStrengthSldr");
        strength->setFocus();
        // The wheel, without the focus and with it.
        Wheel(slider, 120);
        Wheel(box, 120);
        QCOMPARE(box->value(), 6500);
        QVERIFY(strength->hasFocus());
        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_Right);
        QCOMPARE(box->value(), 6550);
        QTest::keyClick(slider, Qt::Key_PageUp);
        QCOMPARE(box->value(), 7050);
        Wheel(slider, 120);
        QVERIFY(box->value() > 7050);
        // A double click on the name.
        auto* label = panel->findChild<QLabel*>("labelBrightness");
        DoubleClick(label, label->rect().center());
        QCOMPARE(box->value(), 6500);
        strength->setValue(80);
        const QPoint end = strength->rect().center() + QPoint(strength->width() / 2 - 3, 0);
        DoubleClick(strength, end); // the groove: not the handle
        QVERIFY(strength->value() != 50);
    }

    void HandlesOfLevels() {
        HBEditorWindow window(false);
        QVERIFY(Activate(&window));
        QVERIFY(window.Open(Photo("a.png")) && window.OpenPanel(*HBFindPanel("HBLevelsWidget")));
        auto* slider = window.Session()->Panel()->findChild<MavuCustomSlider*>("m_pInputSlider");
        slider->SetValue(0, 60);
        slider->SetValue(2, 200);
        DoubleClick(slider, slider->ControlRect(2).center());
        QCOMPARE(slider->Value(2), 255);
        QCOMPARE(slider->Value(0), 60);
    }

    /// By what lies on the photo; the panel's margins and its font follow.
    void OverlayOnThePhoto() {
        const QString stamp = m_Folder.filePath("stamp.png");
        Ramp(200, 100).save(stamp);
        HBEditorWindow window(false);
        QVERIFY(Activate(&window));
        Ramp(1000, 1000).save(m_Folder.filePath("large.png")); // a pixel a unit
        QVERIFY(window.Open(m_Folder.filePath("large.png")));
        QVERIFY(window.OpenPanel(*HBFindPanel("HBWatermarkWidget")));
        auto* box = window.Session()->findChild<HBOverlayBox*>();
        QVERIFY(box);
        QTRY_VERIFY2(box->Box().height() > 40, "to be seen at first sight");
        const auto text = [&] {
            const std::any record = window.Session()->Entry().get(*window.Session()->Panel());
            return std::any_cast<HBWatermarkParams>(record);
        };
        const QRectF before = box->Box();
        box->Move(QPointF(100, -50));
        QVERIFY(qAbs(box->Box().center().x() - before.center().x() - 100) <= 1);
        QVERIFY(qAbs(box->Box().center().y() - before.center().y() + 50) <= 1);
        QCOMPARE(text().margins.right(), 0);
        const double points = text().font.pointSizeF();
        box->Resize(QPointF(box->Box().width(), 0));
        QVERIFY(qAbs(text().font.pointSizeF() - 2 * points) < 0.1);
        Q_EMIT window.Session()->Panel()->Cancel();
        const HBPanelEntry& sign = *HBFindPanel("HBSignWidget");
        QVERIFY(window.OpenPanel(sign));
        const auto frames = [&] { // none while there is no stamp
            int count = 0;
            for (const QGraphicsItem* item : window.View()->scene()->items())
                count += item->isVisible() && item->zValue() == 8;
            return count;
        };
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(frames(), 0);
        HBSignParams params;
        params.fileName = stamp;
        params.alignment = Qt::AlignRight | Qt::AlignBottom;
        sign.set(*window.Session()->Panel(), params);
        window.Session()->Refresh();
        box = window.Session()->findChild<HBOverlayBox*>();
        QTRY_COMPARE(box->Box(), QRectF(795, 895, 200, 100));
        // The mouse, by the frame and by the corner.
        KMDocumentView* view = window.View();
        const auto drag = [&](const QPointF& from, const QPointF& by) {
            const QPoint start = view->mapFromScene(from);
            QTest::mousePress(view->viewport(), Qt::LeftButton, {}, start);
            QMouseEvent move(QEvent::MouseMove, view->mapFromScene(from + by), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(view->viewport(), &move);
            QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, view->mapFromScene(from + by));
        };
        drag(box->Box().center(), QPointF(-300, -200));
        QVERIFY(QLineF(box->Box().topLeft(), QPointF(495, 695)).length() < 4);
        drag(box->Box().bottomRight(), QPointF(-100, -50));
        QVERIFY2(qAbs(box->Box().width() - 100) < 6, qPrintable(QString::number(box->Box().width())));
        QCOMPARE(view->horizontalScrollBar()->value(), 0);
    }

    /// A field that is only read is no place for the window's one-letter keys.
    void ReadOnlyFieldsKeepTheirKeys() {
        HBEditorWindow window(false);
        QVERIFY(Activate(&window));
        QVERIFY(window.Open(Photo("a.png")) && window.OpenPanel(*HBFindPanel("HBSignWidget")));
        auto* field = window.Session()->Panel()->findChild<QLineEdit*>("m_pImageFileName");
        QVERIFY(field->isReadOnly());
        field->setFocus();
        QCoreApplication::processEvents();
        field->setFocus();
        const QAction* tool = window.Actions()->tools->checkedAction();
        QTest::keyClicks(field, "er");
        QCOMPARE(window.Actions()->tools->checkedAction(), tool);
    }

    void MouseOnThePhoto() {
        HBEditorWindow window(false);
        QVERIFY(Activate(&window));
        QVERIFY(window.Open(Photo("a.png")));
        KMDocumentView* view = window.View();
        QCoreApplication::processEvents();
        view->SetZoom(8);
        QWidget* port = view->viewport();
        const QPoint middle = port->rect().center();
        const int before = view->horizontalScrollBar()->value();
        const auto drag = [&] {
            QTest::mousePress(port, Qt::LeftButton, {}, middle);
            QMouseEvent move(QEvent::MouseMove, middle - QPoint(50, 0), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(port, &move);
            QTest::mouseRelease(port, Qt::LeftButton, {}, middle - QPoint(50, 0));
        };
        drag();
        QCOMPARE(view->horizontalScrollBar()->value(), before + 50);
        window.Actions()->tools->actions().at(1)->trigger(); // a tool has the left button
        drag();
        QCOMPARE(view->horizontalScrollBar()->value(), before + 50);
        Wheel(port, 120);
        QVERIFY(view->Zoom() > 8);
    }

    void MessagesDoNotMoveThePhoto() {
        HBEditorWindow window(false);
        QVERIFY(Activate(&window));
        QVERIFY(window.Open(Photo("a.png")));
        const QRect photo(window.View()->mapToGlobal(QPoint()), window.View()->size());
        window.MessageBar()->ShowError("Something of\nseveral lines");
        QCoreApplication::processEvents();
        QCOMPARE(QRect(window.View()->mapToGlobal(QPoint()), window.View()->size()), photo);
        QVERIFY(window.MessageBar()->isVisible() && window.MessageBar()->width() > photo.width() - 10);
        QVERIFY(window.OpenPanel(*HBFindPanel("HBTintWidget"))); // it was about something else
        QVERIFY(!window.MessageBar()->isVisible());
    }

    /// The side bar is as wide for the next panel as the last one was left.
    void SideBarKeepsItsWidth() {
        HBEditorWindow window(false);
        QVERIFY(Activate(&window));
        QVERIFY(window.Open(Photo("a.png")) && window.OpenPanel(*HBFindPanel("HBGammaCorrectionWidget")));
        auto* dock = window.findChild<QDockWidget*>("PanelDock");
        window.resizeDocks({dock}, {510}, Qt::Horizontal);
        QTRY_COMPARE(dock->width(), 510);
        QVERIFY(window.OpenPanel(*HBFindPanel("HBExposureWidget")));
        QTRY_COMPARE(dock->width(), 510);
    }

    void Style() {
        HBEditorStyle style(QStyleFactory::create("fusion"));
        QPalette dark(QColor(0x3c, 0x3c, 0x3c), QColor(0x2b, 0x2b, 0x2b));
        dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
        const auto grab = [&](QWidget* widget, const QSize& size) {
            widget->setStyle(&style);
            widget->setPalette(dark);
            widget->setAutoFillBackground(true);
            widget->resize(size);
            return widget->grab().toImage();
        };
        QCheckBox box;
        int brightest = 0;
        const QImage unticked = grab(&box, QSize(20, 20));
        for (int x = 0; x < 20; ++x) brightest = qMax(brightest, qGray(unticked.pixel(x, 10)));
        QVERIFY2(brightest > 0x70, qPrintable(QString::number(brightest)));
        // From the middle, and not at all when it is disabled.
        const auto blue = [&](int value, bool enabled) {
            QSlider slider(Qt::Horizontal);
            slider.setRange(-100, 100);
            slider.setValue(value);
            slider.setEnabled(enabled);
            const QImage image = grab(&slider, QSize(200, 24));
            QVector<bool> found;
            for (const int x : {30, 70, 130, 170}) {
                const QColor color = image.pixelColor(x, 12);
                found.append(color.blue() > color.red() + 40);
            }
            return found;
        };
        QCOMPARE(blue(0, true), QVector<bool>({false, false, false, false}));
        QCOMPARE(blue(-60, true), QVector<bool>({false, true, false, false}));
        QCOMPARE(blue(60, true), QVector<bool>({false, false, true, false}));
        QCOMPARE(blue(60, false), QVector<bool>({false, false, false, false}));
    }

private:
    QTemporaryDir m_Folder;
};

HB_TEST_MAIN(tst_EditorHands)
#include "tst_EditorHands.moc"
