#include "CFormatTrials.h"

#include "PictureFile.h"

#include <QDir>
#include <QThread>

#include <algorithm>

CFormatTrials::CFormatTrials(QObject *parent) : QObject(parent)
{
    m_threads.setMaxThreadCount(std::max(1, QThread::idealThreadCount() - 1)); // one is the user's
}

CFormatTrials::~CFormatTrials()
{
    cancel();
    m_threads.waitForDone();
}

void CFormatTrials::cancel()
{
    m_threads.clear();
    if (m_cancelled)
        *m_cancelled = true;
    m_cancelled.reset();
    m_left = 0;
}

void CFormatTrials::start(const QVector<SJob> &jobs, bool withPictures)
{
    cancel();
    const Cancelled cancelled = std::make_shared<std::atomic<bool>>(false);
    m_cancelled = cancelled;
    m_left = jobs.size();
    const QString folder = QDir::currentPath(); // the program's, where the tools lie
    for (const SJob &job : jobs)
        m_threads.start([this, job, withPictures, folder, cancelled] {
            SFormatTrial trial = tryFormat(job.source, job.format, folder, *cancelled);
            if (!withPictures)
                trial.picture = {};
            QMetaObject::invokeMethod(this, [this, job, trial, cancelled] {
                if (*cancelled)
                    return;
                --m_left;
                Q_EMIT tried(job.source, trial);
            });
        });
}

void CFormatTrials::start(const QString &source, const QStringList &formats)
{
    QVector<SJob> jobs;
    for (const QString &format : formats)
        jobs.append({source, format});
    start(jobs, true);
    const Cancelled cancelled = m_cancelled;
    constexpr int First = 1;
    const auto read = [this, source, cancelled] {
        QString reason;
        const QImage picture =
            PictureFile::read(source, PictureFile::formatOf(source), {}, &reason);
        QMetaObject::invokeMethod(this, [this, picture, cancelled] {
            if (!*cancelled)
                Q_EMIT originalRead(picture);
        });
    };
    m_threads.start(read, First);
}
