#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CFakeEmulator.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "PropertyKey.h"
#include "TestProject.h"

#include <QTemporaryDir>
#include <QtTest>

/// Which calls of the library the life of a project brings.
class tst_EmulatorSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void startsWithChipAndSize_data();
    void startsWithChipAndSize();
    void restartsOnlyForAnotherChip_data();
    void restartsOnlyForAnotherChip();
    void closingStops();
    void removedScreensAreForgotten();
    void tellsMissingProgramData();

private:
    QTemporaryDir m_folder;
    QStringList m_calls;
    CEmulatorAdapter *m_adapter = CEmulatorAdapter::instance();
    CEmulatorSession m_session{m_adapter};
};

void tst_EmulatorSession::init()
{
    QFile script(m_folder.filePath(QStringLiteral("kiv_render.lua")));
    QVERIFY(script.open(QIODevice::WriteOnly));
    QCOMPARE(CProgramData(m_folder.path()).registerEmulator(), QString());
    m_adapter->emulatorStop();
    m_calls.clear();
    CFakeEmulator::instance().reset([this](const QString &call) {
        m_calls.append(QString(call).remove(m_folder.path() + QLatin1Char('/')));
    });
}

void tst_EmulatorSession::startsWithChipAndSize_data()
{
    QTest::addColumn<int>("code");
    QTest::newRow("QX100") << 256;
    QTest::newRow("QX113") << 275;
    QTest::newRow("ABC") << 256;
    QTest::newRow("QX1ZZ") << 0;
}

void tst_EmulatorSession::startsWithChipAndSize()
{
    QFETCH(int, code);
    const auto project =
        testProject({QStringLiteral("A")}, QString::fromLatin1(QTest::currentDataTag()));
    m_session.open(project.get());
    QCOMPARE(m_calls, QStringList({QStringLiteral("emu start kiv_render.lua %1").arg(code),
                                   QStringLiteral("emu config 480 272")}));
}

void tst_EmulatorSession::restartsOnlyForAnotherChip_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("another chip")
        << PropertyKey::Platform << QStringLiteral("QX101")
        << QStringLiteral("emu stop, told, emu start kiv_render.lua 257, emu config 480 272");
    QTest::newRow("another name of the same chip")
        << PropertyKey::Platform << QStringLiteral("unknown")
        << QStringLiteral("emu config 480 272");
    QTest::newRow("another size") << PropertyKey::Width << QStringLiteral("320")
                                  << QStringLiteral("emu config 320 272");
}

void tst_EmulatorSession::restartsOnlyForAnotherChip()
{
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(QString, expected);
    const auto project = testProject({QStringLiteral("A")}, QStringLiteral("QX100"));
    m_session.open(project.get());
    m_calls.clear();
    project->setProjectProperties({{key, value}});
    const bool restarted =
        m_session.applyOptions(project.get(), [this] { m_calls.append(QStringLiteral("told")); });
    QCOMPARE(m_calls.join(QStringLiteral(", ")), expected);
    QCOMPARE(restarted, expected.contains(QLatin1String("start")));
}

void tst_EmulatorSession::closingStops()
{
    m_session.close();
    QCOMPARE(m_calls, QStringList(QStringLiteral("emu stop")));
}

void tst_EmulatorSession::removedScreensAreForgotten()
{
    const auto project = testProject({QStringLiteral("A"), QStringLiteral("B")});
    m_session.open(project.get());
    m_calls.clear();
    int observer = 0;
    m_adapter->renderForeground(project->screen(0), &observer);
    m_adapter->renderForeground(project->screen(1), &observer);
    project->removeRow(1);
    QVERIFY(CFakeEmulator::instance().answer());
    QCoreApplication::sendPostedEvents(m_adapter);
    QCOMPARE(m_calls, QStringList(QStringLiteral("render fg A")));
    QVERIFY(!m_adapter->isBusy());
}

void tst_EmulatorSession::tellsMissingProgramData()
{
    const QTemporaryDir empty;
    const CProgramData data(empty.path());
    QVERIFY(data.registerEmulator().contains(empty.filePath(QStringLiteral("kiv_render.lua"))));
    QVERIFY(data.loadWidgetLibrary().contains(QStringLiteral("widget-library.xml")));
}

QTEST_MAIN(tst_EmulatorSession)
#include "tst_emulatorsession.moc"
