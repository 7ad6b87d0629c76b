#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <array>

class QFontMetrics;
class QKeyEvent;
class QtProperty;
class QTreeWidget;
class QTreeWidgetItem;

/// How the rows of a widget stand in the panel: under headings that open and close, with words for
/// people in place of keys, and X beside Y. The rows themselves, their names and their order stay
/// the browser's: a heading is an item of its own between them, and the second row of a pair is
/// there but hidden, shown in the first.
class CPropertyLayout : public QObject
{
    Q_OBJECT

public:
    struct SRow
    {
        QString key;
        QtProperty *property;
        QString caption; ///< translated
        QString section; ///< as the library has it; empty: the row is under no heading
    };
    /// The row that is shown in another one, with what stands before the two values.
    struct SPair
    {
        QTreeWidgetItem *second;
        QtProperty *property; ///< of the second
        std::array<QString, 2> letters;
    };

    explicit CPropertyLayout(QTreeWidget *tree);

    /// Before the browser's rows go.
    void clear();
    /// The browser's top-level rows, all of them in their order.
    void arrange(const QVector<SRow> &rows);

    bool isHeading(const QTreeWidgetItem *item) const { return m_headings.contains(item); }
    bool isOpen(const QTreeWidgetItem *heading) const;
    void setOpen(QTreeWidgetItem *heading, bool open);
    /// Null when the row shows itself alone.
    const SPair *pair(const QTreeWidgetItem *item) const;
    int widestLetter(const QFontMetrics &metrics) const;
    /// What stands in the name's place.
    QString caption(const QTreeWidgetItem *item) const;

    /// The sections that are closed, whichever item is shown, as the library calls them.
    QStringList closedSections() const;
    void setClosedSections(const QStringList &names);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makePair(int first, const QVector<SRow> &rows);
    void showSection(const QTreeWidgetItem *heading);
    bool pressKey(const QKeyEvent &event);

    QTreeWidget *const m_tree;
    QHash<const QTreeWidgetItem *, QString> m_headings; ///< with their sections
    QHash<const QTreeWidgetItem *, SPair> m_pairs;
    QHash<const QTreeWidgetItem *, QString> m_captions;
    QSet<QString> m_closed;
};
