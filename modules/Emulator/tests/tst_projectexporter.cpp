#include "CEmulatorAdapter.h"
#include "CFakeEmulator.h"
#include "CModelIterator.h"
#include "CProjectExporter.h"
#include "TestFiles.h"
#include "TestProject.h"

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

using EContent = CProjectExporter::EContent;
using EResult = CProjectExporter::EResult;

/// Exports against the scripted library. The wait step delivers events and sleeps not at all.
class tst_ProjectExporter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void writesBothForms();
    void aProjectWithoutScreensGivesAnEmptyFile();
    void whileAScreenIsWaitedFor_data();
    void whileAScreenIsWaitedFor();
    void patienceBringsASlowScreen();
    void anAnswerEndsTheWaiting();
    void severalScreensAreAskedForAtOnce();
    void theEndOfTheProgramEndsTheExport();
    void doesNotRunTwice();
    void cancellingWritesNothing();
    void aFileThatCannotBeOpenedRendersNothing();

private:
    QByteArray contentOf(const QString &fileName) const
    {
        return TestFiles::read(m_folder->filePath(fileName));
    }
    static QString namesOf(const std::optional<QList<SScreenExport>> &screens);
    static CFakeEmulator::SAnswer answerFor(const CFakeEmulator::SRequest &request);
    void answerNext()
    {
        if (!m_fake.requests().isEmpty())
            m_fake.answer(answerFor(m_fake.requests().first()));
    }
    std::optional<QList<SScreenExport>> collect()
    {
        return m_exporter->collect(m_project.get(), EContent::DisplayLists);
    }

    CFakeEmulator &m_fake = CFakeEmulator::instance();
    CEmulatorAdapter *m_adapter = CEmulatorAdapter::instance();
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CProjectExporter> m_exporter;
    std::function<void(int step)> m_onStep; ///< steps count from 1 on, over all screens
    int m_steps = 0;
    QStringList m_reports;
    QStringList m_calls;
};

CFakeEmulator::SAnswer tst_ProjectExporter::answerFor(const CFakeEmulator::SRequest &request)
{
    static QByteArray text; // lives until the answer is given
    text = "NAME(" + request.screen.toLatin1() + ");END(0);";
    CFakeEmulator::SAnswer answer;
    answer.text = text.constData();
    answer.bytes = request.screen.toLatin1() + QByteArray("\0;\xFF", 3);
    return answer;
}

void tst_ProjectExporter::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    const QString script = m_folder->filePath("kiv_render.lua");
    TestFiles::write(script, "");
    m_project = testProject({"A", "B", "\u00D6"});
    m_reports.clear();
    m_calls.clear();
    m_steps = 0;
    m_onStep = {};
    m_fake.reset([this](const QString &call) { m_calls.append(call); });
    m_fake.setAutoAnswer(&answerFor);
    QVERIFY(m_adapter->registerEmulator(script));
    m_calls.clear();
    m_exporter = std::make_unique<CProjectExporter>(m_adapter);
    m_exporter->setErrorReport([this](const QString &text) { m_reports.append(text); });
    m_exporter->setWaitStep([this] {
        QCoreApplication::processEvents();
        ++m_steps;
        if (m_onStep)
            m_onStep(m_steps);
        return true;
    });
}

void tst_ProjectExporter::cleanup()
{
    m_adapter->emulatorStop();
    m_fake.reset();
}

QString tst_ProjectExporter::namesOf(const std::optional<QList<SScreenExport>> &screens)
{
    QStringList names;
    for (const SScreenExport &screen : screens.value_or(QList<SScreenExport>()))
        names.append(screen.name);
    return names.join(' ');
}

