#include "CEmulatorAdapter.h"
#include "CEmulatorSession.h"
#include "CFakeEmulator.h"
#include "CFrameRequest.h"
#include "CModelIterator.h"
#include "CPlatformTable.h"
#include "TestFiles.h"
#include "TestProject.h"
#include "executor/ChipLimits.h"

#include <QTemporaryDir>
#include <QtTest>

#include <map>
#include <memory>

/// Drives the adapter with a script of events such as "fg A" (a foreground request for screen A)
/// and compares what reaches the library and what is told as signals, in one log.
class tst_EmulatorAdapter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TestFiles::write(m_folder.filePath("kiv_render.lua"), ""); }

    void init()
    {
        m_onFrame = {};
        m_iterators.clear();
        m_project = testProject({"A", "B", "C", "D"});
        CFakeEmulator::instance().reset([this](const QString &call) { m_log.append(call); });
        QVERIFY(m_adapter->registerEmulator(m_folder.filePath("kiv_render.lua")));
        m_adapter->followProject(m_project.get());
        m_log.clear();

        m_receiver = std::make_unique<QObject>();
        using Adapter = CEmulatorAdapter;
        connect(m_adapter, &Adapter::emulatorFrameCallback, m_receiver.get(),
                [this](bool output, const QPixmap &pixmap, uint32_t width, uint32_t height,
                       void *observer, size_t ramDl) {
                    tell(output ? "frame" : "frame of the background", observer);
                    m_pixmap = pixmap.toImage();
                    m_told.width = width;
                    m_told.height = height;
                    m_told.ramDl = ramDl;
                    if (const FrameHook hook = std::exchange(m_onFrame, {}))
                        hook();
                });
        connect(m_adapter, &Adapter::emulatorBackgroundFrameCallback, m_receiver.get(),
                [this](bool output, const argb8888 *buffer, uint32_t width, uint32_t height,
                       void *observer, size_t ramDl) {
                    tell(output ? "bgframe of the foreground" : "bgframe", observer);
                    m_pixels.resize(int(width * height));
                    std::copy_n(buffer, m_pixels.size(), m_pixels.begin());
                    m_told.width = width;
                    m_told.height = height;
                    m_told.ramDl = ramDl;
                });
        const auto list = [this](const char *signal) {
            return [this, signal](const QString &text, const QByteArray &bytes, void *observer,
                                  size_t ramG, char *errors) {
                tell(signal, observer);
                m_toldText = text;
                m_told.bytes = bytes;
                m_told.ramG = ramG;
                m_told.errors = errors;
            };
        };
        connect(m_adapter, &Adapter::emulatorFrameDLCallback, m_receiver.get(), list("dl"));
        connect(m_adapter, &Adapter::emulatorBackgroundFrameDLCallback, m_receiver.get(),
                list("bgdl"));
    }

    void cleanup()
    {
        m_receiver.reset();
        m_adapter->emulatorStop();
        QCoreApplication::processEvents();
    }

    void ignoresRequestsUntilRegistered()
    {
        QVERIFY(!m_adapter->registerEmulator(m_folder.filePath("missing.lua")));
        QVERIFY(!m_adapter->registerEmulator(m_folder.path())); // a folder is no script
        run("fg A");
        run("bg B");
        QCOMPARE(m_log, QStringList());
        QVERIFY(!m_adapter->isBusy());
    }

    void queueRules_data()
    {
        QTest::addColumn<QString>("events");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *fact, const char *events, const char *expected) {
            QTest::newRow(fact) << QString::fromLatin1(events) << QString::fromLatin1(expected);
        };

        row("list before frame, each with its observer", "fg A; answer; bg B; answer",
            "render fg A; dl A; frame A; render bg B; bgdl B; bgframe B");
        row("of parked foreground requests the newest survives",
            "fg A; fg B; fg C; fg D; answer; answer",
            "render fg A; dl A; frame A; render fg D; dl D; frame D");
        row("parked background goes before parked foreground, in order",
            "bg A; fg B; bg C; bg D; answer; answer; answer; answer",
            "render bg A; bgdl A; bgframe A; render bg C; bgdl C; bgframe C; "
            "render bg D; bgdl D; bgframe D; render fg B; dl B; frame B");
        row("background parked behind foreground loses its mark",
            "fg A; bg B; bg C; answer; answer; answer",
            "render fg A; dl A; frame A; render bg B; dl B; bgframe B; render bg C; dl C; bgframe "
            "C");
        row("background parked behind background keeps it", "bg A; bg B; answer; answer",
            "render bg A; bgdl A; bgframe A; render bg B; bgdl B; bgframe B");
        row("the mark ends with the queue", "bg A; fg B; answer; bg C; answer; answer",
            "render bg A; bgdl A; bgframe A; render fg B; dl B; frame B; render bg C; dl C; "
            "bgframe C");
        row("an idle adapter marks again", "fg A; bg B; answer; answer; bg C; answer",
            "render fg A; dl A; frame A; render bg B; dl B; bgframe B; render bg C; bgdl C; "
            "bgframe C");
        row("background requests are never merged", "fg A; bg B; bg B; answer; answer; answer",
            "render fg A; dl A; frame A; render bg B; dl B; bgframe B; render bg B; dl B; bgframe "
            "B");
        row("a partial frame is not told and ends nothing",
            "fg A; fg B; partial; partial; answer; answer",
            "render fg A; dl A; frame A; render fg B; dl B; frame B");

        row("without an observer the list is dropped, the frame told", "fg A anonymous; answer",
            "render fg A; frame null");
        row("a parked request without an observer is none", "fg A; fg B anonymous; answer; fg C",
            "render fg A; dl A; frame A; render fg C");

        row("stopping drops late answers and what is parked",
            "fg A; bg B; fg C; answer unseen; stop; fg D; answer",
            "render fg A; emu stop; render fg D; dl D; frame D");
        row("stopping between list and frame", "bg A; list; stop; fg B; answer",
            "render bg A; bgdl A; emu stop; render fg B; dl B; frame B");
        row("stopping from within an answer", "fg A; fg B; onframe stop; answer; fg C; answer",
            "render fg A; dl A; frame A; emu stop; render fg C; dl C; frame C");
        row("a request after stopping from within an answer is the one in flight",
            "fg A; onframe stop+fg B; answer; fg C; answer; answer",
            "render fg A; dl A; frame A; emu stop; render fg B; dl B; frame B; render fg C; dl C; "
            "frame C");
        row("starting while busy stops first", "fg A; fg B; answer unseen; start 257; fg C; answer",
            "render fg A; emu stop; emu start SCRIPT 257; render fg C; dl C; frame C");
        row("a request from within an answer is parked", "fg A; bg B; onframe fg C; answer; answer",
            "render fg A; dl A; frame A; render bg B; dl B; bgframe B; render fg C");

        row("a parked screen that is removed", "fg A; fg B; remove B; answer; fg C",
            "render fg A; dl A; frame A; render fg C");
        row("another screen that is removed", "fg A; fg B; remove A; remove C; answer; answer",
            "render fg A; dl A; frame A; render fg B; dl B; frame B");
        row("the project goes with a parked screen", "fg A; fg B; close; answer",
            "render fg A; dl A; frame A");
        row("a requester goes with its queued requests",
            "fg A; bg B; bg C; bg B; fg B; withdraw B; answer; answer",
            "render fg A; dl A; frame A; render bg C; dl C; bgframe C");
        row("a requester goes while its request is in flight",
            "bg A; bg B; withdraw A; answer; answer",
            "render bg A; render bg B; bgdl B; bgframe B");
        row("a requester goes after its list", "fg A; list; withdraw A; bg B; answer; answer",
            "render fg A; dl A; render bg B; dl B; bgframe B");
    }

    void queueRules()
    {
        QFETCH(QString, events);
        QFETCH(QString, expected);
        expected.replace(QLatin1String("SCRIPT"), m_folder.filePath("kiv_render.lua"));
        for (const QString &event : events.split("; "))
            run(event);
        QCOMPARE(m_log.join("; "), expected);
    }

    /// Many wishes are one request; what was taken back, or is another's, is not told.
    void aFrameRequestIsForOneRequester()
    {
        auto request = std::make_unique<CFrameRequest>();
        QSignalSpy frames(request.get(), &CFrameRequest::frameTaken);
        const auto turn = [&request] { QCoreApplication::sendPostedEvents(request.get()); };
        request->askSoon(screen("A"));
        request->askSoon(screen("B"));
        QVERIFY(m_log.isEmpty());
        turn();
        run("answer");
        QCOMPARE(m_log.join("; "), "render fg B; dl ?; frame ?");
        QCOMPARE(frames.count(), 1);
        QCOMPARE(frames.first().at(0).value<QPixmap>().isNull(), false);
        run("fg C");
        run("answer");
        QCOMPARE(frames.count(), 1);

        m_log.clear();
        request->askSoon(screen("A"));
        request->withdraw();
        turn();
        QVERIFY(m_log.isEmpty());
        connect(request.get(), &CFrameRequest::aboutToAsk, request.get(), &CFrameRequest::withdraw);
        request->askSoon(screen("A"));
        turn();
        QVERIFY(m_log.isEmpty());
        request->ask(screen("A"));
        request->withdraw();
        run("answer");
        QCOMPARE(m_log.join("; "), "render fg A");
        request->ask(screen("A"));
        request.reset();
        run("answer");
        QCOMPARE(m_log.join("; "), "render fg A; render fg A");
        QCOMPARE(frames.count(), 1);
    }

    void passesValuesOn()
    {
        CFakeEmulator::SAnswer answer;
        answer.text = "TEXT(\"\xB0\");";
        answer.bytes = QByteArray("\0\1;\0", 4);
        answer.ramG = 0x1'0000'0001;
        answer.errors = "Kiv_Text_T 7: no such font";
        // Each pixel another colour: a wrong stride, order of rows or of channels shows.
        const QVector<argb8888> pixels = {0x80000001, 0xFF000200, 0xFF030000,
                                          0xFF040506, 0xFF070809, 0xFF0A0B0C};
        for (const char *request : {"fg A", "bg A"}) {
            run(QString::fromLatin1(request));
            QVERIFY(CFakeEmulator::instance().answerDisplayList(answer));
            QVERIFY(CFakeEmulator::instance().answerPixels(pixels, 3, 2, 1, 1234));
            QCoreApplication::sendPostedEvents(m_adapter);
            QCOMPARE(m_toldText, QStringLiteral("TEXT(\"\u00B0\");"));
            QCOMPARE(m_told.bytes, answer.bytes);
            QCOMPARE(m_told.ramG, answer.ramG);
            QCOMPARE(m_told.errors, answer.errors);
            QCOMPARE(QSize(int(m_told.width), int(m_told.height)), QSize(3, 2));
            QCOMPARE(m_told.ramDl, size_t{1234});
            m_told = {};
        }
        QCOMPARE(m_pixels, pixels); // of the background, as it came
        QCOMPARE(m_pixmap.size(), QSize(3, 2));
        for (int i = 0; i < pixels.size(); ++i)
            QCOMPARE(m_pixmap.pixel(i % 3, i / 3), pixels[i] | 0xFF000000); // alpha does not count
        QCOMPARE(m_log.join("; "),
                 QString("render fg A; dl A; frame A; render bg A; bgdl A; bgframe A"));
    }

    void emptyAnswersCompleteTheRequest()
    {
        for (const QSize &size : {QSize(0, 272), QSize(480, 0), QSize()}) {
            run("fg A");
            CFakeEmulator::SAnswer empty;
            empty.width = uint32_t(size.width());
            empty.height = uint32_t(size.height());
            const bool nulls = !size.isValid(); // null pointers are read as empty, too
            m_toldText = "unread";
            QVERIFY(nulls ? CFakeEmulator::instance().answerNulls()
                          : CFakeEmulator::instance().answer(empty));
            QCoreApplication::sendPostedEvents(m_adapter);
            QVERIFY(m_pixmap.isNull() && !m_adapter->isBusy());
            QVERIFY(!nulls || (m_toldText.isEmpty() && m_told.bytes.isEmpty()));
            QCOMPARE(m_told.errors, QByteArray());
            QCOMPARE(m_log.join("; "), QString("render fg A; dl A; frame A"));
            m_log.clear();
        }
    }

    /// Which calls of the library the life of a project brings.
    void restartsOnlyForAnotherChip()
    {
        CEmulatorSession session(m_adapter);
        const std::tuple<QString, QString, QString> cases[] = {
            {PropertyKey::Platform, "QX101",
             "emu stop, told, emu start SCRIPT 257, emu config 480 272"},
            {PropertyKey::Platform, "unknown",
             "emu config 480 272"}, // another name of the same chip
            {PropertyKey::Width, "320", "emu config 320 272"},
        };
        for (const auto &[key, value, expected] : cases) {
            const auto project = testProject({"A"}, "QX100");
            session.open(project.get());
            m_log.clear();
            project->setProjectProperties({{key, value}});
            const bool restarted =
                session.applyOptions(project.get(), [this] { m_log.append("told"); });
            QCOMPARE(m_log.join(", ").replace(m_folder.filePath("kiv_render.lua"), "SCRIPT"),
                     expected);
            QCOMPARE(restarted, expected.contains("start"));
        }
        m_log.clear();
        session.close();
        QCOMPARE(m_log, QStringList("emu stop"));
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
        // The table, the emulator and the documentation say the same of a chip.
        const QByteArray page =
            TestFiles::read(qEnvironmentVariable("KIV_SOURCE_DIR") + "/docs/chips.md");
        for (const QString &name : table.platforms()) {
            const kivemu::SChipLimits chip = kivemu::chipLimits(CPlatformTable::chipCode(name));
            QCOMPARE(size_t{CPlatformTable::ramGBudget(name)}, chip.ramG);
            QCOMPARE(size_t{CPlatformTable::ramDlBudget(name)}, chip.ramDl);
            QCOMPARE(table.largestSize(name).width(), int(chip.maxSide));
            const QString row = QStringLiteral("| %1 | 0x%2 | %3 | %4 | %5 x %5 | -%5 to %5 |\n")
                                    .arg(name, name.mid(2))
                                    .arg(chip.ramG)
                                    .arg(chip.ramDl)
                                    .arg(chip.maxSide);
            QVERIFY2(page.contains(row.toUtf8()), qPrintable(row));
        }
        for (const uint32_t unknown : {0U, 0x102U, 0x10FU, 0x114U, 0xFFFFFFFFU})
            QCOMPARE(kivemu::chipLimits(unknown).ramDl, kivemu::chipLimits(0x100).ramDl);
    }

