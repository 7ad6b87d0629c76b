#pragma once

#include "SScreenExport.h"

#include <QList>
#include <QObject>
#include <QPersistentModelIndex>
#include <QSet>
#include <QTimer>

#include <functional>
#include <memory>

class CBackgroundRender;
class CItemModel;
class CProjectModel;

/// Looks at the screens of a project whenever the editor has been idle for a while: draws those
/// that have changed since they were looked at, in the background, one after the other, and hands
/// each out. Begins anew when something changes meanwhile; waits while the user is at something.
class CScreenRounds final : public QObject
{
    Q_OBJECT

public:
    static constexpr int IdleTime = 500;    ///< milliseconds without a change
    static constexpr int AnswerTime = 4000; ///< after which a screen is asked for again

    explicit CScreenRounds(QObject *parent = nullptr);
    ~CScreenRounds() override;

    /// Asked before each step; true puts it off.
    void setBusy(std::function<bool()> isBusy) { m_isBusy = std::move(isBusy); }
    /// The next screen waits until as many calls with false have come: what was handed out is still
    /// worked on.
    void setHeld(bool isHeld);
    /// None while nobody wants to know: changes are remembered all the same.
    void setWanted(const QObject *by, bool wanted);
    void setProject(CProjectModel *project);
    /// This one comes first.
    void prefer(const CItemModel *screen);
    /// All are to be looked at again.
    void restart();
    bool isIdle() const { return m_changed.isEmpty(); }
    const CProjectModel *project() const { return m_project; } ///< null for none

Q_SIGNALS:
    /// A screen as it is now; the screen is the project's.
    void drawn(const SScreenExport &screen);
    /// All screens have been looked at.
    void done();

private:
    void follow();
    void itemChanged(const CItemModel *item);
    void rowsChanged(const QModelIndex &parent, int first, int last);
    void screenChanged(const QPersistentModelIndex &screen);
    void step();
    void takeAnswer();
    void dropCurrent();

    CProjectModel *m_project = nullptr;
    std::function<bool()> m_isBusy;
    QSet<const QObject *> m_wantedBy;
    int m_holds = 0;
    bool m_isTold = true;                   ///< done() was sent for what is known
    QList<QPersistentModelIndex> m_changed; ///< the next one first
    QPersistentModelIndex m_current;        ///< that is being drawn
    QList<SExportedItem> m_items;
    std::unique_ptr<CBackgroundRender> m_render;
    QTimer m_idle;
    QTimer m_answer;
};
