#include "CGitVersions.h"

#include "CToolProcess.h"
#include "CXmlGuard.h"

#include <QFileInfo>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <utility>

namespace {
constexpr qint64 MaxList = 1 << 20; // bytes
}

CGitVersions::CGitVersions(const QString &file, QObject *parent)
    : QObject(parent), m_folder(QFileInfo(file).absolutePath()), m_name(QFileInfo(file).fileName())
{
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, [this] { end(false); });
}

CGitVersions::~CGitVersions()
{
    drop();
}

void CGitVersions::list()
{
    const QStringList arguments = {QStringLiteral("log"),
                                   QStringLiteral("--no-color"),
                                   QStringLiteral("--no-show-signature"),
                                   QStringLiteral("--max-count=%1").arg(MaxVersions),
                                   QStringLiteral("--format=%H%x09%cs%x09%s"),
                                   QStringLiteral("--"),
                                   QStringLiteral(":(literal)") + m_name};
    ask(arguments, MaxList, [this](bool isGood) {
        QVector<SVersion> versions;
        const auto lines = isGood ? m_output.split('\n') : QList<QByteArray>();
        for (const QByteArray &line : lines) {
            const QStringList parts = QString::fromUtf8(line).split(QLatin1Char('\t'));
            if (parts.size() >= 3)
                versions.append({parts[0], parts[1], parts.mid(2).join(QLatin1Char(' '))});
        }
        Q_EMIT listed(versions);
    });
}

/// The blob as it is: "show" would run filters for people.
void CGitVersions::fetch(const QString &id)
{
    const QString blob = id + QStringLiteral(":./") + m_name;
    ask({QStringLiteral("cat-file"), QStringLiteral("blob"), blob}, CXmlGuard::MaxBytes,
        [this](bool isGood) {
            if (isGood)
                Q_EMIT fetched(m_output);
            else
                Q_EMIT failed(tr("git did not give the file in that version."));
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
            this, [this] { end(false); }, Qt::QueuedConnection);
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
                end(status == QProcess::NormalExit && code == 0);
            });
    connect(m_process.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            end(false);
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
        end(false);
}

void CGitVersions::end(bool isGood)
{
    drop();
    if (const Answer answer = std::exchange(m_answer, nullptr))
        answer(isGood);
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
