#include "CComparison.h"

#include "BackgroundWork.h"
#include "CPicturePairs.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenRounds.h"
#include "CStateReader.h"
#include "ItemTree.h"
#include "ProjectChanges.h"

#include <QThread>
#include <QUndoStack>

#include <utility>

namespace {

/// Thousands of items are thrown away by another thread, since that takes time. Nobody may be
/// connected to them any more.
template<typename T>
std::shared_ptr<T> ownedByPool(std::remove_const_t<T> *owned)
{
    return {owned, [](T *gone) { QThreadPool::globalInstance()->start([gone] { delete gone; }); }};
}

} // namespace

struct CComparison::SEarlier
{
    std::shared_ptr<CProjectModel> project; ///< null when it could not be read
    ProjectState state;
    QString error;
};

CComparison::CComparison(QObject *parent)
    : QObject(parent),
      m_earlierRounds(new CScreenRounds(this)),
      m_rounds(new CScreenRounds(this)),
      m_pictures(new CPicturePairs(this))
{
    m_idle.setSingleShot(true);
    m_step.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &CComparison::refresh);
    connect(&m_step, &QTimer::timeout, this, &CComparison::readOn);
    for (CScreenRounds *each : {m_earlierRounds, m_rounds})
        connect(each, &CScreenRounds::drawn, this, &CComparison::take);
}

CComparison::~CComparison()
{
    setProject(nullptr);
}

void CComparison::setBusy(const std::function<bool()> &isBusy)
{
    m_isBusy = isBusy;
    m_earlierRounds->setBusy(isBusy);
    m_rounds->setBusy(isBusy);
}

void CComparison::setWanted(bool wanted)
{
    m_isWanted = wanted;
    m_earlierRounds->setWanted(this, wanted);
    m_rounds->setWanted(this, wanted);
    if (!wanted)
        giveUp();
    else if (m_earlier)
        m_idle.start(0);
}

void CComparison::setProject(CProjectModel *project)
{
    clear();
    if (m_project) {
        m_project->disconnect(this);
        m_project->undoStack()->disconnect(this);
    }
    m_project = project;
    Q_EMIT changed();
    if (!project)
        return;
    const auto startAnew = [this] {
        if (!m_earlier || !m_isWanted)
            return;
        giveUp();
        m_idle.start(IdleTime);
    };
    // Every change that a user can make is a step of Undo.
    connect(project->undoStack(), &QUndoStack::indexChanged, this, startAnew);
    // The reader has items at hand that may be none in a moment.
    const auto stopReading = [this, startAnew] {
        if (m_reader)
            startAnew();
    };
    connect(project, &QAbstractItemModel::rowsAboutToBeInserted, this, stopReading);
    connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this, stopReading);
    connect(project, &QAbstractItemModel::modelAboutToBeReset, this, stopReading);
}

/// The idle time, too, is over.
void CComparison::giveUp()
{
    ++m_question;
    m_isReading = false;
    m_idle.stop();
    m_step.stop();
    m_reader.reset();
    if (m_stop)
        *std::exchange(m_stop, nullptr) = true;
}

void CComparison::clear()
{
    giveUp();
    for (CScreenRounds *each : {m_earlierRounds, m_rounds})
        each->setProject(nullptr);
    m_pictures->clear();
    m_title.clear();
    m_result.reset();
    m_before.reset();
    if (std::exchange(m_earlier, nullptr))
        Q_EMIT changed();
}

void CComparison::compareWith(const QByteArray &bytes, const QString &title)
{
    giveUp();
    if (!m_project) {
        Q_EMIT failed(tr("No project is open."));
        return;
    }
    m_isReading = true;
    const int question = m_question;
    BackgroundWork::run(
        this,
        [bytes, folder = m_project->workingDirectory(), thread = thread()] {
            return read(bytes, folder, thread);
        },
        [this, question, title](const SEarlier &earlier) {
            if (question == m_question)
                takeEarlier(earlier, title);
        });
    Q_EMIT changed();
}

