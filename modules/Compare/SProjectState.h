#pragma once

#include "CItemModel.h"

#include <QByteArray>
#include <QPair>
#include <QRect>
#include <QString>
#include <QVector>

#include <memory>
#include <vector>

/// A screen, group or widget as it was at one moment.
struct SItemState
{
    using Values = QVector<QPair<QString, QByteArray>>; ///< keys and texts as documents have them

    /// That it was taken from; to be looked into only by who knows that it is still there.
    const CItemModel *item = nullptr;
    CItemModel::Kind kind = CItemModel::Kind::Widget;
    QString typeName;
    QString idString;
    quint32 id = 0; ///< 0: none
    QString name;
    QRect box;                          ///< of its frame, on its screen; of a screen, null
    const SItemState *parent = nullptr; ///< null for screens
    int row = 0;                        ///< among the parent's children
    Values values;                      ///< in the order of documents
    std::vector<std::unique_ptr<SItemState>> children; ///< the front one first

    const SItemState &screen() const
    {
        const SItemState *top = this;
        while (top->parent)
            top = top->parent;
        return *top;
    }
};

/// All that is compared of a project: plain data, which any thread may read and throw away,
/// whatever becomes of the project.
struct SProjectState
{
    /// Where it lies and who saved it is left out; fonts are "font <handle> <attribute>".
    SItemState::Values values;
    std::vector<std::unique_ptr<SItemState>> screens;
};

using ProjectState = std::shared_ptr<const SProjectState>;
