#pragma once

#include <QCoreApplication>
#include <QRectF>
#include <QVector>

class CGestureRecorder;
class CItemModel;
class QUndoCommand;

/// Aligns, distributes, sizes and centres items of one page, recorded as one step. Items are taken
/// by their frames, turned ones by what they take up on the page, groups as one by what of them is
/// not locked. What is locked stays where it is and as large as it is.
class CItemArrange
{
    Q_DECLARE_TR_FUNCTIONS(CItemArrange)

public:
    enum EWhat {
        AlignLeft,
        AlignCentre,
        AlignRight,
        AlignTop,
        AlignMiddle,
        AlignBottom,
        DistributeLeft,
        DistributeCentre,
        DistributeRight,
        DistributeAcross, ///< by gaps
        DistributeTop,
        DistributeMiddle,
        DistributeBottom,
        DistributeDown,
        GapAcross, ///< of a given size
        GapDown,
        SameWidth,
        SameHeight,
        SameSize,
        CentreAcross, ///< on the page
        CentreDown,
        CentreBoth,
        WhatCount
    };

    /// What several items are aligned to: what they take up together, the page, or one of them.
    enum class EReference { Selection, Page, KeyItem };

    /// `items`: not owned; the key item comes first, from which others take their size.
    explicit CItemArrange(const QVector<CItemModel *> &items,
                          EReference reference = EReference::Selection)
        : m_items(items), m_reference(reference)
    {
    }

    /// What has to be selected for it, as told to a user; empty when it can be done.
    QString lack(EWhat what) const;
    /// Records nothing when all is as it should be, or when something lacks. `gap`: pixels, of
    /// GapAcross and GapDown alone.
    void run(EWhat what, const QString &macroText, int gap = 0) const;

    /// What an item takes up on its page.
    static QRectF frameOf(const CItemModel &item);

private:
    QVector<int> steps(EWhat what, Qt::Orientation axis, int gap) const;
    void resize(QUndoCommand *step, bool isWidth, bool isHeight) const;
    void resizeGroups(CGestureRecorder &recorder, bool isWidth, bool isHeight) const;

    const QVector<CItemModel *> m_items;
    const EReference m_reference;
};
