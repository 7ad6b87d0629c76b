#include "CExplorerPanel.h"

#include "CExplorerFilter.h"
#include "CProjectExplorerView.h"
#include "CThemeIcons.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

CExplorerPanel::CExplorerPanel(QWidget *parent)
    : QWidget(parent), m_filter(new QLineEdit(this)), m_view(new CProjectExplorerView(this))
{
    m_filter->setObjectName(QStringLiteral("explorerFilter"));
    m_filter->setClearButtonEnabled(true);
    m_filter->addAction(CThemeIcons::icon(QStringLiteral(":/images/search.png")),
                        QLineEdit::LeadingPosition);
    connect(m_filter, &QLineEdit::textChanged, m_view->filter(), &CExplorerFilter::setText);
    connect(m_filter, &QLineEdit::returnPressed, m_view, [this] {
        const QModelIndex found = m_view->filter()->firstFound();
        if (found.isValid())
            m_view->setCurrentIndex(found);
    });
    m_filter->installEventFilter(this);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->setSpacing(4);
    layout->addWidget(m_filter);
    layout->addWidget(m_view);
    retranslate();
}

void CExplorerPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

bool CExplorerPanel::eventFilter(QObject *watched, QEvent *event)
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

void CExplorerPanel::retranslate()
{
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setAccessibleName(tr("Filter pages and items"));
}
