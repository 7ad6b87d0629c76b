#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <QVector>

#include <functional>
#include <memory>

class CToolProcess;

/// The versions of a file that git keeps, when it is there and the file lies in a work tree. Asks
/// it in the background, one question at a time: a new one ends the one before. Nothing that the
/// repository is configured to run is run.
class CGitVersions final : public QObject
{
    Q_OBJECT

public:
    static constexpr int MaxVersions = 200;
    static constexpr int TimeLimit = 10000; ///< milliseconds for an answer
    struct SVersion
    {
        QString id; ///< what read() wants
        QString date;
        QString subject;
    };

    explicit CGitVersions(const QString &file, QObject *parent = nullptr);
    ~CGitVersions() override;

    /// Ends with listed(); without versions when there are none, for whatever reason.
    void list();
    /// Ends with read() or failed().
    void fetch(const QString &id);

Q_SIGNALS:
    void listed(const QVector<CGitVersions::SVersion> &versions);
    void fetched(const QByteArray &bytes);
    void failed(const QString &reason);

private:
    using Answer = std::function<void(bool isGood)>;

    void ask(const QStringList &arguments, qint64 mostBytes, Answer answer);
    void take();
    void end(bool isGood);
    void drop();

    const QString m_folder;
    const QString m_name;
    std::unique_ptr<CToolProcess> m_process;
    QTimer m_limit;
    qint64 m_mostBytes = 0;
    QByteArray m_output;
    Answer m_answer;
};
