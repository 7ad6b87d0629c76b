#pragma once

#include "CDropPlace.h"
#include "CItemImages.h"

#include <QObject>
#include <QVector>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

class CDropGhost;
class CItemModel;
class CScreenModel;
class CScreenScene;
class QMimeData;
class QPointF;
class QRectF;
class QWidget;

/// What is dropped on a screen: kinds from the palette, items from the explorer, image and media
/// files. All that one drop brings is one step.
class CItemDrop final : public QObject
{
    Q_OBJECT

public:
    /// A child of `window`, over which it asks. The scene must outlive it.
    CItemDrop(CScreenScene *scene, QWidget *window);
    ~CItemDrop() override;

    static bool isWelcome(const QMimeData &data);
    /// Marks where the data would land, dropped at a place, and what a kind from the palette will
    /// look like.
    void showPlace(const QMimeData &data, const QPointF &scenePos, Qt::KeyboardModifiers modifiers);
    void hidePlace();
    /// `graphicsMemory`: bytes of the chip's memory that the screen needs by now. False when the
    /// data hold nothing that the screen can take.
    bool drop(const QMimeData &data, const QPointF &scenePos, size_t graphicsMemory,
              Qt::KeyboardModifiers modifiers = {});
    /// Adds a widget of a kind to the middle of a part of the scene.
    void place(const QString &type, const QRectF &room, size_t graphicsMemory);

Q_SIGNALS:
    void dropped(const QVector<CItemModel *> &items); ///< they are to be selected
    /// Within the macro of the drop.
    void movesWanted(const QVector<CItemModel *> &items, const QVector<QPointF> &newPositions);
    void message(const QString &text);

private:
    using Made = std::vector<std::unique_ptr<CItemModel>>;

    CScreenModel *screen() const;
    QVector<CItemModel *> movable(const QMimeData &data) const;
    QPointF landing(const QPointF &scenePos);
    bool dropItems(const QMimeData &data, const QPointF &scenePos);
    bool dropFiles(const QMimeData &data, const QPointF &scenePos);
    std::unique_ptr<CItemModel> ofKind(const QString &type);
    std::unique_ptr<CItemModel> make(const QString &type, const QString &file);
    std::unique_ptr<CItemModel> make(const QString &type, const QPointF &scenePos,
                                     const QString &file);
    std::optional<CItemImages::SImage> imageFor(const CItemModel &item, const QString &file);
    bool fitsMemory(const CItemImages::SImage &image);
    void add(Made made);

    CScreenScene *m_scene; ///< not owned
    QWidget *m_window;
    CItemImages *m_images;
    CDropPlace m_place;
    Qt::KeyboardModifiers m_modifiers;
    std::unique_ptr<CDropGhost> m_ghost; ///< while a kind is dragged over the scene
    size_t m_memory = 0;                 ///< bytes in use, with those of what the drop has brought
};
