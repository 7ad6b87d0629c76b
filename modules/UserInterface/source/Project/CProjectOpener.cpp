#include "CProjectOpener.h"

#include "BackgroundWork.h"
#include "CProjectSession.h"
#include "SProjectRead.h"

#include <QFileInfo>

#include <utility>

namespace {
constexpr int RetryTime = 100; // ms
}

CProjectOpener::CProjectOpener(CProjectSession *session) : QObject(session), m_session(session)
{
    m_retry.setSingleShot(true);
    m_retry.setInterval(RetryTime);
    connect(&m_retry, &QTimer::timeout, this, &CProjectOpener::take);
    connect(session, &CProjectSession::projectOpened, this, &CProjectOpener::cancel);
}

CProjectOpener::~CProjectOpener() = default;

void CProjectOpener::open(const QString &path)
{
    cancel();
    const QFileInfo file(path);
    if (file.size() <= ReadAtOnce) {
        m_session->open(path);
        return;
    }
    m_written = file.lastModified();
    setReading(path);
    BackgroundWork::run(
        this,
        [path, home = thread()] {
            auto read = std::make_shared<SProjectRead>(SProjectRead::of(path));
            if (read->project)
                read->project->handOverTo(home);
            return read;
        },
        [this, wish = m_wish](const std::shared_ptr<SProjectRead> &read) {
            if (wish != m_wish)
                return;
            m_read = read;
            take();
        });
}

void CProjectOpener::take()
{
    if (m_isBusy && m_isBusy()) {
        m_retry.start();
        return;
    }
    const auto read = std::exchange(m_read, nullptr);
    const QString path = m_path;
    cancel();
    // Another version, or none: the project that is open is not closed for what is gone.
    if (QFileInfo(path).lastModified() != m_written) {
        open(path);
        return;
    }
    Q_EMIT aboutToOpen();
    m_session->open(path, std::move(*read));
}

void CProjectOpener::cancel()
{
    ++m_wish;
    m_read.reset();
    m_retry.stop();
    setReading({});
}

void CProjectOpener::setReading(const QString &path)
{
    if (std::exchange(m_path, path) != path)
        Q_EMIT readingChanged(path);
}
