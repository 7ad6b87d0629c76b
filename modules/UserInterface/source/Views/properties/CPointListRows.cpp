#include "CPointListRows.h"

#include "CPropertyManager.h"

#include <QPoint>
#include <QVector>

namespace {

QVector<QPoint> pointsOf(const QString &text)
{
    QVector<QPoint> points;
    const QStringList parts = text.split(QLatin1Char(';'));
    for (const QString &part : parts) {
        const QStringList numbers = part.split(QLatin1Char(','));
        if (numbers.size() == 2)
            points.append({numbers.at(0).toInt(), numbers.at(1).toInt()});
    }
    return points;
}

} // namespace

CPointListRows::CPointListRows(CPropertyManager *manager) : m_manager(manager)
{
}

QtVariantProperty *CPointListRows::makeRow(const QString &key)
{
    QtVariantProperty *row = m_manager->addProperty(QtVariantPropertyManager::groupTypeId(), key);
    m_list = row;
    return row;
}

void CPointListRows::addPoint()
{
    QtProperty *point =
        m_manager->addProperty(QtVariantPropertyManager::groupTypeId(), QStringLiteral("point"));
    for (const QString &name : {QStringLiteral("x"), QStringLiteral("y")}) {
        QtVariantProperty *coordinate = m_manager->addProperty(QVariant::Int, name);
        coordinate->setAttribute(QStringLiteral("minimum"), 0);
        point->addSubProperty(coordinate);
    }
    m_list->addSubProperty(point);
}

void CPointListRows::showText(const QString &text)
{
    const QVector<QPoint> points = pointsOf(text);
    while (m_list->subProperties().size() < points.size())
        addPoint();
    while (m_list->subProperties().size() > points.size()) {
        QtProperty *point = m_list->subProperties().last();
        qDeleteAll(point->subProperties());
        delete point;
    }
    const QList<QtProperty *> rows = m_list->subProperties();
    for (int row = 0; row < rows.size(); ++row) {
        const QList<QtProperty *> coordinates = rows.at(row)->subProperties();
        m_manager->showValue(m_manager->variantProperty(coordinates.at(0)), points.at(row).x());
        m_manager->showValue(m_manager->variantProperty(coordinates.at(1)), points.at(row).y());
    }
}

QString CPointListRows::text() const
{
    QStringList points;
    const QList<QtProperty *> rows = m_list->subProperties();
    for (const QtProperty *row : rows) {
        const QList<QtProperty *> coordinates = row->subProperties();
        if (coordinates.size() == 2)
            points.append(coordinates.at(0)->valueText() + QLatin1Char(',') +
                          coordinates.at(1)->valueText());
    }
    return points.join(QLatin1Char(';'));
}
