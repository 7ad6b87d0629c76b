#pragma once

#include "CFrameRequest.h"

#include <QHash>
#include <QListWidget>
#include <QPixmap>
#include <QPointer>

class CItemModel;
class CProjectModel;
class CScreenModel;
class QStandardItem;
class QTimer;

/// A thumbnail of every screen of the project. Asks the emulator for one frame at a time, and only
/// when it has nothing else to do; a screen that has changed follows shortly after.
class CScreenNavigator final : public QListWidget
{
    Q_OBJECT

public:
    explicit CScreenNavigator(QWidget *parent = nullptr);

    void setProject(CProjectModel *project); ///< null shows nothing
    /// Name and last frame of every screen, in their order; a frame is null while it is not there.
    QList<QPair<QString, QPixmap>> getScreenPixmaps() const;
    /// All thumbnails anew, such as after the emulator was started for another chip.
    void refreshAll();
    /// As long as all frames are wanted, missing ones are asked for without a pause, also while the
    /// navigator is not to be seen.
    void setAllWanted(bool wanted);

public Q_SLOTS:
    /// Marks the screen that is shown in the tab area.
    void setCurrentScreen(CScreenModel *screen);

Q_SIGNALS:
    void screenActivated(CScreenModel *screen);
    void frameTaken(); ///< getScreenPixmaps() has a newer frame

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    struct SPicture
    {
        QPixmap frame;
        QPixmap thumbnail; ///< null until it is scaled
    };

    void releasePictures();
    void rebuild();
    void markChanged(const QStandardItem *item);
    void requestNext();
    void takeFrame(const QPixmap &frame);
    void propertyChanged(CItemModel *item, const QString &key);
    QSize thumbnailSize() const; ///< device pixels
    void scale(const CScreenModel *screen);
    void showThumbnail(QListWidgetItem *entry, QPixmap thumbnail);
    QListWidgetItem *entryOf(const CScreenModel *screen) const;

    QPointer<CProjectModel> m_project; ///< not owned
    QTimer *m_timer;
    CFrameRequest m_request;
    QHash<const CScreenModel *, SPicture> m_pictures;
    QList<CScreenModel *> m_changed; ///< waiting for their frames, in order
    CScreenModel *m_requested = nullptr;
    const CScreenModel *m_current = nullptr; ///< the marked one; compared only
    bool m_areAllWanted = false;
};
