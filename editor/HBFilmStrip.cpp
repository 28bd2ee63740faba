// SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
// SPDX-License-Identifier: MIT
#include "HBFilmStrip.h"

#include "HBThumbnail.h"

#include <KMImageFileManager.h>

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QListWidget>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>

namespace
{

constexpr int StripSide = 96; // of a thumbnail in the strip
constexpr int Ahead = 24;     // made before they are seen
constexpr int MostKept = 3000;

/// With numbers as long as those of cameras become, so that 9 comes before 10. QCollator's numeric mode does
/// nothing in the C locale.
QString Padded(const QString& name)
{
    constexpr int length = 12;
    QString padded;
    for (int i = 0; i < name.size();) {
        int end = i;
        while (end < name.size() && name.at(end).isDigit())
            ++end;
        padded += end > i ? name.mid(i, end - i).rightJustified(length, '0') : name.mid(i, 1);
        i = qMax(end, i + 1);
    }
    return padded;
}

QStringList PhotosIn(const QString& folder)
{
    QStringList patterns;
    for (const QString& suffix : KMImageFileManager::SuffixesForRead())
        patterns.append("*." + suffix);
    QStringList photos;
    for (const QFileInfo& file : QDir(folder).entryInfoList(patterns, QDir::Files | QDir::Readable))
        photos.append(file.absoluteFilePath());
    std::sort(photos.begin(), photos.end(), [](const QString& a, const QString& b) {
        const int order = QString::compare(Padded(a), Padded(b), Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a < b;
    });
    return photos;
}

/// In the middle of a square, so that all names stand in one line.
QIcon Framed(const QImage& thumbnail, qreal ratio)
{
    const int side = qRound(StripSide * ratio);
    QPixmap square(side, side);
    square.fill(Qt::transparent);
    if (!thumbnail.isNull()) {
        const QSize size = thumbnail.size().scaled(side, side, Qt::KeepAspectRatio).boundedTo(thumbnail.size());
        const QImage fitted = thumbnail.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        QPainter(&square).drawImage((side - fitted.width()) / 2, (side - fitted.height()) / 2, fitted);
    }
    square.setDevicePixelRatio(ratio);
    return QIcon(square);
}

} // namespace

HBFilmStrip::HBFilmStrip(QWidget* parent) : QDockWidget(tr("Film Strip"), parent), m_pList(new QListWidget)
{
    setObjectName("FilmStrip");
    setAllowedAreas(Qt::BottomDockWidgetArea | Qt::TopDockWidgetArea);
    m_pList->setObjectName("photos");
    m_pList->setAccessibleName(tr("Photos of the folder"));
    m_pList->setViewMode(QListView::IconMode);
    m_pList->setFlow(QListView::LeftToRight);
    m_pList->setWrapping(false);
    m_pList->setMovement(QListView::Static);
    m_pList->setUniformItemSizes(true);
    m_pList->setTextElideMode(Qt::ElideMiddle);
    m_pList->setIconSize(QSize(StripSide, StripSide));
    m_pList->setGridSize(QSize(StripSide + 48, StripSide + fontMetrics().height() + 12));
    m_pList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pList->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_pList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pList->setFixedHeight(m_pList->gridSize().height() + m_pList->horizontalScrollBar()->sizeHint().height() +
                            2 * m_pList->frameWidth());
    m_pList->setToolTip(tr("Double click or Return opens a photo; Ctrl and Shift mark several"));
    m_pList->viewport()->installEventFilter(this);
    setWidget(m_pList);
    connect(m_pList, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem* item) { Q_EMIT Chosen(item->data(Qt::UserRole).toString()); });
    connect(m_pList, &QListWidget::itemSelectionChanged, this,
            [this] { Q_EMIT MarkedChanged(m_pList->selectedItems().size()); });
    connect(m_pList->horizontalScrollBar(), &QScrollBar::valueChanged, this, &HBFilmStrip::WantSeen);
    connect(this, &QDockWidget::visibilityChanged, this, [this] { WantSeen(); });
    connect(&m_Thumbnails, &HBThumbnails::Ready, this, &HBFilmStrip::ShowThumbnail);
}

void HBFilmStrip::SetOpen(const QString& photo)
{
    m_Open = QFileInfo(photo).absoluteFilePath();
    const bool chosen = m_Folder.isEmpty() && m_Photos.contains(m_Open);
    const QString folder = QFileInfo(m_Open).path();
    if (!chosen && (folder != m_Folder || !m_Photos.contains(m_Open))) {
        m_Folder = folder;
        m_Photos = PhotosIn(folder);
        List();
    }
    ShowOpen();
}

