#include "ItemDrag.h"

#include "CProjectModel.h"
#include "CScreenModel.h"

#include <QCoreApplication>
#include <QMimeData>

const QString ItemDrag::Mime = QStringLiteral("widget-move");

namespace {
/// Rows mean nothing to another process, which may have another project open.
QByteArray ownMark()
{
    return QByteArray::number(QCoreApplication::applicationPid());
}
} // namespace

QMimeData *ItemDrag::toMimeData(const QVector<CItemModel *> &items)
{
    QByteArrayList places{ownMark()};
    for (const CItemModel *each : items)
        places.append(QByteArray::number(each->parentItem()->row()) + '/' +
                      QByteArray::number(each->row()));
    auto *data = new QMimeData;
    data->setData(Mime, places.join(' '));
    return data;
}

QVector<CItemModel *> ItemDrag::fromMimeData(const QMimeData &data, const CProjectModel &project)
{
    QVector<CItemModel *> items;
    QByteArrayList places = data.data(Mime).split(' ');
    if (places.takeFirst() != ownMark())
        return items;
    for (const QByteArray &place : qAsConst(places)) {
        const QByteArrayList rows = place.split('/');
        const CScreenModel *screen = project.screen(rows.constFirst().toInt());
        CItemModel *item = screen ? screen->childItem(rows.constLast().toInt()) : nullptr;
        if (item && !items.contains(item))
            items.append(item);
    }
    return items;
}
