#pragma once

#include "CShortcutMap.h"
#include "CWindowActions.h"

#include <QDialog>

#include <utility>

class CKeyField;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// All actions of a window with their keys, which can be searched, changed, exported and imported.
/// It changes a map of its own; who opened it takes that when it is accepted.
class CShortcutDialog final : public QDialog
{
    Q_OBJECT

public:
    /// Keys that are no action's, and what they are for.
    using Reserved = QVector<std::pair<QKeySequence, QString>>;

    CShortcutDialog(const QVector<CWindowActions::SAction> &actions, const CShortcutMap &map,
                    const Reserved &fixed, QWidget *parent = nullptr);

    const CShortcutMap &map() const { return m_map; }
    /// What stands in the way of keys of the file is told before they are taken.
    void importFrom(const QString &path);

Q_SIGNALS:
    void helpWanted();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class EWay { Instead, Besides };

    void makeList(const QVector<CWindowActions::SAction> &actions);
    QPushButton *button(const char *name, const QString &text, void (CShortcutDialog::*slot)());
    void layOut();
    void filter(const QString &typed);
    void showKeys();
    void showButtons();
    void tell(const QString &text);
    QString currentId() const;
    QString nameOf(const QString &id) const;
    void ask(EWay way);
    void take(const QKeySequence &keys);
    QString objection(const QKeySequence &keys, const QString &id) const;
    void endAsking();
    void change();
    void add();
    void removeKeys();
    void reset();
    void resetAll();
    void exportFile();
    void importFile();
    bool isTakenDespite(const QStringList &conflicts);

    CShortcutMap m_map;
    const Reserved m_reserved;
    QLineEdit *m_search;
    QTreeWidget *m_list;
    CKeyField *m_field;
    QLabel *m_message;
    QPushButton *m_change = nullptr;
    QPushButton *m_add = nullptr;
    QPushButton *m_remove = nullptr;
    QPushButton *m_reset = nullptr;
    QPushButton *m_resetAll = nullptr;
    QPushButton *m_import = nullptr;
    QPushButton *m_export = nullptr;
    EWay m_way = EWay::Instead;
    QKeySequence m_warned; ///< pressed once, and told that they are another's
};
