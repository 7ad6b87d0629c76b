#pragma once

#include "CBudgetTable.h"
#include "FormatProposal.h"

#include <QDateTime>
#include <QHash>
#include <QWidget>

class CBudgetResults;
class CFormatAdoption;
class CFormatTrials;
class CPicturePair;
class QLabel;
class QPushButton;
class QTreeView;

/// What an image would be in each format that the chip has: its bytes, how far it is from the
/// original, and its picture. One of them can be adopted.
class CWhatIfView final : public QWidget
{
    Q_OBJECT

public:
    explicit CWhatIfView(QWidget *parent = nullptr);

    /// Must live longer.
    void setResults(CBudgetResults *results);
    /// The image, with items that are there; one without a file for none.
    void setAsset(const SAssetUse &asset);
    void retranslate();

Q_SIGNALS:
    void message(const QString &text);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void start();
    void take(const QString &source, const SFormatTrial &trial);
    void fill();
    QString chosen() const;
    void showChosen();
    void adopt();

    CFormatAdoption *m_adoption = nullptr;
    CFormatTrials *m_trials;
    CBudgetTable *m_formats;
    QTreeView *m_table;
    QLabel *m_hint;
    QLabel *m_name;
    CPicturePair *m_pictures;
    QPushButton *m_use;
    SImageTrials m_image;
    QDateTime m_changedAt;                ///< the source, that is or was tried
    QHash<QString, SFormatTrial> m_tried; ///< by format
};
