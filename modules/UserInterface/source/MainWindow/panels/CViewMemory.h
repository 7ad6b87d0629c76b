#pragma once

#include "CProjectViews.h"

#include <QObject>

class CMainPanels;
class CProjectModel;

/// Brings back how a project was seen when it was closed: the open pages, which of them was in
/// front, the zoom, what was in the middle, and the selection. Pages and items that are gone by now
/// are passed over.
class CViewMemory final : public QObject
{
    Q_OBJECT

public:
    explicit CViewMemory(CMainPanels *panels);

    CProjectViews *views() { return &m_views; }
    void remember(const QString &file);
    /// Opens at least the first page. Of a file that is not known nothing else is changed.
    void restore(const QString &file, const CProjectModel *project);

Q_SIGNALS:
    void zoomWanted(int percent, int type);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    CMainPanels *const m_panels;
    CProjectViews m_views;
};
