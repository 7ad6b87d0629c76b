#pragma once

#include "PropertyStep.h"
#include "SBudget.h"

#include <QObject>
#include <QPair>
#include <QVector>

class CBudgetResults;
class CItemImages;
class CItemModel;
class QWidget;

/// Gives images another format in all items that show them, in one undo step.
class CFormatAdoption final : public QObject
{
    Q_OBJECT

public:
    using Formats = QVector<QPair<SAssetUse, QString>>; ///< each image with the one it is to have

    /// `window`: over which a box says what is done, with a Cancel button. The results must live
    /// longer.
    CFormatAdoption(const CBudgetResults *results, QWidget *window);

    /// All or none; false and a message when it cannot be done. Runs the event loop.
    bool adopt(const Formats &formats);

Q_SIGNALS:
    void message(const QString &text);

private:
    QVector<QVector<CItemModel *>> usersOf(const Formats &formats) const;
    bool take(const QVector<CItemModel *> &items, const QString &format,
              PropertyStep::Changes &changes);

    const CBudgetResults *const m_results;
    QWidget *const m_window; ///< not owned
    CItemImages *const m_images;
};
