#include "CToolboxModel.h"

#include "LibraryXml.h"
#include "PropertyKey.h"

#include <QDomDocument>
#include <QGuiApplication>
#include <QIcon>

namespace {
QStandardItem *makeRow(const QDomElement &element)
{
    auto *row = new QStandardItem(element.attribute(PropertyKey::Name));
    row->setEditable(false);
    return row;
}

/// Without a Gui application, as in a program that only exports, there is no icon to show.
QIcon iconOf(const QDomElement &widget)
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return {};
    return QIcon(widget.firstChildElement(QStringLiteral("icon")).text().trimmed());
}
} // namespace

CToolboxModel::CToolboxModel(const QDomDocument &document, QObject *parent)
    : QStandardItemModel(parent)
{
    const QVector<QDomElement> groups = LibraryXml::groups(document);
    for (const QDomElement &group : groups) {
        QStandardItem *groupRow = makeRow(group);
        const QVector<QDomElement> widgets = LibraryXml::widgets(group);
        for (const QDomElement &widget : widgets) {
            QStandardItem *row = makeRow(widget);
            row->setData(LibraryXml::typeOf(widget), TypeRole);
            row->setIcon(iconOf(widget));
            groupRow->appendRow(row);
        }
        appendRow(groupRow);
    }
}
