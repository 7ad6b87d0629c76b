#include "CFileQueue.h"

#include "CFileWriter.h"

#include <utility>

CFileQueue::CFileQueue(int threads) : m_room(threads)
{
    m_threads.setMaxThreadCount(threads);
}

CFileQueue::~CFileQueue()
{
    m_threads.clear();
    m_threads.waitForDone();
}

void CFileQueue::add(const QString &path, const QString &kind, Content content)
{
    const auto file = std::make_shared<SFile>(SFile{path, kind, {}, 0});
    m_files.append(file);
    m_room.acquire();
    m_threads.start([this, file, content = std::move(content)]() mutable {
        const QByteArray bytes = std::exchange(content, {})();
        file->bytes = bytes.size();
        file->problem = CFileWriter::write(file->path, bytes);
        m_room.release();
    });
}

QList<CFileQueue::SFile> CFileQueue::finish()
{
    m_threads.waitForDone();
    QList<SFile> files;
    for (const auto &file : std::exchange(m_files, {}))
        files.append(*file);
    return files;
}

bool CFileQueue::stop(std::chrono::milliseconds longest)
{
    m_threads.clear();
    return m_threads.waitForDone(static_cast<int>(longest.count()));
}
