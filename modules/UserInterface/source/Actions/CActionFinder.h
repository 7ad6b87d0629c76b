#pragma once

#include "CFoundList.h"

#include <QFrame>
#include <QPointer>

class CItemModel;
class QLabel;
class QLineEdit;
class QListView;

/// One line over a window, and below it what it finds. Enter runs or chooses what is marked, Escape
/// closes; both give the keys back to what had them.
class CActionFinder final : public QFrame
{
    Q_OBJECT

public:
    explicit CActionFinder(QWidget *window);

    void open(const QVector<CFoundList::SEntry> &entries);
    void close();
    void retranslate();

    static constexpr int MaxUsed = 20;
    /// Ids of the actions that were run here, the last one first.
    const QStringList &lastUsed() const { return m_lastUsed; }
    void setLastUsed(const QStringList &ids) { m_lastUsed = ids.mid(0, MaxUsed); }

Q_SIGNALS:
    void itemChosen(CItemModel *item);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool keyPressed(int key);
    void choose();
    void place();
    void mark(int row);
    void giveKeysBack();

    QLineEdit *const m_line;
    QListView *const m_list;
    QLabel *const m_none; ///< in its place when nothing is found
    CFoundList *const m_found;
    QStringList m_lastUsed;
    QVector<QPointer<QWidget>> m_before; ///< what had the keys, and what it lies in
};
