#include "CComparison.h"

#include "CItemMatch.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenRounds.h"
#include "ProjectChanges.h"

#include <QUndoStack>

#include <cstring>
#include <iterator>
#include <utility>

CComparison::CComparison(QObject *parent)
    : QObject(parent), m_earlierRounds(new CScreenRounds(this)), m_rounds(new CScreenRounds(this))
{
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &CComparison::refresh);
    connect(m_earlierRounds, &CScreenRounds::drawn, this,
            [this](const SScreenExport &drawn) { take(m_earlier.get(), drawn); });
    connect(m_rounds, &CScreenRounds::drawn, this,
            [this](const SScreenExport &drawn) { take(m_project, drawn); });
    for (CScreenRounds *each : {m_earlierRounds, m_rounds})
        connect(each, &CScreenRounds::done, this, [this] {
            if (m_earlierRounds->isIdle() && m_rounds->isIdle())
                Q_EMIT changed();
        });
}

CComparison::~CComparison()
{
    setProject(nullptr);
}

void CComparison::setBusy(const std::function<bool()> &isBusy)
{
    m_earlierRounds->setBusy(isBusy);
    m_rounds->setBusy(isBusy);
}

void CComparison::setWanted(bool wanted)
{
    m_isWanted = wanted;
    m_earlierRounds->setWanted(this, wanted);
    m_rounds->setWanted(this, wanted);
    if (wanted && m_earlier)
        m_idle.start(0);
}

void CComparison::setProject(CProjectModel *project)
{
    clear();
    if (m_project)
        m_project->undoStack()->disconnect(this);
    m_project = project;
    if (!project)
        return;
    // Every change that a user can make is a step of Undo.
    connect(project->undoStack(), &QUndoStack::indexChanged, this, [this] {
        if (m_earlier && m_isWanted)
            m_idle.start(IdleTime);
    });
}

void CComparison::clear()
{
    m_idle.stop();
    for (CScreenRounds *each : {m_earlierRounds, m_rounds})
        each->setProject(nullptr);
    m_pairs.clear();
    m_pictures.clear();
    m_differences.clear();
    m_title.clear();
    if (std::exchange(m_earlier, nullptr))
        Q_EMIT changed();
}

QString CComparison::compareWith(const QByteArray &bytes, const QString &title)
{
    if (!m_project)
        return tr("No project is open.");
    QString error;
    auto earlier = std::make_unique<CProjectModel>();
    if (!earlier->loadFromBytes(bytes, &error))
        return error;
    clear();
    earlier->setWorkingDirectory(m_project->workingDirectory());
    m_earlier = std::move(earlier);
    m_title = title;
    m_idle.start(0); // reading was a step of its own, and who shows it may want it shown anew
    return {};
}

SProjectChanges CComparison::changes() const
{
    return m_earlier && m_project ? projectChanges(*m_earlier, *m_project) : SProjectChanges();
}

void CComparison::refresh()
{
    if (!m_earlier || !m_project)
        return;
    pairPages();
    startRounds();
    Q_EMIT changed();
}

/// Pictures of pages that were a pair before are measured when one of them is drawn anew.
void CComparison::pairPages()
{
    const auto old = std::exchange(m_pairs, {});
    const CItemMatch match(*m_earlier, *m_project);
    for (int row = 0; row < m_project->screenCount(); ++row)
        if (const CItemModel *before = match.before(m_project->screen(row)))
            m_pairs.insert(m_project->index(row, 0), m_earlier->indexFromItem(before));
    for (auto each = m_pictures.begin(); each != m_pictures.end();)
        each = each.key().isValid() ? std::next(each) : m_pictures.erase(each);
    for (auto each = m_differences.begin(); each != m_differences.end();)
        each = m_pairs.contains(each.key()) ? std::next(each) : m_differences.erase(each);
    for (auto each = m_pairs.cbegin(); each != m_pairs.cend(); ++each)
        if (old.value(each.key()) != each.value())
            measure(each.key());
}

/// The chip and the size may have changed.
void CComparison::startRounds()
{
    const bool isDrawn = whyNoPictures().isEmpty();
    if (!isDrawn) {
        m_pictures.clear();
        m_differences.clear();
    }
    const bool wasDrawn = m_rounds->project();
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

void CComparison::take(const CProjectModel *project, const SScreenExport &drawn)
{
    if (!project || drawn.frame.isNull())
        return;
    const QPersistentModelIndex page = project->indexFromItem(drawn.screen);
    m_pictures.insert(page, {drawn.frame.size(), qCompress(drawn.frame.constBits(),
                                                           int(drawn.frame.sizeInBytes()), 1)});
    measure(project == m_project ? page : m_pairs.key(page));
    Q_EMIT pictureTaken();
}

void CComparison::measure(const QPersistentModelIndex &page)
{
    const QImage before = picture(m_pairs.value(page));
    const QImage after = picture(page);
    m_differences.remove(page);
    if (before.isNull() || after.isNull())
        return;
    const SPictureDifference difference = pictureDifference(before, after);
    if (!difference.isEmpty())
        m_differences.insert(page, difference);
}

QImage CComparison::picture(const QPersistentModelIndex &page) const
{
    const SPacked packed = m_pictures.value(page);
    const QByteArray bytes = packed.bytes.isEmpty() ? QByteArray() : qUncompress(packed.bytes);
    QImage image(packed.size, QImage::Format_RGB32);
    if (bytes.isEmpty() || image.sizeInBytes() != bytes.size())
        return {};
    std::memcpy(image.bits(), bytes.constData(), size_t(bytes.size()));
    return image;
}
