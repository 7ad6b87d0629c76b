#include "CFormatAdoption.h"

#include "CBudgetResults.h"
#include "CItemImages.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "ConvertedImages.h"
#include "ItemTree.h"
#include "PropertyKey.h"

#include <QDir>
#include <QPointer>
#include <QProgressDialog>

#include <algorithm>

CFormatAdoption::CFormatAdoption(const CBudgetResults *results, QWidget *window)
    : QObject(window), m_results(results), m_window(window), m_images(new CItemImages(window, this))
{
    connect(m_images, &CItemImages::message, this, &CFormatAdoption::message);
}

/// Those that are hidden or lie beside their page too, which nothing is drawn of: else they would
/// bring the old file back one day.
QVector<QVector<CItemModel *>> CFormatAdoption::usersOf(const Formats &formats) const
{
    QHash<QString, int> files;
    for (int i = 0; i < formats.size(); ++i)
        files.insert(QDir::cleanPath(formats[i].first.file), i);
    QVector<QVector<CItemModel *>> users(formats.size());
    if (!m_results->project())
        return users;
    forEachItem(*m_results->project(), [&](CItemModel &item) {
        if (!item.hasProperty(PropertyKey::BaseName) || CItemImages::isMedia(item))
            return;
        const auto file = files.constFind(ConvertedImages::fileOf(item));
        if (file != files.constEnd())
            users[*file].append(&item);
    });
    return users;
}

bool CFormatAdoption::adopt(const Formats &formats)
{
    const QPointer<CProjectModel> project = m_results->project();
    const auto users = usersOf(formats);
    for (const QVector<CItemModel *> &items : users)
        for (const CItemModel *item : items)
            if (item->isUnderLock()) {
                Q_EMIT message(
                    tr("Nothing was changed: %1 shows the image and is locked.").arg(item->name()));
                return false;
            }
    const QPointer<QProgressDialog> box = new QProgressDialog(
        tr("Converting the image..."), tr("Cancel"), 0, formats.size(), m_window->window());
    box->setWindowTitle(tr("Change Image Format"));
    box->setWindowModality(Qt::ApplicationModal);
    box->setAutoClose(false);
    box->setAutoReset(false);
    box->show();
    m_images->setBox(box);
    PropertyStep::Changes changes;
    bool isDone = true;
    for (int i = 0; isDone && i < formats.size(); ++i) {
        if (box)
            box->setValue(i);
        isDone = box && !box->wasCanceled() && take(users[i], formats[i].second, changes);
        // The event loop has run: what was there before may be gone.
        isDone = isDone && project && project == m_results->project() && users == usersOf(formats);
    }
    delete box;
    if (isDone)
        PropertyStep::push(changes, tr("Change Image Format"));
    return isDone && !changes.isEmpty();
}

bool CFormatAdoption::take(const QVector<CItemModel *> &items, const QString &format,
                           PropertyStep::Changes &changes)
{
    QHash<QString, CItemImages::SImage> taken; // a conversion for all items of one source
    for (CItemModel *item : items) {
        const QString source = CItemImages::sourceOf(*item);
        if (!taken.contains(source)) {
            const QPointer<CProjectModel> project = item->project();
            const QString name = item->name();
            const auto image =
                source.isEmpty() ? std::nullopt : m_images->take(*item, source, format);
            if (!project)
                return false;
            if (!image || !CItemImages::fits(*image, *project, 0)) {
                Q_EMIT message(tr("Nothing was changed: the image of %1 could not be taken in the "
                                  "format %2.")
                                   .arg(name, format));
                return false;
            }
            taken.insert(source, *image);
        }
        const QHash<QString, QVariant> &values = taken[source].values;
        for (auto value = values.begin(); value != values.end(); ++value)
            if (value.key() != PropertyKey::FileName && item->hasProperty(value.key()))
                changes.append({item, value.key(), value.value()});
    }
    return true;
}
