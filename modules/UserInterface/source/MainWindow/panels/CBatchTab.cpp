#include "CBatchTab.h"

#include <QDockWidget>
#include <QMainWindow>

CBatchTab::CBatchTab(QDockWidget *batch, QDockWidget *properties)
    : QObject(batch), m_batch(batch), m_properties(properties)
{
    connect(batch, &QDockWidget::visibilityChanged, this,
            [this](bool isSeen) { m_isBatchSeen = isSeen; });
    connect(properties, &QDockWidget::visibilityChanged, this, [this](bool isSeen) {
        m_arePropertiesSeen = isSeen;
        if (m_areSeveral != m_hasFollowed) // it could not be done before they were shown
            m_raise.start();
    });
    m_raise.setSingleShot(true);
    m_raise.setInterval(0);
    connect(&m_raise, &QTimer::timeout, this, &CBatchTab::raise);
}

/// One tab bar for both.
bool CBatchTab::isShared() const
{
    const auto *window = qobject_cast<const QMainWindow *>(m_batch->parentWidget());
    return window && !m_batch->isHidden() &&
           window->tabifiedDockWidgets(m_batch).contains(m_properties);
}

/// The form is made when it is seen, which takes as long as the step that has selected the items:
/// the panel, which shows them too, stays in front until that is over.
void CBatchTab::follow(const QList<CItemModel *> &shown)
{
    m_areSeveral = shown.size() > 1;
    if (m_areSeveral != m_hasFollowed)
        m_raise.start();
}

void CBatchTab::raise()
{
    if (m_areSeveral == m_hasFollowed || !m_properties->isVisible())
        return;
    m_hasFollowed = m_areSeveral;
    if (*m_areSeveral) {
        m_hasRaised = isShared() && m_arePropertiesSeen;
        if (m_hasRaised)
            m_batch->raise();
    } else if (m_hasRaised) {
        m_hasRaised = false;
        if (isShared() && m_isBatchSeen)
            m_properties->raise();
    }
}
