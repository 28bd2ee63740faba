// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include <HBPanelSession.h>
#include <HBPanelSetup.h>
#include <HBSelectionImage.h>
#include <KMDocumentView.h>

#include <QtWidgets>

// A small editor: five panels in tabs, a selection drawn with the mouse, undo. The values that the user has set
// last are there again when a panel is opened the next time, also at the next start.
class Editor : public QMainWindow
{
public:
    Editor()
    {
        HBSetUpPanels(this);
        for (const char* name :
             {"HBLevelsWidget", "HBCurvesWidget", "HBHueSaturationWidget", "HBWBWidget", "HBWatermarkWidget"}) {
            m_Entries.append(HBFindPanel(name));
            m_pTabs->addTab(new QSplitter, m_Entries.last()->Title());
        }
        auto* splitter = new QSplitter;
        splitter->addWidget(m_pView);
        splitter->addWidget(m_pTabs);
        splitter->setStretchFactor(splitter->indexOf(m_pView), 1);
        setCentralWidget(splitter);

        QMenu* file = menuBar()->addMenu("&File");
        file->addAction("&Open…", this, [this] { Open(QFileDialog::getOpenFileName(this)); });
        file->addAction("&Save As…", this, [this] { Save(QFileDialog::getSaveFileName(this)); });
        QMenu* edit = menuBar()->addMenu("&Edit");
        edit->addAction("&Undo", this, [this] {
            if (!m_Undo.isEmpty())
                m_Target.source = m_Undo.takeLast();
            m_pSession->SetTarget(m_Target);
        });
        edit->addAction("Select &All", this, [this] { Select({}); });

        m_pView->setDragMode(QGraphicsView::RubberBandDrag);
        connect(m_pView, &QGraphicsView::rubberBandChanged, this, [this](const QRect& band) {
            if (band.isNull()) // the mouse was let go
                Select(m_Band);
            else
                m_Band = m_pView->mapToScene(band).boundingRect().toAlignedRect();
        });
        connect(m_pTabs, &QTabWidget::currentChanged, this, [this] { OpenPanel(Values::Kept); });
        OpenPanel(Values::Kept);
    }
    ~Editor() override { KeepValues(); }

    void Open(const QString& path)
    {
        const QImage photo(path);
        if (photo.isNull())
            return statusBar()->showMessage("Cannot be read: " + path);
        m_Target = {HBImage<>::FromQImage(photo)};
        m_Undo.clear();
        Select({});
    }

    bool Save(const QString& path)
    {
        const bool saved = m_Target.source.ToQImage().save(path);
        statusBar()->showMessage((saved ? "Saved: " : "Cannot be written: ") + path);
        return saved;
    }

    HBPanelSession* Session() const { return m_pSession; }

private:
    enum class Values { Kept, Default };

    /// Opens the panel of the tab in front, in place of the one that was open.
    void OpenPanel(Values values)
    {
        KeepValues();
        if (m_pSession)
            m_pSession->deleteLater(); // this may be a slot of its own signals
        const HBPanelEntry& entry = *m_Entries[m_pTabs->currentIndex()];
        HBPanelSession* session = m_pSession = new HBPanelSession(entry, this);
        connect(session, &HBPanelSession::PreviewReady, m_pView, &KMDocumentView::SetPicture);
        connect(session, &HBPanelSession::Accepted, this, [this](const HBImage<>& image) {
            m_Undo.append(m_Target.source); // costs no pixel that is as before: images share their tiles
            m_Target.source = image;
            OpenPanel(Values::Default);
        });
        connect(session, &HBPanelSession::Rejected, this, [this] { OpenPanel(Values::Default); });
        for (auto signal : {&HBPanelSession::Troubled, &HBPanelSession::Resumed})
            connect(session, signal, this, [this](const QString& reason) { statusBar()->showMessage(reason); });
        connect(session, &HBPanelSession::PickingChanged, this, [this](bool picking) {
            m_pView->setDragMode(picking ? QGraphicsView::NoDrag : QGraphicsView::RubberBandDrag);
        });
        if (values == Values::Kept)
            session->RestoreValues(QSettings().value(entry.className).toByteArray()); // empty at the first start
        session->SetView(m_pView);
        m_pView->SetPicture(m_Target.source);
        session->SetTarget(m_Target);
        static_cast<QSplitter*>(m_pTabs->currentWidget())->addWidget(session->Widget());
    }

    void KeepValues()
    {
        if (m_pSession && m_pSession->IsChanged())
            QSettings().setValue(m_pSession->Entry().className, m_pSession->SaveValues());
    }

    void Select(const QRect& rectangle)
    {
        m_pOutline.reset();
        m_Target = {m_Target.source};
        QString reason;
        QPen dashes(Qt::DashLine);
        dashes.setCosmetic(true); // as thin at every zoom
        if (!rectangle.isEmpty() && HBSelectRectangle(rectangle, &m_Target, &reason))
            m_pOutline.reset(m_pView->scene()->addRect(rectangle, dashes));
        statusBar()->showMessage(reason);
        m_pSession->SetTarget(m_Target);
    }

    KMDocumentView* m_pView = new KMDocumentView;
    QTabWidget* m_pTabs = new QTabWidget;
    QVector<const HBPanelEntry*> m_Entries;
    HBPanelSession* m_pSession = nullptr;
    HBTarget m_Target;
    QVector<HBImage<>> m_Undo;
    QRect m_Band;
    QScopedPointer<QGraphicsItem> m_pOutline;
};

// five-panels [PHOTO [RESULT]]: given a second path, presses OK in the first panel, saves and ends.
int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QCoreApplication::setOrganizationName("AdjustmentPanels");
    QCoreApplication::setApplicationName("five-panels");
    HBSetPanelLanguage(QLocale());
    const QStringList arguments = application.arguments();

    Editor editor;
    if (arguments.size() > 1)
        editor.Open(arguments[1]);
    if (arguments.size() > 2) {
        QObject::connect(editor.Session(), &HBPanelSession::Accepted, &editor,
                         [&] { QApplication::exit(editor.Save(arguments[2]) ? 0 : 1); });
        editor.Session()->Accept();
    }
    editor.show();
    return QApplication::exec();
}
