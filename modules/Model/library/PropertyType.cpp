#include "PropertyType.h"

#include <QHash>

namespace {
const QHash<qint32, QString> &namesByCode()
{
    static const QHash<qint32, QString> table = {
        {-1, QStringLiteral("invalid")}, {0, QStringLiteral("int")},   {1, QStringLiteral("float")},
        {2, QStringLiteral("bool")},     {3, QStringLiteral("rgb")},   {4, QStringLiteral("time")},
        {5, QStringLiteral("enum")},     {6, QStringLiteral("string")}};
    return table;
}

const QHash<QString, qint32> &codesByName()
{
    static const QHash<QString, qint32> table = [] {
        QHash<QString, qint32> codes;
        for (auto it = namesByCode().begin(); it != namesByCode().end(); ++it)
            codes.insert(it.value(), it.key());
        return codes;
    }();
    return table;
}
} // namespace

QString nameOfPropertyType(PropertyType type)
{
    return namesByCode().value(static_cast<qint32>(type));
}

PropertyType propertyTypeOfName(const QString &name)
{
    if (name.startsWith(QLatin1String("enum")))
        return PropertyType::Enum;
    return static_cast<PropertyType>(codesByName().value(name, 0));
}
