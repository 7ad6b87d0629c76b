#include "CPlainToolTips.h"

#include "ShownText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QTabBar>
#include <QToolTip>

CPlainToolTips::CPlainToolTips(QObject *parent) : QObject(parent)
{
    qApp->installEventFilter(this);
}

/// What the widget itself would show there.
QString CPlainToolTips::toolTipAt(const QWidget &widget, const QPoint &position)
{
    const auto *view = qobject_cast<const QAbstractItemView *>(widget.parentWidget());
    const QString cell = view && view->viewport() == &widget
                             ? view->indexAt(position).data(Qt::ToolTipRole).toString()
                             : QString();
    if (!cell.isEmpty())
        return cell;
    const auto *tabs = qobject_cast<const QTabBar *>(&widget);
    const QString tab = tabs ? tabs->tabToolTip(tabs->tabAt(position)) : QString();
    return tab.isEmpty() ? widget.toolTip() : tab;
}

bool CPlainToolTips::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !watched->isWidgetType())
        return false;
    auto *widget = static_cast<QWidget *>(watched);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QString text = toolTipAt(*widget, help->pos());
    const QString plain = ShownText::toolTip(text);
    if (plain == text)
        return false;
    QToolTip::showText(help->globalPos(), plain, widget);
    event->accept();
    return true;
}
