#pragma once

#include <QDomDocument>
#include <QString>
#include <QVector>

/// The elements of a "widget-library.xml", for the two models that are built from it. All lists
/// are in the document's order.
namespace LibraryXml {
QDomElement root(const QDomDocument &document);

/// The palette groups.
QVector<QDomElement> groups(const QDomDocument &document);

/// The widgets of a group whose type can be used. A type that could not be the name of an element
/// in documents is left out with a warning.
QVector<QDomElement> widgets(const QDomElement &group);

/// The type name of a widget.
QString typeOf(const QDomElement &widget);
} // namespace LibraryXml