void tst_ProjectExporter::writesBothForms()
{
    const QString dl = m_folder->filePath("p.dl");
    QCOMPARE(m_exporter->exportProjectDL(m_project.get(), dl), EResult::Written);
    QCOMPARE(m_exporter->exportProjectBin(m_project.get(), m_folder->filePath("p.bin")),
             EResult::Written);
    QCOMPARE(contentOf("p.dl"),
             QByteArray("===A===\nNAME(A);\nEND(0);\n\n===B===\nNAME(B);\nEND(0);\n\n"
                        "===\xC3\x96===\nNAME(\xC3\x96);\nEND(0);\n\n"));
    const QByteArray rest("\0;\xFF", 3);
    QCOMPARE(contentOf("p.bin"), "A" + rest + "B" + rest + "\xD6" + rest);
    QCOMPARE(m_reports, QStringList());

    m_project = testProject({"A"}); // a text without semicolon stays as it is
    m_fake.setAutoAnswer([](const CFakeEmulator::SRequest &) {
        CFakeEmulator::SAnswer answer;
        answer.text = "nothing";
        return answer;
    });
    m_exporter->exportProjectDL(m_project.get(), dl);
    QCOMPARE(contentOf("p.dl"), QByteArray("===A===\nnothing\n"));
    QCOMPARE(CProjectExporter::textForm("A===\r\n===B\u2028\u0085\t", "X;"),
             QByteArray("===A===  ===B   ===\nX;\n"));
}

void tst_ProjectExporter::aProjectWithoutScreensGivesAnEmptyFile()
{
    m_project = testProject({});
    for (const QString &name : {QStringLiteral("p.dl"), QStringLiteral("p.bin")}) {
        QCOMPARE(m_exporter->exportProjectDL(m_project.get(), m_folder->filePath(name)),
                 EResult::Written);
        QCOMPARE(contentOf(name), QByteArray());
    }
    QCOMPARE(m_exporter->collect(nullptr, EContent::DisplayLists)->size(), 0);
    QCOMPARE(m_calls, QStringList());
}

void tst_ProjectExporter::whileAScreenIsWaitedFor_data()
{
    QTest::addColumn<QString>("other");   // who has asked for the last screen before
    QTest::addColumn<int>("answersFrom"); // step; 100 of them are a screen's whole time
    QTest::addColumn<QString>("gone");    // at the first step
    QTest::addColumn<QString>("names");   // of the screens that are exported
    QTest::addColumn<QString>("calls");
    QTest::addColumn<int>("reports");
    const auto row = [](const char *fact, const char *other, int answersFrom, const char *gone,
                        const char *names, const char *calls, int reports) {
        QTest::newRow(fact) << other << answersFrom << gone << names << calls << reports;
    };
    row("the canvas' render in flight costs the first screen", "canvas", 1, "", "B Ö",
        "fg Ö, bg A, bg B, bg Ö", 1);
    row("a late answer is not taken for the next screen", "", 101, "", "B Ö", "bg A, bg B, bg Ö",
        1);
    row("another requester's answer is not taken", "thumbnail", 1, "", "A B Ö",
        "bg Ö, bg A, bg B, bg Ö", 0);
    row("a screen goes", "canvas", 1, "A", "B Ö", "fg Ö, bg B, bg Ö", 0);
    row("the project goes", "", 1, "all", "", "bg A", 0);
}

void tst_ProjectExporter::whileAScreenIsWaitedFor()
{
    QFETCH(QString, other);
    QFETCH(int, answersFrom);
    QFETCH(QString, gone);
    int observer = 0;
    m_fake.setAutoAnswer({});
    CModelIterator iterator(m_project->screen(2));
    if (other == "canvas")
        m_adapter->renderForeground(m_project->screen(2), &observer);
    if (other == "thumbnail")
        m_adapter->renderBackground(&iterator, &observer);
    m_onStep = [&](int step) {
        if (step == 1 && gone == "A")
            m_project->removeRow(0);
        if (step == 1 && gone == "all")
            m_project.reset();
        if (step >= answersFrom)
            answerNext();
        QCoreApplication::processEvents(); // the answer, after which the next one would be asked
                                           // for
    };
    const auto screens = collect();
    QVERIFY(screens);
    QTEST(namesOf(screens), "names");
    for (const SScreenExport &screen : *screens)
        QCOMPARE(screen.text, "NAME(" + screen.name + ");\nEND(0);\n");
    QTEST(m_calls.join(", ").remove("render "), "calls");
    QTEST(m_reports.size(), "reports");
}

