#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QVector>

#include <optional>

class CItemModel;

/// Rows with figures, sorted by the column that is chosen: numbers by their size.
class CBudgetTable final : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// A number in a form of its own.
    struct SFigure
    {
        double value = 0; ///< that it is sorted by
        QString text;
    };
    struct SRow
    {
        /// A string, an int or an SFigure; a double is a share, 1 for all.
        QVector<QVariant> cells;
        QIcon icon;
        QString toolTip;
        bool isStrong = false;
        std::optional<bool> tick; ///< can be set by the user
        QString key;              ///< what it is about; no other row has it
        QVector<const CItemModel *> items;
    };

    using QAbstractTableModel::QAbstractTableModel;

    void setHeaders(const QStringList &headers);
    void setRows(const QVector<SRow> &rows);
    const SRow &row(int row) const { return m_rows[row]; }
    /// -1 when there is none.
    int rowOf(const QString &key) const;
    /// Of a picture; an empty one has room too, so that names stand below each other.
    static QIcon iconOf(const QImage &picture);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    void sort(int column, Qt::SortOrder order) override;

Q_SIGNALS:
    void ticked(const QString &key, bool isOn); ///< by the user

private:
    void sortRows();

    QStringList m_headers;
    QVector<SRow> m_rows;
    int m_column = -1;
    Qt::SortOrder m_order = Qt::DescendingOrder;
};

Q_DECLARE_METATYPE(CBudgetTable::SFigure)
