#include "PropertyWords.h"

#include "CItemModel.h"
#include "CWidgetLibraryModel.h"
#include "ItemGeometry.h"

#include <QCoreApplication>

namespace {
SPropertyLook lookOf(const CItemModel &item, const QString &key)
{
    return item.library() ? item.library()->look(item.itemTypeName(), key)
                          : SPropertyLook{key, QString(), SPropertyLook::EEditor::Plain};
}

QString translated(const QString &text)
{
    return QCoreApplication::translate("WidgetLibrary", text.toUtf8().constData());
}

QString bare(QString name)
{
    name.remove(QLatin1Char(' ')).remove(QLatin1Char('_'));
    return name.toLower();
}
} // namespace

QString PropertyWords::caption(const CItemModel &item, const QString &key)
{
    return translated(lookOf(item, key).caption);
}

QString PropertyWords::keyOf(const CItemModel &item, const QString &name)
{
    const CItemModel::PropertySet &properties = item.properties();
    if (properties.contains(name))
        return name;
    const QString wanted = bare(name);
    QString found;
    for (auto each = properties.begin(); each != properties.end(); ++each) {
        if (bare(each.key()) == wanted)
            return each.key();
        const bool isCalledSo = !each->isHidden() && bare(caption(item, each.key())) == wanted;
        if (isCalledSo && (found.isEmpty() || each.key() < found)) // the table has no order
            found = each.key();
    }
    return found;
}

QString PropertyWords::entry(const QString &name)
{
    if (name.isEmpty())
        return name;
    QString english = name;
    english.replace(QLatin1Char('_'), QLatin1Char(' '));
    english[0] = english.at(0).toUpper();
    return translated(english);
}

QString PropertyWords::kind(const QString &name)
{
    return translated(name).remove(QChar(QChar::SoftHyphen));
}

QString PropertyWords::truth(bool isTrue)
{
    return QCoreApplication::translate("QtBoolEdit", isTrue ? "True" : "False");
}

int PropertyWords::unit(const CItemModel &item, const QString &key)
{
    return lookOf(item, key).editor == SPropertyLook::EEditor::Sixteenths
               ? int(ItemGeometry::PointSizeOfPixel)
               : 1;
}

QString PropertyWords::value(const CItemModel &item, const QString &key, const QString &text)
{
    const auto property = item.properties().constFind(key);
    if (property == item.properties().constEnd())
        return text;
    switch (property->propertyType()) {
    case PropertyType::Enum:
        return entry(text);
    case PropertyType::Bool:
        return truth(text == QLatin1String("1"));
    case PropertyType::Int:
        return unit(item, key) == 1 ? text : number(text.toInt() / double(unit(item, key)));
    default:
        return text;
    }
}

QString PropertyWords::number(double value)
{
    return QString::number(value, 'g', 15);
}
