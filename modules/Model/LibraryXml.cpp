#include "LibraryXml.h"

#include "PropertyKey.h"
#include "XmlText.h"

#include <QtDebug>

namespace {
QVector<QDomElement> childrenOf(const QDomElement &parent, const QString &tag)
{
    QVector<QDomElement> children;
    QDomElement child = parent.firstChildElement(tag);
    for (; !child.isNull(); child = child.nextSiblingElement(tag))
        children.append(child);
    return children;
}

bool isUsable(const QString &type)
{
    return XmlText::isName(type) && type != TypeName::Project && type != TypeName::Screen &&
           type != TypeName::Group;
}
} // namespace

QDomElement LibraryXml::root(const QDomDocument &document)
{
    return document.firstChildElement(QStringLiteral("widgetlibrary"));
}

QVector<QDomElement> LibraryXml::groups(const QDomDocument &document)
{
    return childrenOf(root(document), QStringLiteral("toolboxgroup"));
}

QVector<QDomElement> LibraryXml::widgets(const QDomElement &group)
{
    QVector<QDomElement> usable;
    const QVector<QDomElement> all = childrenOf(group, QStringLiteral("widget"));
    for (const QDomElement &widget : all) {
        if (isUsable(typeOf(widget)))
            usable.append(widget);
        else
            qWarning().noquote() << QStringLiteral("Widget library: line %1: \"%2\" cannot be the "
                                                   "type of a widget")
                                        .arg(widget.lineNumber())
                                        .arg(typeOf(widget));
    }
    return usable;
}

QString LibraryXml::typeOf(const QDomElement &widget)
{
    return widget.attribute(QStringLiteral("type"));
}
