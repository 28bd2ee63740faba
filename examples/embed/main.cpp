// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBBrightnessContrastWidget.h>

#include <QApplication>
#include <QLabel>
#include <QSplitter>

// embed PHOTO [RESULT]: the panel below a photo. Given a second path, saves the first result there and ends.
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QImage photo(application.arguments().value(1));
    if (photo.isNull())
        qFatal("Usage: embed PHOTO [RESULT]");

    QSplitter window(Qt::Vertical); // shows its children one below the other
    auto* picture = new QLabel(&window);
    auto* panel = new HBBrightnessContrastWidget(true, &window, {});

    const QString result = application.arguments().value(2);
    QObject::connect(panel, &HBAdjustmentWidget::ImageReady, [=] {
        const QImage adjusted = panel->AdjustedImage().ToQImage();
        picture->setPixmap(QPixmap::fromImage(adjusted));
        if (!result.isEmpty())
            QApplication::exit(adjusted.save(result) ? 0 : 1);
    });
    QObject::connect(panel, &HBAdjustmentWidget::Ok, &window, &QWidget::close);
    QObject::connect(panel, &HBAdjustmentWidget::Cancel, &window, &QWidget::close);

    panel->SetValue({20, 0});                                  // brightness, contrast
    panel->SetImage(HBImage<>::FromQImage(photo), {}, {}, {}); // no selection; starts the first job
    window.show();
    return application.exec();
}
