#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

class CItemModel;

/// Changes of properties as one step of a user.
namespace PropertyStep {
struct SChange
{
    CItemModel *item;
    QString key;
    QVariant value; ///< from now on
};
using Changes = QVector<SChange>;

/// Whether a user who gives the item this value changes anything: not by another name of a colour,
/// and not by a real number that differs by less than is shown.
bool isChange(const CItemModel &item, const QString &key, const QVariant &value);

/// Pushes one command for all that are changes, on the stack of the first item's project; nothing
/// when none is. `text`: the step's name, where it is more than one change.
void push(const Changes &changes, const QString &text);
} // namespace PropertyStep
