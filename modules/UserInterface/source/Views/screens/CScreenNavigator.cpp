#include "CScreenNavigator.h"

#include "BackgroundWork.h"
#include "CEmulatorAdapter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CThemeIcons.h"
#include "PropertyKey.h"
#include "ShownText.h"

#include <QPainter>
#include <QScrollBar>
#include <QThreadPool>
#include <QTimer>

namespace {
constexpr int Delay = 250; ///< milliseconds after a change, and between looks at a busy emulator
constexpr int ShortDelay = 10;     ///< the same while somebody waits for the frames
constexpr QSize Largest(160, 100); ///< of a thumbnail, pixels
} // namespace

CScreenNavigator::CScreenNavigator(QWidget *parent) : QListWidget(parent), m_timer(new QTimer(this))
{
    setObjectName(QStringLiteral("navigatorList"));
    setViewMode(IconMode);
    setMovement(Static);
    setResizeMode(Adjust);
    setIconSize(Largest);
    setSpacing(8);
    setUniformItemSizes(true);
    setWordWrap(false);
    m_timer->setSingleShot(true);
    m_timer->setInterval(Delay);
    connect(m_timer, &QTimer::timeout, this, &CScreenNavigator::requestNext);
    connect(&m_request, &CFrameRequest::frameTaken, this, &CScreenNavigator::takeFrame);
    const auto activate = [this](const QListWidgetItem *entry) {
        if (CScreenModel *screen = m_project ? m_project->screen(row(entry)) : nullptr)
            Q_EMIT screenActivated(screen);
    };
    connect(this, &QListWidget::itemClicked, this, activate);
    connect(this, &QListWidget::itemActivated, this, activate);
}

void CScreenNavigator::setProject(CProjectModel *project)
{
    if (m_project)
        m_project->disconnect(this);
    m_request.withdraw();
    m_requested = nullptr;
    m_current = nullptr;
    m_project = project;
    releasePictures();
    m_changed.clear();
    scrollToTop();
    if (project) {
        const auto rowsChanged = [this](const QModelIndex &parent) {
            if (parent.isValid())
                markChanged(m_project->itemFromIndex(parent));
            else
                rebuild();
        };
        connect(project, &QAbstractItemModel::rowsInserted, this, rowsChanged);
        connect(project, &QAbstractItemModel::rowsRemoved, this, rowsChanged);
        connect(project, &QAbstractItemModel::modelReset, this, &CScreenNavigator::rebuild);
        connect(project, &CProjectModel::propertyChanged, this, &CScreenNavigator::propertyChanged);
    }
    rebuild();
}

/// Their memory is given back by a thread of the pool: a frame of every page takes its time.
void CScreenNavigator::releasePictures()
{
    QVector<QImage> frames;
    for (const SPicture &each : qAsConst(m_pictures))
        frames.append(each.frame.toImage()); // shares the memory
    m_pictures.clear();
    QThreadPool::globalInstance()->start(
        [frames = std::move(frames)]() mutable { frames.clear(); });
}

/// A row for each screen, in the project's order. Frames of screens that are still there are kept,
/// and so is the place to which the user has scrolled.
void CScreenNavigator::rebuild()
{
    const int place = verticalScrollBar()->value();
    setAutoScroll(false); // to the marked one, which is only marked again
    clear();
    QHash<const CScreenModel *, SPicture> pictures;
    QList<CScreenModel *> changed;
    for (int row = 0; m_project && row < m_project->screenCount(); ++row) {
        CScreenModel *screen = m_project->screen(row);
        auto *entry = new QListWidgetItem(ShownText::name(screen->name()), this);
        showThumbnail(entry, m_pictures.value(screen).thumbnail);
        if (m_pictures.contains(screen))
            pictures.insert(screen, m_pictures.value(screen));
        if (!m_pictures.contains(screen) || m_changed.contains(screen))
            changed.append(screen);
        if (screen == m_current)
            setCurrentItem(entry);
    }
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(place);
    setAutoScroll(true);
    m_pictures = pictures;
    m_changed = changed;
    if (!pictures.contains(m_requested) && !changed.contains(m_requested))
        m_requested = nullptr;
    m_timer->start();
}

