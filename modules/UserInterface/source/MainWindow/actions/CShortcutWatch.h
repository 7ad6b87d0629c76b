#pragma once

#include <QObject>

class QAction;

/// Tells whether a command comes from its keys: those are for what has the focus, while a menu
/// entry or a button that was clicked is for what is seen to be selected.
class CShortcutWatch final : public QObject
{
public:
    using QObject::QObject;

    /// The action is not owned.
    void watch(QAction *action);
    /// True while one of the watched actions carries out its keys.
    bool isByKey() const { return m_isByKey; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_isByKey = false;
};
