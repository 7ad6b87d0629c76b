#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

class CProjectSession;
struct SProjectRead;

/// Opens what the user chooses as CProjectSession::open() does, but has long documents read by a
/// thread of the pool. Until all of the new project is there, the one that is open stays open and
/// can be worked on; then the change is one step, with the usual questions.
/// Whatever is chosen or made in between takes the place of what is being read.
class CProjectOpener final : public QObject
{
    Q_OBJECT

public:
    static constexpr qint64 ReadAtOnce = 1 << 15; ///< bytes; no longer than a frame is seen

    /// The session's child.
    explicit CProjectOpener(CProjectSession *session);
    ~CProjectOpener() override;

    /// True while something is under way that is about the project that is open, such as a dialog
    /// or a drag: what has been read waits for its end.
    void setBusyCheck(std::function<bool()> isBusy) { m_isBusy = std::move(isBusy); }

    void open(const QString &path);
    /// Nothing is opened any more.
    void cancel();

Q_SIGNALS:
    /// Of this file; empty: no longer.
    void readingChanged(const QString &path);
    /// What is being typed belongs to the project that is open.
    void aboutToOpen();

private:
    void take();
    void setReading(const QString &path);

    CProjectSession *const m_session;
    std::function<bool()> m_isBusy;
    int m_wish = 0; ///< of the last one
    QString m_path;
    QDateTime m_written;                  ///< the file, when its reading began
    std::shared_ptr<SProjectRead> m_read; ///< null: not yet
    QTimer m_retry;
};
