#include "CBatchTab.h"

#include <QDockWidget>
#include <QMainWindow>
#include <QTimer>

CBatchTab::CBatchTab(QDockWidget *batch, QDockWidget *properties)
    : QObject(batch), m_batch(batch), m_properties(properties)
{
    connect(batch, &QDockWidget::visibilityChanged, this,
            [this](bool isSeen) { m_isBatchSeen = isSeen; });
    connect(properties, &QDockWidget::visibilityChanged, this, [this](bool isSeen) {
        m_arePropertiesSeen = isSeen;
        if (m_isAwaited) // when the window has laid them out
            QTimer::singleShot(0, this, [this] {
                if (m_isAwaited)
                    raise();
            });
    });
}

/// One tab bar for both.
bool CBatchTab::isShared() const
{
    const auto *window = qobject_cast<const QMainWindow *>(m_batch->parentWidget());
    return window && !m_batch->isHidden() &&
           window->tabifiedDockWidgets(m_batch).contains(m_properties);
}

void CBatchTab::follow(const QList<CItemModel *> &shown)
{
    const bool areSeveral = shown.size() > 1;
    if (areSeveral == m_areSeveral)
        return;
    m_areSeveral = areSeveral;
    m_isAwaited = !m_properties->isVisible();
    if (!m_isAwaited)
        raise();
}

void CBatchTab::raise()
{
    m_isAwaited = false;
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
