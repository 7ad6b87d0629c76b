#include "CFilterLine.h"

#include "CThemeIcons.h"

#include <QKeyEvent>
#include <QVBoxLayout>

CFilterLine::CFilterLine(QWidget *list, QWidget *parent) : QLineEdit(parent), m_list(list)
{
    setClearButtonEnabled(true);
    addAction(CThemeIcons::icon(QStringLiteral(":/images/search.png")), LeadingPosition);
    auto *layout = new QVBoxLayout(parent);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->setSpacing(4);
    layout->addWidget(this);
    layout->addWidget(list);
    QWidget::setTabOrder(this, list);
}

void CFilterLine::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down)
        m_list->setFocus();
    else if (event->key() == Qt::Key_Escape && !text().isEmpty())
        clear();
    else
        QLineEdit::keyPressEvent(event);
}