void tst_ProjectExporter::patienceBringsASlowScreen()
{
    m_fake.setAutoAnswer({});
    m_onStep = [this](int step) {
        if (step > 100)
            answerNext();
    };
    QStringList slow;
    m_exporter->setPatience(2 * CProjectExporter::UsualPatience,
                            [&slow](const QString &screen) { slow.append(screen); });
    QCOMPARE(namesOf(collect()), QString("A B \u00D6"));
    QCOMPARE(slow, QStringList("A"));
    QCOMPARE(m_reports, QStringList());
}

void tst_ProjectExporter::anAnswerEndsTheWaiting()
{
    m_exporter->setWaitStep({});
    QCOMPARE(namesOf(collect()), QString("A B \u00D6"));
    QCOMPARE(m_exporter->idleSteps(), 0);
}

void tst_ProjectExporter::severalScreensAreAskedForAtOnce()
{
    m_fake.setAutoAnswer({});
    m_exporter->setAtOnce(2, [this] {
        m_adapter->emulatorStop();
        m_adapter->emulatorStart(0x110);
    });
    int most = 0;
    m_onStep = [this, &most](int step) {
        most = std::max(most, m_fake.requests().size());
        if (step > 100) // A gives no answer
            answerNext();
    };
    const auto screens = collect();
    QCOMPARE(namesOf(screens), QString("B \u00D6"));
    QCOMPARE(screens->at(0).text, QStringLiteral("NAME(B);\nEND(0);\n"));
    QCOMPARE(most, 2);
    m_calls.replaceInStrings(QRegularExpression("emu start.*"), "emu start");
    QCOMPARE(m_calls, QStringList({"render bg A", "render bg B", "emu stop", "emu start",
                                   "render bg B", "render bg \u00D6"}));
}

void tst_ProjectExporter::theEndOfTheProgramEndsTheExport()
{
    m_fake.setAutoAnswer({});
    m_exporter->setWaitStep({});
    const QString path = m_folder->filePath("p.dl");
    EResult result = EResult::Written;
    QTimer::singleShot(0, this,
                       [&] { result = m_exporter->exportProjectDL(m_project.get(), path); });
    QTimer::singleShot(0, this, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
    QCOMPARE(result, EResult::Cancelled);
    QVERIFY(!QFile::exists(path));
}

void tst_ProjectExporter::doesNotRunTwice()
{
    bool refused = false;
    m_onStep = [this, &refused](int) {
        CProjectExporter second(m_adapter);
        refused =
            second.exportProjectDL(m_project.get(), m_folder->filePath("2.dl")) == EResult::Refused;
    };
    QCOMPARE(collect()->size(), 3);
    QVERIFY(refused);
    QVERIFY(!QFile::exists(m_folder->filePath("2.dl")));
}

void tst_ProjectExporter::cancellingWritesNothing()
{
    QStringList progress;
    m_exporter->setProgress([&progress](int done, int total) {
        progress.append(QString("%1/%2").arg(done).arg(total));
        return done < 2;
    });
    const QString path = m_folder->filePath("p.bin");
    QCOMPARE(m_exporter->exportProjectBin(m_project.get(), path), EResult::Cancelled);
    QCOMPARE(progress.join(QLatin1Char(' ')), QStringLiteral("0/3 1/3 2/3"));
    QVERIFY(!QFile::exists(path));
    m_exporter->setProgress({});
    m_fake.setAutoAnswer({}); // also while a screen is waited for
    m_exporter->setCancelled([this] { return m_steps > 20; });
    QCOMPARE(m_exporter->exportProjectBin(m_project.get(), path), EResult::Cancelled);
    QVERIFY2(m_steps < 30 && !QFile::exists(path), qPrintable(QString::number(m_steps)));
}

void tst_ProjectExporter::aFileThatCannotBeOpenedRendersNothing()
{
    for (const QString &path : {m_folder->path(), m_folder->filePath("kiv_render.lua/p.dl")}) {
        QString error;
        QCOMPARE(m_exporter->exportProjectDL(m_project.get(), path, &error), EResult::NotOpened);
        QVERIFY(!error.isEmpty());
    }
    QCOMPARE(m_calls, QStringList());
    QCOMPARE(m_reports, QStringList());
}

QTEST_MAIN(tst_ProjectExporter)
#include "tst_projectexporter.moc"
