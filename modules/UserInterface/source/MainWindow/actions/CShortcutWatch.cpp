#include "CShortcutWatch.h"

#include <QAction>
#include <QEvent>
#include <QScopedValueRollback>

void CShortcutWatch::watch(QAction *action)
{
    action->installEventFilter(this);
}

bool CShortcutWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Shortcut || m_isByKey)
        return QObject::eventFilter(watched, event);
    const QScopedValueRollback<bool> byKey(m_isByKey, true);
    return watched->event(event);
}
