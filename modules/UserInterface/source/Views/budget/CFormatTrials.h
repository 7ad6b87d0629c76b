#pragma once

#include "FormatTrial.h"

#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <QVector>

#include <atomic>
#include <memory>

/// Tries images in formats, in the background.
class CFormatTrials final : public QObject
{
    Q_OBJECT

public:
    struct SJob
    {
        QString source;
        QString format;
    };

    explicit CFormatTrials(QObject *parent = nullptr);
    ~CFormatTrials() override; ///< ends what runs, which takes a moment

    /// What was asked for before is cancelled. Without their pictures, which are large, the trials
    /// have figures only.
    void start(const QVector<SJob> &jobs, bool withPictures);
    /// One image, and its picture beside.
    void start(const QString &source, const QStringList &formats);
    /// Nothing is told any more.
    void cancel();
    bool isRunning() const { return m_left > 0; }
    int left() const { return m_left; } ///< jobs

Q_SIGNALS:
    void originalRead(const QImage &picture); ///< null when it cannot be read
    void tried(const QString &source, const SFormatTrial &trial);

private:
    using Cancelled = std::shared_ptr<std::atomic<bool>>;

    QThreadPool m_threads;
    Cancelled m_cancelled;
    int m_left = 0;
};
