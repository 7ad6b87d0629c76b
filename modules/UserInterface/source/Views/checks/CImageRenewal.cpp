#include "CImageRenewal.h"

#include "CCommandChangeItemProperty.h"
#include "CImageFileLook.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "ConvertedImages.h"
#include "ItemTree.h"
#include "PropertyKey.h"

#include <QDir>
#include <QFileInfo>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QUndoStack>

#include <memory>

namespace {

CItemModel *itemAt(const CProjectModel &project, const QPersistentModelIndex &place)
{
    return CItemModel::fromItem(project.itemFromIndex(place));
}

/// The values that another picture changes: the item keeps its format and what it calls the file.
QHash<QString, QVariant> changesOf(const CItemModel &item, const CItemImages::SImage &image)
{
    QHash<QString, QVariant> changes;
    for (const QString &key : {PropertyKey::BaseName, PropertyKey::BitmapFolder,
                               PropertyKey::BitmapWidth, PropertyKey::BitmapHeight}) {
        const QVariant value = image.values.value(key);
        const bool isUnknownSize = image.size.isEmpty() && value.type() == QVariant::Int;
        if (item.hasProperty(key) && !isUnknownSize && item.propertyValue(key) != value)
            changes.insert(key, value);
    }
    return changes;
}

} // namespace

CImageRenewal::CImageRenewal(QWidget *window) : m_images(window, nullptr)
{
    connect(&m_images, &CItemImages::message, this, &CImageRenewal::message);
}

void CImageRenewal::run(CProjectModel &project, const QString &source)
{
    const QPointer<CProjectModel> guard(&project);
    QVector<QPersistentModelIndex> places;
    forEachItem(project, [&](const CItemModel &item) {
        if (SImageFiles::sourceOf(item) == source)
            places.append(project.indexFromItem(&item));
    });
    QVector<QPersistentModelIndex> missing;
    for (const QPersistentModelIndex &place : qAsConst(places))
        if (!QFileInfo(ConvertedImages::fileOf(*itemAt(project, place))).isFile())
            missing.append(place);
    QHash<QString, CItemImages::SImage> made; // by format
    for (const QPersistentModelIndex &place : qAsConst(places)) {
        const CItemModel *item = itemAt(project, place);
        const QString format = item ? item->propertyText(PropertyKey::Format) : QString();
        if (!item || made.contains(format))
            continue;
        const auto image = m_images.take(*item, source, format);
        if (!guard)
            return; // closed meanwhile
        if (!image)
            return; // it was told why
        made.insert(format, *image);
    }
    auto step = std::make_unique<QUndoCommand>(tr("Convert again"));
    for (const QPersistentModelIndex &place : qAsConst(places)) {
        CItemModel *item = itemAt(project, place);
        const auto image =
            made.constFind(item ? item->propertyText(PropertyKey::Format) : QString());
        if (image == made.constEnd())
            continue;
        const auto changes = changesOf(*item, *image);
        for (auto it = changes.begin(); it != changes.end(); ++it)
            new CCommandChangeItemProperty(item, it.key(), it.value(),
                                           item->propertyValue(it.key()), step.get());
    }
    // Their images are there again, of which nothing in the project tells.
    for (const QPersistentModelIndex &place : qAsConst(missing))
        if (CItemModel *item = itemAt(project, place))
            project.onPropertyChanged(item, PropertyKey::BaseName,
                                      item->propertyValue(PropertyKey::BaseName));
    if (step->childCount() > 0)
        project.undoStack()->push(step.release());
    else if (missing.isEmpty())
        Q_EMIT message(tr("%1 was converted again, and nothing of the picture is different.")
                           .arg(QDir::toNativeSeparators(source)));
}
