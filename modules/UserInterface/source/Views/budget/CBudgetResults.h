#pragma once

#include "ProjectBudget.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>

class CProjectModel;

/// Where the memory of the open project goes, as it was when its screens were drawn last.
class CBudgetResults final : public QObject
{
    Q_OBJECT

public:
    static constexpr int PictureSide = 64; ///< pixels of the longer side of an asset's picture

    using QObject::QObject;

    void setProject(CProjectModel *project); ///< not owned; null for none
    /// A screen as it is now.
    void takeScreen(const SScreenExport &screen);
    /// All screens were taken.
    void takeProject();

    CProjectModel *project() const { return m_project; }
    /// Its items and screens may be gone by now: ask isThere() before one is followed.
    const SProjectBudget &budget() const { return m_budget; }
    bool isThere(const CItemModel *item) const { return m_items.contains(item); }
    /// Null for what is no picture.
    QImage pictureOf(const SAssetUse &asset) const { return m_pictures.value(keyOf(asset)); }
    /// Names an asset of the project.
    static QString keyOf(const SAssetUse &asset);

Q_SIGNALS:
    void changed();

private:
    struct SScreen
    {
        QPersistentModelIndex place;
        SScreenBudget budget;
    };

    void forget(const QModelIndex &parent, int first, int last);
    void forgetAll();
    void takePictures(const SGraphicsMemory &memory);

    CProjectModel *m_project = nullptr;
    QVector<SScreen> m_screens;
    QSet<const CItemModel *> m_items; ///< that are in the project still
    QHash<QString, QImage> m_pictures;
    SProjectBudget m_budget;
};
