#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CFakeEmulator.h"
#include "CPlatformTable.h"
#include "CProgramData.h"
#include "TestProject.h"

#include <QTemporaryDir>
#include <QtTest>

/// Which calls of the library the life of a project brings, and what platforms there are.
class tst_EmulatorSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QFile script(m_folder.filePath("kiv_render.lua"));
        QVERIFY(script.open(QIODevice::WriteOnly));
        QCOMPARE(CProgramData(m_folder.path()).registerEmulator(), QString());
        m_adapter->emulatorStop();
        m_calls.clear();
        CFakeEmulator::instance().reset([this](const QString &call) {
            m_calls.append(QString(call).remove(m_folder.path() + QLatin1Char('/')));
        });
    }

    void restartsOnlyForAnotherChip()
    {
        const std::tuple<QString, QString, QString> cases[] = {
            {PropertyKey::Platform, "QX101",
             "emu stop, told, emu start kiv_render.lua 257, emu config 480 272"},
            {PropertyKey::Platform, "unknown",
             "emu config 480 272"}, // another name of the same chip
            {PropertyKey::Width, "320", "emu config 320 272"},
        };
        for (const auto &[key, value, expected] : cases) {
            const auto project = testProject({"A"}, "QX100");
            m_session.open(project.get());
            m_calls.clear();
            project->setProjectProperties({{key, value}});
            const bool restarted =
                m_session.applyOptions(project.get(), [this] { m_calls.append("told"); });
            QCOMPARE(m_calls.join(", "), expected);
            QCOMPARE(restarted, expected.contains("start"));
        }
        m_calls.clear();
        m_session.close();
        QCOMPARE(m_calls, QStringList("emu stop"));
    }

    void tellsMissingProgramData()
    {
        const QTemporaryDir empty;
        const CProgramData data(empty.path());
        QVERIFY(data.registerEmulator().contains(empty.filePath("kiv_render.lua")));
        QVERIFY(data.loadWidgetLibrary().contains("widget-library.xml"));
    }

    void platforms()
    {
        const CPlatformTable table;
        QCOMPARE(table.chipCodes(), (QVector<uint32_t>{0x100, 0x101, 0x110, 0x111, 0x112, 0x113}));
        const QString first = "480 x 272, 320 x 240, 240 x 320, 320 x 480";
        const QString all = first + ", 800 x 480, 800 x 600, 1024 x 768";
        // The name, its chip, its graphics memory, the offered sizes, and the largest side allowed.
        const std::tuple<QString, uint32_t, uint32_t, QString, int> cases[] = {
            {"QX100", 256, 262144, first, 512}, {"QX101", 257, 262144, first, 512},
            {"QX110", 272, 1048576, all, 2048}, {"QX113", 275, 1048576, all, 2048},
            {"QX114", 276, 1048576, "", 0},     {"", 256, 262144, "", 0},
            {"qx110", 256, 262144, "", 0},      {"QX1ZZ", 0, 262144, "", 0},
            {"QX1FFFFFFFF", 0, 262144, "", 0}, // more than 32 bits
            {"MyQX112", 256, 1048576, "", 0},
        };
        for (const auto &[platform, code, memory, sizes, largest] : cases) {
            QStringList texts;
            for (const QSize &size : table.offeredSizes(platform))
                texts.append(CPlatformTable::sizeText(size));
            QCOMPARE(platform + texts.join(", "), platform + sizes);
            QCOMPARE(table.largestSize(platform), QSize(largest, largest));
            QCOMPARE(table.isKnown(platform), largest != 0);
            QCOMPARE(CPlatformTable::chipCode(platform), code);
            QCOMPARE(CPlatformTable::ramGBudget(platform), memory);
        }
    }

private:
    QTemporaryDir m_folder;
    QStringList m_calls;
    CEmulatorAdapter *m_adapter = CEmulatorAdapter::instance();
    CEmulatorSession m_session{m_adapter};
};

QTEST_MAIN(tst_EmulatorSession)
#include "tst_emulatorsession.moc"
