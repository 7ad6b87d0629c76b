#pragma once

#include "CShortcutMap.h"

#include <QObject>
#include <QPointer>
#include <QVector>

class QAction;
class QMainWindow;

/// What can be done in a window: its actions, collected from the menus of its menu bar and from the
/// window itself (QWidget::addAction), whoever made them and whenever. To be found here, an action
/// stands in one of these; to have keys that users can change, and be remembered as used, it has an
/// object name, which no other action has and which never changes.
class CWindowActions final : public QObject
{
    Q_OBJECT

public:
    struct SAction
    {
        QPointer<QAction> action; ///< not owned
        QString id;               ///< its object name; may be empty
        QString text;             ///< without marks
        QString menu;             ///< the menus that lead to it; may be empty
    };

    explicit CWindowActions(QMainWindow *window);

    /// As they are now, in the order of the menus.
    QVector<SAction> all() const;
    /// The keys of all that have an id.
    CShortcutMap shortcuts();
    /// Puts keys in force; to be kept as the map's texts.
    void setShortcuts(const CShortcutMap &map);
    /// The same for kept texts, which may be anything.
    void setShortcutTexts(const QStringList &texts);
    /// Those of actions that are not there as well.
    QStringList shortcutTexts();

    /// Why an action is disabled, as far as that is known: its property of the name LackProperty,
    /// or its status tip.
    static QString lack(const QAction &action);
    static constexpr char LackProperty[] = "lack";

private:
    QMainWindow *const m_window;
    QHash<QString, CShortcutMap::Keys> m_defaults; ///< as they were when first seen
    QStringList m_texts;
};
