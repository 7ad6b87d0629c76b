#include "CExplorerPanel.h"

#include "CExplorerFilter.h"
#include "CFilterLine.h"
#include "CProjectExplorerView.h"

#include <QEvent>

CExplorerPanel::CExplorerPanel(QWidget *parent)
    : QWidget(parent),
      m_view(new CProjectExplorerView(this)),
      m_filter(new CFilterLine(m_view, this))
{
    m_filter->setObjectName(QStringLiteral("explorerFilter"));
    connect(m_filter, &QLineEdit::textChanged, m_view->filter(), &CExplorerFilter::setText);
    connect(m_filter, &QLineEdit::returnPressed, m_view, [this] {
        const QModelIndex found = m_view->filter()->firstFound();
        if (!found.isValid())
            return;
        m_view->setCurrentIndex(found);
        m_view->scrollTo(found); // also when it was current before
    });
    retranslate();
}

void CExplorerPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CExplorerPanel::retranslate()
{
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setAccessibleName(tr("Filter pages and items"));
}
