#pragma once

#include "CFrameRequest.h"

#include <QCache>
#include <QHash>
#include <QObject>
#include <QPixmap>
#include <QPointer>
#include <QSet>
#include <QTimer>

class CItemModel;
class CProjectModel;
class CScreenModel;
class QModelIndex;
class QStandardItem;

/// Pictures of items as they are seen on their pages. Frames of pages are asked for one by one,
/// when the emulator has nothing else to do, and only for items whose picture was asked for.
class CFindPictures final : public QObject
{
    Q_OBJECT

public:
    static constexpr int MaxFrames = 8; ///< of pages that are kept

    explicit CFindPictures(QObject *parent = nullptr);

    void setProject(CProjectModel *project); ///< not owned; null for none
    /// What is seen of an item, at most so large, in device pixels. Null while there is none; then
    /// changed() tells when it is worth to ask again.
    QPixmap picture(CItemModel *item, const QSize &largest);
    /// Nobody looks any more: what was asked for is not wanted.
    void withdraw();

Q_SIGNALS:
    void changed();

private:
    void want(CScreenModel *page);
    void askNext();
    void takeFrame(const QPixmap &frame);
    void markStale(const QStandardItem *item);
    void forgetRemoved(const QModelIndex &parent, int first, int last);
    void clear();

    QPointer<CProjectModel> m_project;
    CFrameRequest m_request;
    QTimer m_timer;
    QList<CScreenModel *> m_wanted; ///< in the order in which they were asked for
    CScreenModel *m_asked = nullptr;
    QHash<const CScreenModel *, QPixmap> m_frames;
    QList<const CScreenModel *> m_recent; ///< those of the frames; the one used last is last
    QSet<const CScreenModel *> m_stale;   ///< the page has changed since its frame
    QCache<CItemModel *, QPixmap> m_pictures;
};
