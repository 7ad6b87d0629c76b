#include "LibraryXml.h"

#include "PropertyKey.h"
#include "XmlText.h"

#include <QCoreApplication>

#include <algorithm>

namespace {
const QString WidgetTag = QStringLiteral("widget");

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
    return XmlText::isElementName(type) && type != TypeName::Project && type != TypeName::Screen &&
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
    QVector<QDomElement> found = childrenOf(group, WidgetTag);
    const auto isUnusable = [](const QDomElement &each) { return !isUsable(typeOf(each)); };
    found.erase(std::remove_if(found.begin(), found.end(), isUnusable), found.end());
    return found;
}

QStringList LibraryXml::problems(const QDomDocument &document)
{
    QStringList lines;
    const QVector<QDomElement> allGroups = groups(document);
    for (const QDomElement &group : allGroups) {
        const QVector<QDomElement> all = childrenOf(group, WidgetTag);
        for (const QDomElement &widget : all) {
            if (!isUsable(typeOf(widget)))
                lines += QCoreApplication::translate(
                             "LibraryXml",
                             "Widget library, line %1: \"%2\" cannot be the type of a widget.")
                             .arg(widget.lineNumber())
                             .arg(typeOf(widget));
        }
    }
    return lines;
}

QHash<QString, QString> LibraryXml::captions(const QDomDocument &document)
{
    QHash<QString, QString> captions;
    const QVector<QDomElement> all = childrenOf(
        root(document).firstChildElement(QStringLiteral("captions")), QStringLiteral("caption"));
    for (const QDomElement &each : all)
        captions.insert(each.attribute(QStringLiteral("key")),
                        each.attribute(QStringLiteral("text")));
    return captions;
}

QString LibraryXml::typeOf(const QDomElement &widget)
{
    return widget.attribute(QStringLiteral("type"));
}
