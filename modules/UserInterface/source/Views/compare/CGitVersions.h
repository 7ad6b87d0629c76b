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
        QString id; ///< what fetch() wants
        QString date;
        QString subject;
    };

    explicit CGitVersions(const QString &file, QObject *parent = nullptr);
    ~CGitVersions() override;

    /// Ends with listed(); without versions when there are none, for whatever reason.
    void list();
    /// Whether the file lies in a work tree, as the last list() found.
    bool isInWorkTree() const { return m_isInWorkTree; }
    /// What somebody typed: a branch, a tag, a hash, "HEAD~3". Git says what it is, and is never
    /// given what it could take for an option. Ends with resolved() or failed().
    void resolve(const QString &revision);
    /// Ends with fetched() or failed().
    void fetch(const QString &id);

Q_SIGNALS:
    void listed(const QVector<CGitVersions::SVersion> &versions);
    void resolved(const CGitVersions::SVersion &version);
    void fetched(const QByteArray &bytes);
    void failed(const QString &reason);

private:
    enum class EEnd { Good, Refused, TooLarge, TooLate, NoGit };
    using Answer = std::function<void(EEnd end)>;

    void ask(const QStringList &arguments, qint64 mostBytes, Answer answer);
    void take();
    void end(EEnd end);
    static QVector<SVersion> versionsOf(const QByteArray &lines);
    static QString reasonOf(EEnd end, const QString &refusal);
    void drop();

    const QString m_folder;
    const QString m_name;
    std::unique_ptr<CToolProcess> m_process;
    QTimer m_limit;
    qint64 m_mostBytes = 0;
    QByteArray m_output;
    Answer m_answer;
    bool m_isInWorkTree = false;
};

Q_DECLARE_METATYPE(CGitVersions::SVersion)
