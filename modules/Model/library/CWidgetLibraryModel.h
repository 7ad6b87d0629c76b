#pragma once

#include "CWidgetProperty.h"
#include "SPropertyLook.h"

#include <QHash>
#include <QString>
#include <QVector>

class QDomDocument;
class QDomElement;

/// The kinds of widget of one platform: for each type name its properties with their defaults, its
/// render commands and its tooltip.
/// Errors:  what a kind lacks in the document is empty; a type that is not known has no properties.
/// Threads: built once, then only read.
class CWidgetLibraryModel
{
public:
    using PropertySet = QHash<QString, CWidgetProperty>;

    /// Reads the kinds of a parsed "widget-library.xml" as the chip has them.
    CWidgetLibraryModel(const QDomDocument &document, quint32 chipCode);

    bool contains(const QString &typeName) const { return m_kinds.contains(typeName); }
    /// The templates in the document's order.
    QVector<CWidgetProperty> properties(const QString &typeName) const;
    /// The same by name; shared until it is changed, so a widget begins with a copy at no cost.
    PropertySet propertySet(const QString &typeName) const;
    /// The names of its properties in the document's order, each once.
    QStringList propertyKeys(const QString &typeName) const;
    /// Where a name stands among propertyKeys(); -1 when the kind has no such property.
    int propertyIndex(const QString &typeName, const QString &key) const;
    /// How panels show it; of a kind or property that is not known, its caption alone.
    SPropertyLook look(const QString &typeName, const QString &key) const;
    QString renderCommands(const QString &typeName) const;
    /// Zero-terminated UTF-8, valid as long as the library; empty for an unknown type.
    const char *renderCommandsUtf8(const QString &typeName) const;
    QString tooltip(const QString &typeName) const;
    /// Whether users of the device touch it: "touch" in the document.
    bool isTouched(const QString &typeName) const;
    /// The type names, sorted.
    QStringList typeNames() const;
    /// "1.X" unless the document says otherwise.
    const QString &version() const { return m_version; }

private:
    struct Kind
    {
        QVector<CWidgetProperty> properties;
        PropertySet propertySet;
        QStringList propertyKeys;
        QHash<QString, int> propertyIndexes;
        QHash<QString, SPropertyLook> looks;
        QString renderCommands;
        QByteArray renderCommandsUtf8;
        QString tooltip;
        bool isTouched = false;
    };

    Kind readKind(const QDomElement &widget, quint32 chipCode) const;
    QString captionOf(const QString &key) const;
    const Kind *find(const QString &typeName) const;

    QHash<QString, Kind> m_kinds;
    QHash<QString, QString> m_captions; ///< by key, for all kinds
    QString m_version = QStringLiteral("1.X");
};
