#include "CGitVersions.h"

#include "CToolProcess.h"
#include "CXmlGuard.h"
#include "ShownText.h"

#include <QFileInfo>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace {
constexpr qint64 MaxList = 1 << 20; // bytes
constexpr int MaxRevision = 256;    // characters
const QString Format = QStringLiteral("--format=%H%x09%cs%x09%s");
} // namespace

CGitVersions::CGitVersions(const QString &file, QObject *parent)
    : QObject(parent), m_folder(QFileInfo(file).absolutePath()), m_name(QFileInfo(file).fileName())
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] { end(EEnd::TooLate); });
}

CGitVersions::~CGitVersions()
{
    drop();
}

QVector<CGitVersions::SVersion> CGitVersions::versionsOf(const QByteArray &lines)
{
    QVector<SVersion> versions;
    const auto all = lines.split('\n');
    for (const QByteArray &line : all) {
        const QStringList parts = QString::fromUtf8(line).split(QLatin1Char('\t'));
        if (parts.size() >= 3)
            versions.append({parts[0], parts[1], parts.mid(2).join(QLatin1Char(' '))});
    }
    return versions;
}

QString CGitVersions::reasonOf(EEnd end, const QString &refusal)
{
    switch (end) {
    case EEnd::TooLarge:
        return tr("git's answer is too large.");
    case EEnd::TooLate:
        return tr("git did not answer within %1 seconds.").arg(TimeLimit / 1000);
    case EEnd::NoGit:
        return tr("git could not be started.");
    default:
        return refusal;
    }
}

void CGitVersions::list()
{
    const QStringList arguments = {QStringLiteral("log"),
                                   QStringLiteral("--no-color"),
                                   QStringLiteral("--no-show-signature"),
                                   QStringLiteral("--max-count=%1").arg(MaxVersions),
                                   Format,
                                   QStringLiteral("--"),
                                   QStringLiteral(":(literal)") + m_name};
    ask(arguments, MaxList, [this](EEnd end) {
        m_isInWorkTree = end == EEnd::Good;
        Q_EMIT listed(m_isInWorkTree ? versionsOf(m_output) : QVector<SVersion>());
    });
}

/// No revision begins with "-" or holds what is no character of a line.
void CGitVersions::resolve(const QString &revision)
{
    const QString bare = revision.trimmed();
    const QString refusal = tr("git knows no revision \"%1\".").arg(ShownText::name(bare));
    const bool isLine = std::all_of(bare.begin(), bare.end(), [](QChar c) { return c.isPrint(); });
    if (bare.isEmpty() || bare.startsWith(QLatin1Char('-')) || !isLine ||
        bare.size() > MaxRevision) {
        QMetaObject::invokeMethod(
            this, [this, refusal] { Q_EMIT failed(refusal); }, Qt::QueuedConnection);
        return;
    }
    const auto describe = [this, refusal](EEnd end) {
        const QString id = QString::fromLatin1(m_output).trimmed();
        if (end != EEnd::Good) {
            Q_EMIT failed(reasonOf(end, refusal));
            return;
        }
        const QStringList words = {QStringLiteral("log"),
                                   QStringLiteral("--no-color"),
                                   QStringLiteral("--no-show-signature"),
                                   QStringLiteral("--max-count=1"),
                                   Format,
                                   id,
                                   QStringLiteral("--")};
        ask(words, MaxList, [this, refusal](EEnd answer) {
            const QVector<SVersion> found = versionsOf(m_output);
            if (answer == EEnd::Good && found.size() == 1)
                Q_EMIT resolved(found.first());
            else
                Q_EMIT failed(reasonOf(answer, refusal));
        });
    };
    ask({QStringLiteral("rev-parse"), QStringLiteral("--verify"), QStringLiteral("--quiet"),
         bare + QStringLiteral("^{commit}")},
        MaxList, describe);
}

/// The blob as it is: "show" would run filters for people.
void CGitVersions::fetch(const QString &id)
{
    const QString blob = id + QStringLiteral(":./") + m_name;
    ask({QStringLiteral("cat-file"), QStringLiteral("blob"), blob}, CXmlGuard::MaxBytes,
        [this](EEnd end) {
            if (end == EEnd::Good)
                Q_EMIT fetched(m_output);
            else
                Q_EMIT failed(reasonOf(end, tr("git did not give the file in that version.")));
        });
}

void CGitVersions::ask(const QStringList &arguments, qint64 mostBytes, Answer answer)
{
    drop();
    m_output.clear();
    m_mostBytes = mostBytes;
    m_answer = std::move(answer);
    m_limit.start(TimeLimit);
    const QString program = QStandardPaths::findExecutable(QStringLiteral("git"));
    if (program.isEmpty()) { // told later, as every answer
        QMetaObject::invokeMethod(
            this, [this] { end(EEnd::NoGit); }, Qt::QueuedConnection);
        return;
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("GIT_TERMINAL_PROMPT"), QStringLiteral("0"));
    environment.insert(QStringLiteral("GIT_OPTIONAL_LOCKS"), QStringLiteral("0"));
    environment.insert(QStringLiteral("GIT_NO_LAZY_FETCH"), QStringLiteral("1"));
    m_process = std::make_unique<CToolProcess>();
    m_process->setProcessEnvironment(environment);
    m_process->setStandardInputFile(QProcess::nullDevice());
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &CGitVersions::take);
    connect(m_process.get(), QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [this](int code, QProcess::ExitStatus status) {
                take();
                end(status == QProcess::NormalExit && code == 0 ? EEnd::Good : EEnd::Refused);
            });
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(EEnd::NoGit);
    });
    m_process->startGroup(program, QStringList{QStringLiteral("--no-pager"), QStringLiteral("-c"),
                                               QStringLiteral("core.fsmonitor=false"),
                                               QStringLiteral("-C"), m_folder} +
                                       arguments);
}

void CGitVersions::take()
{
    if (!m_process)
        return;
    m_output += m_process->readAllStandardOutput();
    if (m_output.size() > m_mostBytes)
        end(EEnd::TooLarge);
}

void CGitVersions::end(EEnd end)
{
    drop();
    if (const Answer answer = std::exchange(m_answer, nullptr))
        answer(end);
}

/// May be called by a signal of the process itself, which goes later then.
void CGitVersions::drop()
{
    m_limit.stop();
    if (!m_process)
        return;
    m_process->disconnect(this);
    m_process->killGroup();
    m_process.release()->deleteLater();
}
