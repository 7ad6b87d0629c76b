#include "CDisplay.h"

#include <QStandardPaths>
#include <QTest>

namespace {
constexpr int StartTime = 60'000; // ms; far more than it takes
constexpr int Steps = 10;         // of a movement

void end(QProcess *process)
{
    process->terminate();
    if (!process->waitForFinished(StartTime))
        process->kill();
}

QStringList placed(const QPoint &place)
{
    return {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())};
}
} // namespace

CDisplay::~CDisplay()
{
    end(&m_windowManager);
    end(&m_server);
}

QString CDisplay::start()
{
    for (const char *program : {"Xvfb", "openbox", "xdotool"}) {
        if (QStandardPaths::findExecutable(QLatin1String(program)).isEmpty())
            return QStringLiteral("%1 is not installed").arg(QLatin1String(program));
    }
    m_server.start(QStringLiteral("Xvfb"),
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                    QStringLiteral("0"), QStringLiteral("1600x1000x24"), QStringLiteral("-noreset"),
                    QStringLiteral("-nolisten"), QStringLiteral("tcp")});
    while (!m_server.canReadLine()) {
        if (!m_server.waitForReadyRead(StartTime))
            return QStringLiteral("Xvfb does not start: ") +
                   QString::fromLocal8Bit(m_server.readAllStandardError());
    }
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert(QStringLiteral("DISPLAY"),
                         QLatin1Char(':') + QString::fromLatin1(m_server.readLine().trimmed()));
    m_environment.insert(QStringLiteral("HOME"), m_home.path());
    m_environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    for (const char *name : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "QT_SCALE_FACTOR"})
        m_environment.remove(QLatin1String(name));
    m_windowManager.setProcessEnvironment(m_environment);
    m_windowManager.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
    // It answers for the window manager, so it fails until there is one.
    if (!QTest::qWaitFor([this] { return hands({QStringLiteral("get_num_desktops")}); }, StartTime))
        return QStringLiteral("openbox does not start");
    return {};
}

bool CDisplay::hands(const QStringList &arguments)
{
    QProcess xdotool;
    xdotool.setProcessEnvironment(m_environment);
    xdotool.start(QStringLiteral("xdotool"), arguments);
    return xdotool.waitForFinished(StartTime) && xdotool.exitStatus() == QProcess::NormalExit &&
           xdotool.exitCode() == 0;
}

void CDisplay::click(const QPoint &place, int button)
{
    m_pointer = place;
    hands(placed(place) + QStringList{QStringLiteral("click"), QString::number(button)});
}

void CDisplay::press(const QPoint &place)
{
    m_pointer = place;
    hands(placed(place) + QStringList{QStringLiteral("mousedown"), QStringLiteral("1")});
}

void CDisplay::moveTo(const QPoint &place)
{
    QStringList steps;
    for (int step = 1; step <= Steps; ++step)
        steps += placed(m_pointer + (place - m_pointer) * step / Steps) +
                 QStringList{QStringLiteral("sleep"), QStringLiteral("0.01")};
    m_pointer = place;
    hands(steps);
}

void CDisplay::release()
{
    hands({QStringLiteral("mouseup"), QStringLiteral("1")});
}

void CDisplay::drag(const QPoint &from, const QPoint &to)
{
    press(from);
    moveTo(to);
    release();
}

void CDisplay::key(const char *name)
{
    hands({QStringLiteral("key"), QLatin1String(name)});
}

void CDisplay::type(const char *text)
{
    hands({QStringLiteral("type"), QLatin1String(text)});
}