void CComparison::refuse(const QString &reason)
{
    Q_EMIT failed(reason);
}

CComparison::SEarlier CComparison::read(const QByteArray &bytes, const QString &folder,
                                        QThread *thread)
{
    SEarlier earlier;
    auto project = std::make_unique<CProjectModel>();
    if (!project->loadFromBytes(bytes, &earlier.error))
        return earlier;
    project->setWorkingDirectory(folder);
    const ProjectState state = CStateReader::read(*project);
    earlier.state = state;
    project->handOverTo(thread);
    earlier.project = ownedByPool<CProjectModel>(project.release());
    return earlier;
}

void CComparison::takeEarlier(const SEarlier &earlier, const QString &title)
{
    m_isReading = false;
    if (!earlier.project) {
        if (m_earlier) // the one of before is compared with again
            m_idle.start(0);
        Q_EMIT changed();
        Q_EMIT failed(title + QStringLiteral(": ") + earlier.error);
        return;
    }
    clear();
    m_earlier = earlier.project;
    m_before = earlier.state;
    m_title = title;
    m_idle.start(0);
    Q_EMIT changed();
}

void CComparison::refresh()
{
    if (!m_earlier || !m_project)
        return;
    giveUp();
    m_reader = std::make_unique<CStateReader>(*m_project);
    m_step.start(0);
}

void CComparison::readOn()
{
    if (m_isBusy && m_isBusy()) {
        m_step.start(IdleTime);
        return;
    }
    if (!m_reader->read(PieceTime)) {
        m_step.start(0);
        return;
    }
    compare(m_reader->take());
    m_reader.reset();
}

void CComparison::compare(const ProjectState &now)
{
    m_stop = std::make_shared<std::atomic<bool>>(false);
    BackgroundWork::run(
        this,
        [before = m_before, now, stop = m_stop] {
            return Result(ownedByPool<const SResult>(
                new SResult{before, now, projectChanges(*before, *now, stop.get())}));
        },
        [this, stop = m_stop](const Result &result) {
            if (*stop)
                return;
            m_stop.reset();
            takeResult(result);
        });
}

void CComparison::takeResult(const Result &result)
{
    m_result = result;
    CPicturePairs::Pages pairs;
    QVector<const CItemModel *> pages;
    for (const SScreenPair &each : result->changes.pairs)
        pairs.insert(each.after->item, each.before->item);
    for (const ProjectState &each : {result->before, result->after})
        for (const auto &screen : each->screens)
            pages.append(screen->item);
    m_pictures->setPairs(pairs, pages);
    startRounds();
    Q_EMIT changed();
}

/// The chip and the size may have changed.
void CComparison::startRounds()
{
    const bool isDrawn = whyNoPictures().isEmpty();
    const bool wasDrawn = m_rounds->project();
    if (!isDrawn)
        m_pictures->clear();
    if (isDrawn == wasDrawn)
        return;
    m_earlierRounds->setProject(isDrawn ? m_earlier.get() : nullptr);
    m_rounds->setProject(isDrawn ? m_project : nullptr);
}

QString CComparison::whyNoPictures() const
{
    if (!m_earlier || !m_project)
        return {};
    if (m_earlier->platform() != m_project->platform())
        return tr("There are no pictures: the earlier version is for another chip (%1).")
            .arg(m_earlier->platform());
    if (m_earlier->resolution() != m_project->resolution())
        return tr("There are no pictures: the earlier version has another size (%1 x %2).")
            .arg(m_earlier->resolution().width())
            .arg(m_earlier->resolution().height());
    return {};
}

void CComparison::take(const SScreenExport &drawn)
{
    if (m_earlier && !drawn.frame.isNull())
        m_pictures->add(drawn.screen, drawn.frame);
}

CItemModel *CComparison::itemOf(const SItemState *now) const
{
    CItemModel *found = nullptr;
    for (int row = 0; now && m_project && row < m_project->screenCount() && !found; ++row)
        found = findItem(*m_project->screen(row),
                         [now](const CItemModel &each) { return &each == now->item; });
    return found;
}
