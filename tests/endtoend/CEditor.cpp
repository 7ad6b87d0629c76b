#include "CEditor.h"

#include "CDisplay.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QTest>

namespace {
constexpr int PatientTime = 60'000; // ms; on a machine that does much else
constexpr int ClickTime = 1'000;    // ms, after which it is clicked again

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QDomNodeList elements(const QString &path, const char *kind)
{
    QFile file(path);
    QDomDocument document;
    if (file.open(QIODevice::ReadOnly))
        document.setContent(&file);
    return document.elementsByTagName(QLatin1String(kind));
}
} // namespace

CEditor::CEditor(CDisplay *display, const QByteArray &project, const QByteArray &settings)
    : m_display(display)
{
    // The program writes its settings beside itself; links would lead it to the build's folder.
    const QDir bin(qEnvironmentVariable("KIV_BIN_DIR"));
    for (const char *name : {"panel-composer", "libQxKivEmuLib.so"})
        QVERIFY(
            QFile::copy(bin.filePath(QLatin1String(name)), m_folder.filePath(QLatin1String(name))));
    for (const char *name : {"widget-library.xml", "kiv_render.lua", "examples"})
        QVERIFY(
            QFile::link(bin.filePath(QLatin1String(name)), m_folder.filePath(QLatin1String(name))));
    write(m_folder.filePath(QStringLiteral("config.ini")), "[General]\n" + settings + '\n');
    write(projectFile(), project);

    QProcessEnvironment environment = display->environment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_folder.filePath(QStringLiteral("data")));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(PLUGINS));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("endtoendprobe"));
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    start();
    activate();
}

void CEditor::start()
{
    m_process.start(m_folder.filePath(QStringLiteral("panel-composer")), {projectFile()});
    QVERIFY(m_process.waitForStarted(PatientTime));
}

void CEditor::kill()
{
    m_process.kill();
    QVERIFY(m_process.waitForFinished(PatientTime));
}

CEditor::~CEditor()
{
    m_process.terminate();
    if (!m_process.waitForFinished(PatientTime))
        m_process.kill();
}

void CEditor::activate()
{
    const QStringList activation = {QStringLiteral("search"),
                                    QStringLiteral("--all"),
                                    QStringLiteral("--onlyvisible"),
                                    QStringLiteral("--pid"),
                                    QString::number(m_process.processId()),
                                    QStringLiteral("--name"),
                                    QStringLiteral(" for QX"),
                                    QStringLiteral("windowactivate")};
    QVERIFY(QTest::qWaitFor([&] { return m_display->hands(activation); }, PatientTime));
    QTRY_COMPARE_WITH_TIMEOUT(ask(QStringLiteral("active")), QStringLiteral("yes"), PatientTime);
}

QString CEditor::ask(const QString &question)
{
    m_process.write(question.toUtf8() + '\n');
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(PatientTime)) {
            QTest::qFail(qPrintable("no answer to: " + question), __FILE__, __LINE__);
            return {};
        }
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

QPoint CEditor::place(const QString &question)
{
    QString found;
    const bool isSeen = QTest::qWaitFor(
        [&] {
            found = ask(question);
            return found != QLatin1String("none");
        },
        PatientTime);
    if (!isSeen)
        QTest::qFail(qPrintable("not to be seen: " + question), __FILE__, __LINE__);
    return {found.section(QLatin1Char(' '), 0, 0).toInt(),
            found.section(QLatin1Char(' '), 1).toInt()};
}

QPoint CEditor::scene(int x, int y)
{
    return place(QStringLiteral("scene %1 %2").arg(x).arg(y));
}

void CEditor::focus(const QString &question, const char *widgetClass)
{
    const auto isThere = [&] { return ask(QStringLiteral("focus")) == QLatin1String(widgetClass); };
    const auto clickThere = [&] {
        m_display->click(place(question));
        return QTest::qWaitFor(isThere, ClickTime);
    };
    QVERIFY2(QTest::qWaitFor(clickThere, PatientTime), widgetClass);
}

void CEditor::clickAway(const QString &question)
{
    place(question);
    const auto isGone = [&] { return ask(question) == QLatin1String("none"); };
    const auto clickThere = [&] {
        if (!isGone())
            m_display->click(place(question));
        return QTest::qWaitFor(isGone, ClickTime);
    };
    QVERIFY2(QTest::qWaitFor(clickThere, PatientTime), qPrintable(question));
}

void CEditor::picture(const char *name)
{
    QVERIFY(QDir().mkpath(QStringLiteral(PICTURES)));
    QCOMPARE(ask(QStringLiteral("picture " PICTURES "/") + QLatin1String(name)),
             QStringLiteral("yes"));
}

void CEditor::quit()
{
    activate();
    m_display->key("ctrl+q");
    QVERIFY(m_process.waitForFinished(PatientTime));
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_process.exitCode(), 0);
}

QString CEditor::saved(const char *kind, const QStringList &attributes, int n) const
{
    const QDomElement element = elements(projectFile(), kind).at(n).toElement();
    QStringList values;
    for (const QString &each : attributes)
        values.append(element.attribute(each));
    return values.join(QLatin1Char(' '));
}

int CEditor::savedCount(const char *kind) const
{
    return elements(projectFile(), kind).size();
}
