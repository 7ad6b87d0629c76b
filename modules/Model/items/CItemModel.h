#pragma once

#include "IModelItem.h"

#include <QHash>
#include <QStandardItem>

#include <memory>

class CProjectModel;
class CWidgetLibraryModel;
class CWidgetProperty;
class IPropertyChangeObserver;
class QDomElement;
struct ItemGeometry;
enum class GeometryMode : qint32;

/// One item of a project: a screen, a widget or a group of widgets, and its place in the tree. Its
/// properties lie in a CPropertyTable, CItemGeometry keeps what follows from them in step, and
/// CItemDocument is its form in documents; this class brings them together and tells of changes.
/// Changes: setProperty() is the one road for a change that is to be seen; it tells the observer,
///          which is the project.
/// Owns:    its properties and its child items. The library and the observer must live longer.
/// Threads: its project's.
class CItemModel : public QStandardItem, public IModelItem
{
public:
    using PropertySet = QHash<QString, CWidgetProperty>;

    enum class Kind : qint32 { Screen = 1, Widget = 2, Group = 3 };
    enum class Notify { No, Yes }; ///< whether the observer is told

    ~CItemModel() override;

    /// The item as a model item; null for rows that are none.
    static CItemModel *fromItem(QStandardItem *item);
    static const CItemModel *fromItem(const QStandardItem *item);
    CItemModel *childItem(int row) const { return fromItem(child(row)); }
    CItemModel *parentItem() const { return fromItem(parent()); }

    Kind kind() const { return m_kind; }
    int type() const override { return UserType + static_cast<int>(m_kind); }
    /// The same kind with equal properties and geometry, members included, belonging to the same
    /// project but in no tree. Ids are copied as they are; see CProjectModel::assignFreshIds().
    CItemModel *clone() const override;
    /// An edited display text is the item's name, so it becomes the "name" property.
    void setData(const QVariant &value, int role) override;

    /// Takes attributes and children of an element that passed CXmlGuard. The item must be new.
    virtual void loadFromElement(const QDomElement &element) = 0;
    /// Writes properties and children into an element of the document that it belongs to.
    virtual void saveToElement(QDomElement &element) const = 0;

    /// Takes a copy, in place of a property of the same name.
    virtual void addProperty(const CWidgetProperty &property);
    virtual void setPropertySet(const PropertySet &properties);
    virtual void setProperties(const QVector<CWidgetProperty> &properties);
    /// Sets the value and what follows from it. A name that the item lacks becomes a new "string"
    /// property; an invalid value takes such a property away again, so that undoing leaves nothing.
    virtual void setProperty(const QString &name, const QVariant &value,
                             Notify notify = Notify::Yes);
    /// The same unless the stored value equals the new one. For a name that the item has.
    virtual void setPropertyIfChanged(const QString &name, const QVariant &value,
                                      Notify notify = Notify::Yes);
    /// Derives name, id and geometry from the value of one property.
    virtual void applyProperty(const QString &name, const QVariant &value);
    virtual const QString &itemTypeName() const { return m_typeName; }
    virtual const PropertySet &properties() const;

    bool hasProperty(const QString &name) const;
    /// Invalid when the item has no such property.
    QVariant propertyValue(const QString &name) const;
    /// The canonical text; empty when the item has no such property.
    QString propertyText(const QString &name) const;

    // IModelItem: what the emulator library reads. Pointers stay valid until the next change.
    const char *idText() override { return m_idTextUtf8.constData(); }
    const char *typeName() override { return m_typeNameUtf8.constData(); }
    int propertyCount() override;
    IModelProperty *property(int index) override;
    const char *renderCommands() override;

    const QString &name() const { return m_name; }
    quint32 id() const { return m_id; }
    const QString &idString() const { return m_idText; }

    // Of geometry().
    double x() const;
    double y() const;
    double x2() const;
    double y2() const;
    double width() const;
    double height() const;
    double angle() const;
    double radius() const;
    qint32 fontHandle() const;
    GeometryMode geometryMode() const;
    bool isResizeable() const;
    bool hasAngle() const;
    bool hasPointList() const;
    bool isHeightFromFont() const;
    const ItemGeometry &geometry() const;

    // For gestures: set the size or angle and write it back, rounded to whole numbers, into the
    // property that defines it in the item's mode.
    void setWidth(double width);
    void setHeight(double height);
    void setAngle(double degrees);
    /// Modes Radius and PointSize only; the sizes that follow from it are kept in step.
    void setRadius(double radius);
    /// Tells the observer that a gesture has changed the geometry.
    void notifyGeometryChanged();

    /// Never moved, resized or rotated by the canvas, and left where it is by a group that moves.
    /// Widgets and groups only.
    bool isLocked() const { return m_locked; }
    /// Locked itself or by a group that it is in: nothing of it is to be edited.
    bool isUnderLock() const;
    void setLocked(bool locked);
    /// What the property of that name is set to for a lock. Documents have it only where there is
    /// one, unless the kind itself has the property.
    QVariant lockValue(bool locked) const;
    /// Not drawn on the canvas while the page is edited; exports draw it. Widgets and groups only.
    bool isHidden() const { return m_hidden; }
    /// Hidden itself or by a group that it is in: nothing of it is seen or hit on the canvas.
    bool isUnderHidden() const;
    void setHidden(bool hidden);
    /// What the property of that name is set to; documents have it only where an item is hidden.
    static QVariant hiddenValue(bool hidden) { return hidden ? QVariant(1) : QVariant(); }
    /// Member of a group; then not selectable by itself.
    bool isGrouped() const { return m_grouped; }
    void setGrouped(bool grouped);
    /// Taken out and put back by a command that changes the order.
    bool isMoving() const { return m_moving; }
    void setMoving(bool moving) { m_moving = moving; }

    const CWidgetLibraryModel *library() const { return m_library; }
    /// For the item and all below it: values stay, limits and entries become the library's.
    void setLibrary(const CWidgetLibraryModel *library);
    IPropertyChangeObserver *observer() const { return m_observer; }
    /// The project that observes the item; null for items of none.
    CProjectModel *project() const;

    virtual void appendChildren(const QVector<CItemModel *> &children);

protected:
    CItemModel(Kind kind, const QString &typeName, const CWidgetLibraryModel *library,
               IPropertyChangeObserver *observer);

    /// An empty item of the same kind, to be filled by clone().
    virtual CItemModel *cloneEmpty() const = 0;
    /// Whether the kind itself has the property, so that it is never taken away.
    virtual bool isBuiltIn(const QString &name) const = 0;

    /// Takes the set and derives what follows from it in the given order.
    void takePropertySet(const PropertySet &properties, const QStringList &order);

private:
    Q_DISABLE_COPY(CItemModel)

    friend class CItemDocument;
    struct SParts;

    static bool isDerivedFrom(const QString &name); ///< whether applyProperty() does anything

    const CWidgetLibraryModel *m_library;
    IPropertyChangeObserver *m_observer;
    QString m_idText;
    QByteArray m_idTextUtf8;
    QString m_typeName;
    QByteArray m_typeNameUtf8;
    QString m_name;
    quint32 m_id = 0;
    const Kind m_kind;
    bool m_locked = false;
    bool m_hidden = false;
    bool m_grouped = false;
    bool m_moving = false;
    const std::unique_ptr<SParts> m_parts;
};

Q_DECLARE_METATYPE(CItemModel *)