private:
    using FrameHook = std::function<void()>;

    /// Runs one event; all but "… unseen" let the adapter see what was posted to it.
    void run(const QString &event)
    {
        CFakeEmulator &fake = CFakeEmulator::instance();
        const QStringList words = event.split(' ');
        const QString &verb = words[0];
        const QString name = words.value(1);
        if (verb == "fg") {
            m_adapter->renderForeground(screen(name),
                                        words.contains("anonymous") ? nullptr : observer(name));
        } else if (verb == "bg") {
            const auto made =
                m_iterators.emplace(name, std::make_unique<CModelIterator>(screen(name)));
            m_adapter->renderBackground(made->second.get(), observer(name));
        } else if (verb == "answer") {
            QVERIFY2(fake.answer(), "nothing to answer");
        } else if (verb == "list") {
            QVERIFY2(fake.answerDisplayList(), "nothing to answer");
        } else if (verb == "partial") {
            QVERIFY2(fake.answerFrame({}, 0xFFFFFFFE), "nothing to answer");
        } else if (verb == "stop") {
            m_adapter->emulatorStop();
        } else if (verb == "start") {
            m_adapter->emulatorStart(name.toUInt());
        } else if (verb == "remove") {
            m_project->removeRow(screen(name)->row());
        } else if (verb == "close") {
            m_project.reset();
        } else if (verb == "withdraw") {
            m_adapter->withdraw(observer(name));
            m_iterators.erase(name);
        } else if (verb == "onframe") {
            m_onFrame = [this, then = event.mid(8)] {
                for (const QString &each : then.split('+'))
                    run(each);
            };
        } else {
            QFAIL(qPrintable(event));
        }
        if (!words.contains("unseen"))
            QCoreApplication::sendPostedEvents(m_adapter);
    }

    CScreenModel *screen(const QString &name) const
    {
        const QList<QStandardItem *> found = m_project->findItems(name);
        return found.isEmpty() ? nullptr : static_cast<CScreenModel *>(found.first());
    }

    void *observer(const QString &name) { return &m_observers[name]; }

    QString nameOf(void *observer) const
    {
        for (const auto &[name, address] : m_observers)
            if (observer == &address)
                return name;
        return observer ? QStringLiteral("?") : QStringLiteral("null");
    }

    void tell(const char *signal, void *observer)
    {
        m_log.append(QLatin1String(signal) + QLatin1Char(' ') + nameOf(observer));
    }

    QTemporaryDir m_folder;
    CEmulatorAdapter *m_adapter = CEmulatorAdapter::instance();
    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<QObject> m_receiver; ///< its end cuts the connections of one test
    std::multimap<QString, std::unique_ptr<CModelIterator>> m_iterators; ///< by requester
    std::map<QString, int> m_observers; ///< by screen; only the addresses matter
    QStringList m_log;
    SFakeAnswer m_told; ///< what the last signals said, but for these:
    QString m_toldText;
    QImage m_pixmap;
    QVector<argb8888> m_pixels;
    FrameHook m_onFrame; ///< run once, within the next frame signal
};

QTEST_MAIN(tst_EmulatorAdapter)
#include "tst_emulatoradapter.moc"
