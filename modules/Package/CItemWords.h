#pragma once

#include "SPackageContent.h"

#include <QHash>
#include <QList>
#include <QVector>

#include <cstddef>
#include <cstdint>

namespace kivemu {
struct SCommand;
}

/// Tells each item which words of its screen's list draw it, and which assets these show.
class CItemWords
{
public:
    /// The items must outlive it and stay where they are.
    explicit CItemWords(QList<SPackageItem> &items);

    /// The list's next command; `header` is the index of its first word.
    void takeCommand(const kivemu::SCommand &command, const uint32_t *words, size_t header);
    /// The command that was taken last draws the asset.
    void takeAsset(size_t asset);

private:
    QList<SPackageItem> &m_items;
    QHash<uint32_t, QVector<int>> m_byTag;
    QVector<int> m_tagged; ///< those that the words belong to
};
