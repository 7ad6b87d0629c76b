#include "CScreenRounds.h"

#include "CBackgroundRender.h"
#include "CEmulatorAdapter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ScreenAnswer.h"

#include <utility>

CScreenRounds::CScreenRounds(QObject *parent) : QObject(parent)
{
    m_idle.setSingleShot(true);
    m_answer.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &CScreenRounds::step);
    connect(&m_answer, &QTimer::timeout, this, [this] {
        dropCurrent(); // parked behind a frame of the canvas, its list went there
        m_idle.start(IdleTime);
    });
}

CScreenRounds::~CScreenRounds() = default;

void CScreenRounds::setWanted(const QObject *by, bool wanted)
{
    if (!wanted) {
        m_wantedBy.remove(by);
        return;
    }
    m_wantedBy.insert(by);
    m_idle.start(0);
}

void CScreenRounds::setHeld(bool isHeld)
{
    m_holds += isHeld ? 1 : -1;
    if (m_holds == 0 && !m_idle.isActive())
        m_idle.start(0);
}

void CScreenRounds::setProject(CProjectModel *project)
{
    if (m_project)
        m_project->disconnect(this);
    dropCurrent();
    m_render.reset();
    m_changed.clear();
    m_project = project;
    m_isTold = !project;
    if (!project)
        return;
    m_render = std::make_unique<CBackgroundRender>(CEmulatorAdapter::instance(), project);
    connect(m_render.get(), &CBackgroundRender::changed, this, &CScreenRounds::takeAnswer);
    follow();
    restart();
}

void CScreenRounds::follow()
{
    connect(m_project, &CProjectModel::propertyChanged, this,
            [this](CItemModel *item) { itemChanged(item); });
    connect(m_project, &CProjectModel::geometryChanged, this, &CScreenRounds::itemChanged);
    connect(m_project, &CProjectModel::fontsChanged, this, &CScreenRounds::restart);
    connect(m_project, &QAbstractItemModel::modelReset, this, &CScreenRounds::restart);
    connect(m_project, &QAbstractItemModel::rowsInserted, this, &CScreenRounds::rowsChanged);
    connect(m_project, &QAbstractItemModel::rowsRemoved, this, &CScreenRounds::rowsChanged);
    connect(m_project, &QObject::destroyed, this, [this] {
        m_project = nullptr; // the render has let go by itself
        m_changed.clear();
    });
}

void CScreenRounds::itemChanged(const CItemModel *item)
{
    while (const CItemModel *parent = item->parentItem())
        item = parent;
    screenChanged(m_project->indexFromItem(item));
}

void CScreenRounds::rowsChanged(const QModelIndex &parent, int first, int last)
{
    if (!parent.isValid()) {
        for (int row = first; row <= last && row < m_project->rowCount(); ++row)
            screenChanged(m_project->index(row, 0));
        m_isTold = false; // what screens have to do with each other
        m_idle.start(IdleTime);
        return;
    }
    QModelIndex screen = parent;
    while (screen.parent().isValid())
        screen = screen.parent();
    screenChanged(screen);
}

void CScreenRounds::screenChanged(const QPersistentModelIndex &screen)
{
    if (m_current == screen)
        dropCurrent();
    if (!m_changed.contains(screen))
        m_changed.append(screen);
    m_isTold = false;
    m_idle.start(IdleTime);
}

void CScreenRounds::prefer(const CItemModel *screen)
{
    const int place =
        m_project && screen ? m_changed.indexOf(m_project->indexFromItem(screen)) : -1;
    if (place > 0)
        m_changed.move(place, 0);
}

void CScreenRounds::restart()
{
    if (!m_project)
        return;
    dropCurrent();
    m_changed.clear();
    for (int row = 0; row < m_project->rowCount(); ++row)
        m_changed.append(m_project->index(row, 0));
    m_isTold = false;
    m_idle.start(IdleTime);
}

void CScreenRounds::dropCurrent()
{
    m_answer.stop();
    if (!m_current.isValid())
        return;
    m_changed.prepend(m_current);
    m_current = QPersistentModelIndex();
    if (m_render)
        m_render->giveUp();
}

void CScreenRounds::step()
{
    if (!m_project || m_wantedBy.isEmpty() || m_current.isValid() || m_holds > 0)
        return;
    if (m_isBusy && m_isBusy()) {
        m_idle.start(IdleTime);
        return;
    }
    while (!m_changed.isEmpty() && !m_changed.first().isValid())
        m_changed.removeFirst();
    if (m_changed.isEmpty()) {
        if (!std::exchange(m_isTold, true))
            Q_EMIT done();
        return;
    }
    CScreenModel *screen = m_project->screen(m_changed.first().row());
    if (!screen) {
        m_changed.removeFirst();
        m_idle.start(0);
        return;
    }
    m_current = m_changed.takeFirst();
    m_items = exportedItems(*screen);
    m_answer.start(AnswerTime);
    m_render->ask(m_current);
}

void CScreenRounds::takeAnswer()
{
    if (!m_current.isValid() || !m_render->hasDisplayList() || !m_render->hasFrame())
        return;
    m_answer.stop();
    CScreenModel *screen = m_project->screen(m_current.row());
    m_current = QPersistentModelIndex();
    Q_EMIT drawn(screenAnswer(*screen, *m_render, m_items));
    m_idle.start(0);
}
