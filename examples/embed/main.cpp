// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBPanelSession.h>
#include <KMDocumentView.h>
#include <QtWidgets>

// embed PHOTO [RESULT]: a panel beside a photo. Given a second path, presses OK by itself, saves and ends.
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QImage photo(application.arguments().value(1));
    if (photo.isNull())
        qFatal("Usage: embed PHOTO [RESULT]");
    const QString result = application.arguments().value(2);

    QSplitter window;
    auto* view = new KMDocumentView(&window);
    HBPanelSession session(*HBFindPanel("HBBlackAndWhiteWidget"));
    window.addWidget(session.Widget());
    QObject::connect(&session, &HBPanelSession::PreviewReady, view, &KMDocumentView::SetPicture);
    QObject::connect(&session, &HBPanelSession::Rejected, &application, &QApplication::quit);
    QObject::connect(&session, &HBPanelSession::Accepted, [=](const HBImage<>& adjusted) {
        QApplication::exit(result.isEmpty() || adjusted.ToQImage().save(result) ? 0 : 1);
    });
    session.SetTarget({HBImage<>::FromQImage(photo)});
    if (!result.isEmpty())
        session.Accept();
    window.show();
    return QApplication::exec();
}
