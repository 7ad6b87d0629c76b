#pragma once

#include "CCheckResults.h"
#include "CheckFixes.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class CItemModel;
class QCheckBox;
class QComboBox;
class QLabel;
class QStackedLayout;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

/// The list of what will go wrong on the device, by how grave it is. A click goes to the place.
class CChecksView final : public QWidget
{
    Q_OBJECT

public:
    explicit CChecksView(QWidget *parent = nullptr);

    /// Must live longer.
    void setResults(CCheckResults *results);
    /// Tells whether the project as it lies on the disk shows an image file.
    void setSaved(const std::function<bool(const QString &file)> &isSaved) { m_isSaved = isSaved; }
    /// Goes to the next finding that is shown, or with -1 to the one before; round at the ends.
    void goTo(int step);
    /// Findings that nobody ignores.
    int count() const { return m_count; }

Q_SIGNALS:
    /// To be shown and selected: an item or a screen.
    void placeWanted(CItemModel *place);
    void countChanged(int count);
    void message(const QString &text); ///< why something could not be done

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void follow();
    void fill();
    void fillScreens();
    QStringList pageNames() const;
    bool isShown(const CCheckResults::SEntry &entry) const;
    void addGroup(const QString &title, const char *icon, const QVector<int> &entries);
    void showPlace(const QTreeWidgetItem *row);
    void showMenu(const QPoint &place);
    void ignore(const CCheckResults::SEntry &entry);
    void ask(const CheckFixes::SMeasure &measure);
    void mend(const CCheckResults::SEntry &entry);
    void removeFile(const CCheckResults::SEntry &entry);
    void tellOfFiles(const QString &error);
    const CCheckResults::SEntry *entryOf(const QTreeWidgetItem *row) const;
    void retranslate();

    CCheckResults *m_results = nullptr;
    std::function<bool(const QString &file)> m_isSaved;
    QVector<CCheckResults::SEntry> m_entries;
    QComboBox *m_screens;
    QCheckBox *m_showIgnored;
    QToolButton *m_measures; ///< its menu sets what the project is judged by
    QTreeWidget *m_tree;
    QLabel *m_empty;
    QStackedLayout *m_stack; ///< the list, or what says that it is empty
    int m_count = 0;
    QStringList m_pages;    ///< as they were called when the list was filled
    bool m_isStale = false; ///< the list was not filled with what is known
    QTimer m_later;
};
