#include "CFindPictures.h"

#include "CEmulatorAdapter.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemGeometry.h"

#include <utility>

namespace {
constexpr int Delay = 40;         // ms, between looks at a busy emulator
constexpr int ChangeDelay = 250;  // ms, for a page that is being worked on
constexpr int MaxPictures = 1000; // of items
constexpr int Margin = 3;         // pixels of a page around an item

CScreenModel *pageOf(CItemModel *item)
{
    while (item->parentItem())
        item = item->parentItem();
    return item->kind() == CItemModel::Kind::Screen ? static_cast<CScreenModel *>(item) : nullptr;
}
} // namespace

CFindPictures::CFindPictures(QObject *parent) : QObject(parent), m_pictures(MaxPictures)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CFindPictures::askNext);
    connect(&m_request, &CFrameRequest::frameTaken, this,
            [this](const QPixmap &frame) { takeFrame(frame); });
}

void CFindPictures::setProject(CProjectModel *project)
{
    if (m_project)
        m_project->disconnect(this);
    clear();
    m_project = project;
    if (!project)
        return;
    connect(project, &CProjectModel::propertyChanged, this, &CFindPictures::markStale);
    connect(project, &CProjectModel::fontsChanged, this, &CFindPictures::clear);
    connect(project, &QAbstractItemModel::modelAboutToBeReset, this, &CFindPictures::clear);
    connect(project, &QAbstractItemModel::rowsInserted, this, [this](const QModelIndex &parent) {
        if (parent.isValid())
            markStale(m_project->itemFromIndex(parent));
    });
    connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            &CFindPictures::forgetRemoved);
}

void CFindPictures::clear()
{
    withdraw();
    m_frames.clear();
    m_recent.clear();
    m_stale.clear();
    m_pictures.clear();
}

void CFindPictures::withdraw()
{
    m_timer.stop();
    m_request.withdraw();
    m_wanted.clear();
    m_asked = nullptr;
}

void CFindPictures::markStale(const QStandardItem *item)
{
    while (item && item->parent())
        item = item->parent();
    if (!item || item->model() != m_project)
        return;
    m_stale.insert(static_cast<const CScreenModel *>(item));
    Q_EMIT changed(); // who is looked at asks again
}

void CFindPictures::forgetRemoved(const QModelIndex &parent, int first, int last)
{
    m_pictures.clear(); // an item that is made later may lie where one of these lay
    if (parent.isValid()) {
        markStale(m_project->itemFromIndex(parent));
        return;
    }
    for (int row = first; row <= last; ++row) {
        CScreenModel *page = m_project->screen(row);
        if (page == m_asked)
            withdraw();
        m_wanted.removeAll(page);
        m_frames.remove(page);
        m_recent.removeAll(page);
        m_stale.remove(page);
    }
}

QPixmap CFindPictures::picture(CItemModel *item, const QSize &largest)
{
    CScreenModel *page = item ? pageOf(item) : nullptr;
    if (!page || page->model() != m_project)
        return {};
    const bool isTrue = m_frames.contains(page) && !m_stale.contains(page);
    const QPixmap *known = m_stale.contains(page) ? nullptr : m_pictures.object(item);
    if (known)
        return *known;
    if (!isTrue)
        want(page);
    const QPixmap frame = m_frames.value(page);
    if (frame.isNull())
        return {};
    m_recent.removeAll(page);
    m_recent.append(page);
    QRect seen = frame.rect();
    if (item != page)
        seen = ItemGeometry::frameOf(*item)
                   .toAlignedRect()
                   .adjusted(-Margin, -Margin, Margin, Margin)
                   .intersected(frame.rect());
    if (seen.isEmpty())
        return {}; // beside its page
    QPixmap picture = frame.copy(seen);
    if (picture.width() > largest.width() || picture.height() > largest.height())
        picture = picture.scaled(largest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (!m_stale.contains(page))
        m_pictures.insert(item, new QPixmap(picture));
    return picture;
}

void CFindPictures::want(CScreenModel *page)
{
    if (page == m_asked || m_wanted.contains(page))
        return;
    m_wanted.append(page);
    if (!m_timer.isActive())
        m_timer.start(m_frames.contains(page) ? ChangeDelay : Delay);
}

void CFindPictures::askNext()
{
    if (m_asked || m_wanted.isEmpty() || !CFrameRequest::isPossible())
        return;
    if (CEmulatorAdapter::instance()->isBusy()) {
        m_timer.start(Delay);
        return;
    }
    m_asked = m_wanted.takeFirst();
    m_stale.remove(m_asked); // what changes from here on is not in the frame
    m_request.ask(m_asked);
}

void CFindPictures::takeFrame(const QPixmap &frame)
{
    const CScreenModel *page = std::exchange(m_asked, nullptr);
    if (!page)
        return;
    m_frames.insert(page, frame);
    m_recent.removeAll(page);
    m_recent.append(page);
    while (m_recent.size() > MaxFrames)
        m_frames.remove(m_recent.takeFirst());
    if (!m_wanted.isEmpty())
        m_timer.start(Delay);
    const QList<CItemModel *> shown = m_pictures.keys(); // all in the project, see forgetRemoved()
    for (CItemModel *each : shown) {
        if (pageOf(each) == page)
            m_pictures.remove(each);
    }
    Q_EMIT changed();
}
