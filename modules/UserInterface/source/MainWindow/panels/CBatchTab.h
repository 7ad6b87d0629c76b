#pragma once

#include <QList>
#include <QObject>
#include <QTimer>

#include <optional>

class CBatchEditView;
class CItemModel;
class QDockWidget;

/// Brings the batch edit forward when several items come to be selected while the property panel,
/// whose tab it shares, is seen; and the panel again afterwards. A user who has chosen one of the
/// two tabs since keeps it.
class CBatchTab final : public QObject
{
    Q_OBJECT

public:
    /// Neither dock is owned; this is a child of the batch edit's.
    CBatchTab(QDockWidget *batch, QDockWidget *properties);

    /// Once the event is over.
    void follow(const QList<CItemModel *> &shown);

private:
    bool isShared() const;
    void raise();

    QDockWidget *const m_batch;
    QDockWidget *const m_properties;
    bool m_isBatchSeen = false;
    bool m_arePropertiesSeen = false;
    std::optional<bool> m_areSeveral;  ///< selected; nothing before the first project
    std::optional<bool> m_hasFollowed; ///< the same when the tabs last followed
    bool m_hasRaised = true;           ///< this and not the user, also before the program ended
    QTimer m_raise;
};
