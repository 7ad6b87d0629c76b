#include "CToolRunner.h"

#include "CToolProcess.h"
#include "ShownText.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QGridLayout>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>
#include <QProgressDialog>
#include <QTimer>

namespace {

QString withoutQuotes(const QString &program)
{
    const QChar quote = QLatin1Char('"');
    const bool isQuoted =
        program.size() >= 2 && program.startsWith(quote) && program.endsWith(quote);
    return isQuoted ? program.mid(1, program.size() - 2) : program;
}

QProcessEnvironment environmentFor(const QString &program)
{
    const QString key = QStringLiteral("PATH");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(key, environment.value(key) + QDir::listSeparator() +
                                QFileInfo(program).absolutePath());
    return environment;
}

QMessageBox *makeBox(const QString &title, const QString &text)
{
    auto *box = new QMessageBox(QApplication::activeWindow());
    box->setWindowTitle(title);
    box->setTextFormat(Qt::PlainText);
    box->setText(ShownText::message(text));
    box->setStandardButtons(QMessageBox::Cancel);
    auto *busy = new QProgressBar(box);
    busy->setRange(0, 0);
    busy->setTextVisible(false);
    if (auto *layout = qobject_cast<QGridLayout *>(box->layout()))
        layout->addWidget(busy, layout->rowCount(), 0, 1, layout->columnCount());
    return box;
}

/// One run of a tool, from its start until it is gone.
class CToolWait
{
public:
    enum class EEnd { Cancelled, TimedOut, NotStarted, Ended };

    /// `box` must outlive this, or be deleted by its parent.
    CToolWait(CToolProcess *process, QDialog *box);

    /// Shows the box, unless it is seen already, until the wait ends one way or another, then ends
    /// what still runs. False when that cannot be done.
    bool run(const QString &program, const QStringList &arguments, int timeLimit);
    EEnd end() const { return m_end; }
    const QByteArray &output() const { return m_output; }

private:
    void endWait(EEnd end);
    void takeOutput();

    CToolProcess *const m_process;
    const QPointer<QDialog> m_box;
    bool m_isShared = false; // the box is seen already, unless it was cancelled
    QEventLoop m_loop;
    EEnd m_end = EEnd::Cancelled; // what it is when the box is closed by the user
    bool m_hasEnded = false;      // a failure can come before the box is shown
    QByteArray m_output;
    QObject m_receiver; // the last member: no signal arrives once the others go
};

CToolWait::CToolWait(CToolProcess *process, QDialog *box) : m_process(process), m_box(box)
{
    if (auto *shared = qobject_cast<QProgressDialog *>(box)) {
        m_isShared = true;
        QObject::connect(shared, &QProgressDialog::canceled, &m_loop, &QEventLoop::quit);
        QObject::connect(shared, &QObject::destroyed, &m_loop, &QEventLoop::quit);
    }
    QObject::connect(process, &QProcess::readyReadStandardOutput, &m_receiver,
                     [this] { takeOutput(); });
    QObject::connect(process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished),
                     &m_receiver, [this] { endWait(EEnd::Ended); });
    QObject::connect(process, &QProcess::errorOccurred, &m_receiver,
                     [this](QProcess::ProcessError error) {
                         endWait(error == QProcess::FailedToStart ? EEnd::NotStarted : EEnd::Ended);
                     });
}

bool CToolWait::run(const QString &program, const QStringList &arguments, int timeLimit)
{
    QTimer::singleShot(timeLimit, &m_receiver, [this] { endWait(EEnd::TimedOut); });
    m_process->startGroup(program, arguments);
    if (!m_hasEnded && m_box && !m_isShared)
        m_box->exec();
    else if (!m_hasEnded && m_box && m_box->isVisible())
        m_loop.exec();
    m_hasEnded = true;
    m_process->killGroup();
    const bool isGone = m_process->state() == QProcess::NotRunning ||
                        m_process->waitForFinished(CToolRunner::KillTimeLimit);
    takeOutput();
    return isGone;
}

void CToolWait::endWait(EEnd end)
{
    if (m_hasEnded)
        return;
    m_end = end;
    m_hasEnded = true;
    if (m_isShared)
        m_loop.quit();
    else if (m_box)
        m_box->done(QDialog::Accepted);
}

void CToolWait::takeOutput()
{
    // All is read and little is kept: nothing piles up, and the tool never waits for us.
    m_output.append(
        m_process->readAllStandardOutput().left(CToolRunner::MaxOutput - m_output.size()));
}

} // namespace

CToolRunner::CToolRunner(int timeLimit, QProgressDialog *box) : m_timeLimit(timeLimit), m_box(box)
{
}

QString CToolRunner::run(const SToolCall &call) const
{
    const QString program = withoutQuotes(call.program);
    const QString name = QFileInfo(program).completeBaseName();
    CToolProcess process;
    process.setWorkingDirectory(call.workingFolder);
    process.setProcessEnvironment(environmentFor(program));
    process.setStandardInputFile(QProcess::nullDevice()); // else a tool that asks would never end
    process.setProcessChannelMode(QProcess::MergedChannels);

    const QPointer<QMessageBox> own =
        m_box ? nullptr : makeBox(tr("Converting Image"), tr("Running tool ") + name);
    CToolWait wait(&process, m_box ? static_cast<QDialog *>(m_box) : own);
    const bool isGone = wait.run(program, call.arguments, m_timeLimit);
    delete own;
    if (!isGone)
        return tr("%1 cannot be ended").arg(name);

    switch (wait.end()) {
    case CToolWait::EEnd::Cancelled:
        return tr("%1 was cancelled").arg(name);
    case CToolWait::EEnd::TimedOut:
        return tr("%1 did not end in time").arg(name);
    case CToolWait::EEnd::NotStarted:
        return tr("%1 cannot be started").arg(program);
    case CToolWait::EEnd::Ended:
        break;
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return {};
    const QString words = QString::fromUtf8(wait.output()).trimmed();
    return words.isEmpty() ? tr("%1 failed").arg(name) : words;
}