void HBFilmStrip::SetPhotos(const QStringList& photos)
{
    m_Folder.clear();
    m_Photos.clear();
    for (const QString& photo : photos)
        m_Photos.append(QFileInfo(photo).absoluteFilePath());
    m_Photos.removeDuplicates();
    List();
    ShowOpen();
}

void HBFilmStrip::Refresh(const QString& photo)
{
    m_Icons.remove(QFileInfo(photo).absoluteFilePath());
    const bool isNew = QFileInfo(photo).absolutePath() == m_Folder && !m_Photos.contains(photo);
    if (isNew) {
        m_Photos = PhotosIn(m_Folder);
        List();
        ShowOpen();
    }
    WantSeen();
}

void HBFilmStrip::List()
{
    m_pList->clear();
    const QIcon empty = Framed({}, devicePixelRatioF());
    for (const QString& photo : qAsConst(m_Photos)) {
        auto* item = new QListWidgetItem(m_Icons.value(photo, empty), QFileInfo(photo).fileName(), m_pList);
        item->setData(Qt::UserRole, photo);
        item->setToolTip(QDir::toNativeSeparators(photo));
        item->setSizeHint(m_pList->gridSize() - QSize(4, 0)); // else names are as wide as the picture
    }
    QTimer::singleShot(0, this, &HBFilmStrip::WantSeen); // when they have their places
}

void HBFilmStrip::ShowOpen()
{
    for (int row = 0; row < m_pList->count(); ++row) {
        QFont font = m_pList->font();
        font.setBold(m_Photos.at(row) == m_Open);
        m_pList->item(row)->setFont(font);
    }
    const int row = m_Photos.indexOf(m_Open);
    if (row < 0)
        return;
    if (m_pList->selectedItems().size() <= 1) // marks of several stay
        m_pList->setCurrentRow(row);
    m_pList->scrollToItem(m_pList->item(row), QAbstractItemView::PositionAtCenter);
}

QString HBFilmStrip::Neighbour(int step) const
{
    const int row = m_Photos.indexOf(m_Open);
    return row < 0 ? QString() : m_Photos.value(row + step);
}

QStringList HBFilmStrip::Marked() const
{
    QStringList marked;
    for (int row = 0; row < m_pList->count(); ++row) {
        if (m_pList->item(row)->isSelected())
            marked.append(m_Photos.at(row));
    }
    return marked.isEmpty() && !m_Open.isEmpty() ? QStringList{m_Open} : marked;
}

/// Those in sight that have no thumbnail, then so many on either side.
QStringList HBFilmStrip::Missing(int ahead) const
{
    if (!isVisible() || m_Photos.isEmpty())
        return {};
    const int step = m_pList->gridSize().width();
    const int offset = m_pList->horizontalScrollBar()->value();
    const int first = qBound(0, offset / step, m_Photos.size() - 1);
    const int last = qMin(m_Photos.size() - 1, (offset + m_pList->viewport()->width()) / step);
    QStringList wanted;
    const auto want = [&](int row) {
        if (row >= 0 && row < m_Photos.size() && !m_Icons.contains(m_Photos.at(row)))
            wanted.append(m_Photos.at(row));
    };
    for (int row = first; row <= last; ++row)
        want(row);
    for (int i = 1; i <= ahead; ++i) {
        want(last + i);
        want(first - i);
    }
    return wanted;
}

bool HBFilmStrip::IsComplete() const
{
    return Missing(0).isEmpty();
}

void HBFilmStrip::WantSeen()
{
    m_Thumbnails.SetWanted(Missing(Ahead));
}

void HBFilmStrip::ShowThumbnail(const QString& photo, const QImage& thumbnail)
{
    if (m_Icons.size() >= MostKept)
        m_Icons.clear();
    const QIcon icon = Framed(thumbnail, devicePixelRatioF());
    m_Icons.insert(photo, icon);
    const int row = m_Photos.indexOf(photo);
    if (row >= 0 && row < m_pList->count())
        m_pList->item(row)->setIcon(icon);
}

bool HBFilmStrip::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        WantSeen();
    // A wheel with one axis goes along the row.
    if (event->type() == QEvent::Wheel) {
        const auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->angleDelta().x() == 0) {
            QScrollBar* bar = m_pList->horizontalScrollBar();
            bar->setValue(bar->value() - wheel->angleDelta().y());
            return true;
        }
    }
    return QDockWidget::eventFilter(watched, event);
}
