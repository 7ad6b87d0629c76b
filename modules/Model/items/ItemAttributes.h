#pragma once

#include <QString>
#include <QVector>

/// One attribute of an element that stands for an item.
struct ItemAttribute
{
    QString name;
    QString text;
};
Q_DECLARE_TYPEINFO(ItemAttribute, Q_MOVABLE_TYPE);

using ItemAttributes = QVector<ItemAttribute>;

/// How the folders and files of images are written: relative to the project for its own document,
/// absolute for copies, which may be pasted into a project elsewhere.
enum class FolderForm { Relative, Absolute };