void CScreenNavigator::refreshAll()
{
    m_changed.clear();
    m_requested = nullptr;
    for (int row = 0; m_project && row < m_project->screenCount(); ++row)
        m_changed.append(m_project->screen(row));
    m_timer->start();
}

void CScreenNavigator::setAllWanted(bool wanted)
{
    m_areAllWanted = wanted;
    m_timer->setInterval(wanted ? ShortDelay : Delay);
    m_timer->start();
}

QListWidgetItem *CScreenNavigator::entryOf(const CScreenModel *screen) const
{
    return screen ? item(screen->row()) : nullptr;
}

void CScreenNavigator::setCurrentScreen(CScreenModel *screen)
{
    m_current = screen;
    setCurrentItem(entryOf(screen));
}

void CScreenNavigator::markChanged(const QStandardItem *item)
{
    while (item && item->parent())
        item = item->parent();
    CScreenModel *screen = item && m_project ? m_project->screen(item->row()) : nullptr;
    if (!screen || screen != item)
        return; // of no project, such as a widget that is being made
    if (!m_changed.contains(screen))
        m_changed.append(screen);
    if (!m_timer->isActive())
        m_timer->start();
}

void CScreenNavigator::propertyChanged(CItemModel *item, const QString &key)
{
    if (item->kind() == CItemModel::Kind::Screen && key == PropertyKey::Name && item->model()) {
        if (QListWidgetItem *entry = entryOf(static_cast<CScreenModel *>(item)))
            entry->setText(ShownText::name(item->name()));
    }
    if (item->model() == m_project)
        markChanged(item);
}

void CScreenNavigator::requestNext()
{
    const CEmulatorAdapter *adapter = CEmulatorAdapter::instance();
    if (m_changed.isEmpty() || !adapter->isRegistered())
        return;
    if (adapter->isBusy() || !(isVisible() || m_areAllWanted)) {
        m_timer->start();
        return;
    }
    m_requested = m_changed.takeFirst();
    m_request.ask(m_requested);
}

void CScreenNavigator::takeFrame(const QPixmap &frame)
{
    if (!m_requested || frame.isNull())
        return;
    if (entryOf(m_requested)) {
        m_pictures[m_requested].frame = frame;
        scale(m_requested);
        Q_EMIT frameTaken();
    }
    m_requested = nullptr;
    if (!m_changed.isEmpty())
        m_timer->start();
}

QSize CScreenNavigator::thumbnailSize() const
{
    const QSize resolution = m_project ? m_project->resolution() : Largest;
    return resolution.scaled(Largest, Qt::KeepAspectRatio) * devicePixelRatioF();
}

/// The frame of a screen becomes its thumbnail, unless a newer one comes or the screen goes.
void CScreenNavigator::scale(const CScreenModel *screen)
{
    const QPixmap frame = m_pictures.value(screen).frame;
    BackgroundWork::run(
        this,
        [image = frame.toImage(), size = thumbnailSize()] {
            return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        },
        [this, screen, key = frame.cacheKey()](const QImage &thumbnail) {
            const auto picture = m_pictures.find(screen);
            if (picture == m_pictures.end() || picture->frame.cacheKey() != key)
                return;
            picture->thumbnail = QPixmap::fromImage(thumbnail);
            showThumbnail(entryOf(screen), picture->thumbnail);
        });
}

/// An empty page while there is none.
void CScreenNavigator::showThumbnail(QListWidgetItem *entry, QPixmap thumbnail)
{
    if (thumbnail.isNull()) {
        thumbnail = QPixmap(thumbnailSize());
        thumbnail.fill(palette().color(QPalette::Mid));
    }
    thumbnail.setDevicePixelRatio(devicePixelRatioF());
    entry->setIcon(CThemeIcons::untinted(thumbnail));
    entry->setToolTip(entry->text());
}

QList<QPair<QString, QPixmap>> CScreenNavigator::getScreenPixmaps() const
{
    QList<QPair<QString, QPixmap>> pixmaps;
    for (int row = 0; m_project && row < m_project->screenCount(); ++row) {
        const CScreenModel *screen = m_project->screen(row);
        pixmaps.append({screen->name(), m_pictures.value(screen).frame});
    }
    return pixmaps;
}

void CScreenNavigator::paintEvent(QPaintEvent *event)
{
    QListWidget::paintEvent(event);
    if (count() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     m_project ? tr("No screen") : tr("No project"));
}
