#pragma once

#include "CItemModel.h"

/// A group of widgets and further groups. Its members keep screen coordinates of their own; moving
/// a group that is in a project's tree moves them along.
class CWidgetGroupModel final : public CItemModel
{
public:
    CWidgetGroupModel(const CWidgetLibraryModel *library, IPropertyChangeObserver *observer);

    void loadFromElement(const QDomElement &element) override;
    void saveToElement(QDomElement &element) const override;
    static const QStringList &builtInKeys();
    void setProperty(const QString &name, const QVariant &value,
                     Notify notify = Notify::Yes) override;
    void appendChildren(const QVector<CItemModel *> &children) override;

protected:
    CItemModel *cloneEmpty() const override;
    bool isBuiltIn(const QString &name) const override;
};
