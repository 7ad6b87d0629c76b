#include "CWidgetSelectionPanel.h"

#include "CFilterLine.h"
#include "CWidgetSelectionView.h"

#include <QEvent>

CWidgetSelectionPanel::CWidgetSelectionPanel(QWidget *parent)
    : QWidget(parent),
      m_view(new CWidgetSelectionView(this)),
      m_filter(new CFilterLine(m_view, this))
{
    m_filter->setObjectName(QStringLiteral("widgetFilter"));
    connect(m_filter, &QLineEdit::textChanged, m_view, &CWidgetSelectionView::setFilter);
    connect(m_filter, &QLineEdit::returnPressed, m_view, &CWidgetSelectionView::placeCurrent);
    retranslate();
}

void CWidgetSelectionPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CWidgetSelectionPanel::retranslate()
{
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setAccessibleName(tr("Filter the widgets"));
}
