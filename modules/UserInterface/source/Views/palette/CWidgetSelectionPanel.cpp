#include "CWidgetSelectionPanel.h"

#include "CThemeIcons.h"
#include "CWidgetSelectionView.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

CWidgetSelectionPanel::CWidgetSelectionPanel(QWidget *parent)
    : QWidget(parent), m_filter(new QLineEdit(this)), m_view(new CWidgetSelectionView(this))
{
    m_filter->setObjectName(QStringLiteral("widgetFilter"));
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(CThemeIcons::icon(QStringLiteral(":/images/search.png")),
                        QLineEdit::LeadingPosition);
    connect(m_filter, &QLineEdit::textChanged, m_view, &CWidgetSelectionView::setFilter);
    connect(m_filter, &QLineEdit::returnPressed, m_view, &CWidgetSelectionView::placeCurrent);
    m_filter->installEventFilter(this);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->setSpacing(4);
    layout->addWidget(m_filter);
    layout->addWidget(m_view);
    retranslate();
}

void CWidgetSelectionPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

bool CWidgetSelectionPanel::eventFilter(QObject *watched, QEvent *event)
{
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event)->key() : 0;
    if (key == Qt::Key_Down)
        m_view->setFocus();
    else if (key == Qt::Key_Escape && !m_filter->text().isEmpty())
        m_filter->clear();
    else
        return QWidget::eventFilter(watched, event);
    return true;
}

void CWidgetSelectionPanel::retranslate()
{
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setAccessibleName(tr("Filter the widgets"));
}
