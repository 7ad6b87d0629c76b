#pragma once

#include "FormatProposal.h"

#include <QHash>
#include <QWidget>

class CBudgetResults;
class CBudgetTable;
class CFormatAdoption;
class CFormatSearch;
class CItemModel;
class QLabel;
class QProgressBar;
class QPushButton;
class QTreeView;

/// Proposes formats in which every page fits, image by image, and gives those that are ticked to
/// the project.
class CFormatFitView final : public QWidget
{
    Q_OBJECT

public:
    explicit CFormatFitView(QWidget *parent = nullptr);

    void setResults(CBudgetResults *results); ///< must live longer
    void retranslate();

Q_SIGNALS:
    void message(const QString &text);
    void itemsWanted(const QList<CItemModel *> &items); ///< never none

private:
    void fill();
    void fillRows();
    QString stateText() const;
    void showSum();
    bool isTicked(const SImageTrials &image) const;
    /// With the formats that are ticked, the others as they are now.
    QVector<SImageTrials> ticked() const;
    void adopt();

    CBudgetResults *m_results = nullptr;
    CFormatAdoption *m_adoption = nullptr;
    CFormatSearch *m_search;
    CBudgetTable *m_rows;
    QLabel *m_state;
    QProgressBar *m_progress;
    QPushButton *m_find;
    QPushButton *m_cancel;
    QTreeView *m_table;
    QLabel *m_sum;
    QPushButton *m_use;
    QHash<QString, bool> m_ticks; ///< that the user has set, by row
};
