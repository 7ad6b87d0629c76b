#pragma once

#include "CChangeTexts.h"
#include "CComparison.h"

#include <QAbstractItemModel>

/// What changed, as a tree: the project and its pages, their items, and values before and now. Rows
/// are made when they are looked at, however many there are. It shows one result; update() takes
/// the newest.
class CChangesModel final : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum EColumn { ChangeColumn, BeforeColumn, NowColumn, ColumnCount };

    /// The comparison must live longer.
    explicit CChangesModel(CComparison *comparison, QObject *parent = nullptr);

    void update();
    /// Shows the counts of pixels. False when update() is called for, since other pages than before
    /// have other pictures and nothing else.
    bool updatePictures();

    /// That a row is about, or of the row above it; null when it is not there, or is the project.
    const SItemState *before(const QModelIndex &index) const { return subject(index).before; }
    const SItemState *now(const QModelIndex &index) const { return subject(index).now; }
    /// What is the same for a row after an update, and for no other one.
    QString keyOf(const QModelIndex &index) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex & = {}) const override { return ColumnCount; }
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct STop
    {
        const SScreenChange *change = nullptr; ///< null for the project, and where only the picture
        const SItemState *before = nullptr;    ///< differs
        const SItemState *now = nullptr;
    };
    struct SSubject
    {
        const SItemState *before = nullptr;
        const SItemState *now = nullptr;
    };
    /// Where an index is: a top row, a row below it, or a row below an item of it.
    struct SPlace
    {
        int top;
        int item; ///< -1: none
        int row;
    };
    enum class ENote { None, OtherPage, OtherGroup, OtherOrder };

    QVector<STop> makeTops() const;
    static SPlace placeOf(const QModelIndex &index);
    const STop *topOf(const QModelIndex &index) const;
    const SItemChange *itemOf(const QModelIndex &index) const; ///< null when the row is none
    const SValueChange *valueOf(const QModelIndex &index) const;
    ENote noteOf(const QModelIndex &index) const;
    const QVector<SValueChange> &valuesOf(const STop &top) const;
    SSubject subject(const QModelIndex &index) const;
    QString topText(const STop &top) const;
    QString text(const QModelIndex &index) const;
    QVariant valueData(const QModelIndex &index, const SValueChange &value, int role) const;

    CComparison *const m_comparison;
    CComparison::Result m_result; ///< that is shown
    CChangeTexts m_texts;
    QVector<STop> m_tops;
};
