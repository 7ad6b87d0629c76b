#pragma once

#include <QString>
#include <QVariant>

class CItemModel;
class CProjectModel;
class CScreenModel;

/// Is told by the items of a project what has changed in them.
class IPropertyChangeObserver
{
public:
    virtual void onPropertyChanged(CItemModel *item, const QString &key, const QVariant &value) = 0;
    /// Position, size or angle changed by a gesture.
    virtual void onGeometryChanged(CItemModel *item) = 0;
    virtual void onGuidesChanged(CScreenModel * /*screen*/) {}
    /// The project that the items belong to; null when it is none that observes them.
    virtual CProjectModel *project() { return nullptr; }

protected:
    ~IPropertyChangeObserver() = default;
};
