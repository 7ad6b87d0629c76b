#pragma once

#include <QDomDocument>
#include <QHash>
#include <QStringList>
#include <QVector>

/// The elements of a "widget-library.xml", for the two models that are built from it. All lists
/// are in the document's order.
namespace LibraryXml {
QDomElement root(const QDomDocument &document);

/// The palette groups.
QVector<QDomElement> groups(const QDomDocument &document);

/// The widgets of a group whose type can be used: it must do as the name of an element in
/// documents.
QVector<QDomElement> widgets(const QDomElement &group);

/// What was left out of the lists, for people, a line each.
QStringList problems(const QDomDocument &document);

/// What properties are called for people, by key.
QHash<QString, QString> captions(const QDomDocument &document);

/// The type name of a widget.
QString typeOf(const QDomElement &widget);
} // namespace LibraryXml
