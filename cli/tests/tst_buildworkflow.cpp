#include "TestFiles.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

/// The workflow of docs/in-your-build.md, run line by line as it stands there.
class tst_BuildWorkflow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLineRuns();

private:
    int run(const QString &line, QByteArray *output = nullptr) const;
    /// The commands of the document's code blocks of that language.
    static QStringList commands(const QByteArray &document, const char *language);

    QTemporaryDir m_folder;
};

int tst_BuildWorkflow::run(const QString &line, QByteArray *output) const
{
    QProcess shell;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH",
                       qEnvironmentVariable("KIV_BIN_DIR") + ':' + environment.value("PATH"));
    shell.setProcessEnvironment(environment);
    shell.setWorkingDirectory(m_folder.path());
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start("sh", {"-c", line});
    if (!shell.waitForFinished(60000))
        return -1;
    if (output)
        *output = shell.readAll();
    return shell.exitCode();
}

QStringList tst_BuildWorkflow::commands(const QByteArray &document, const char *language)
{
    QStringList lines;
    bool isInside = false;
    for (const QByteArray &line : document.split('\n')) {
        if (line.startsWith("```"))
            isInside = line == QByteArray("```") + language;
        else if (isInside && (line.startsWith("      ") || !line.startsWith(' ')) &&
                 line.trimmed() != "steps:")
            lines.append(QString::fromUtf8(line.trimmed()));
    }
    return lines;
}

void tst_BuildWorkflow::everyLineRuns()
{
    const QString sources = qEnvironmentVariable("KIV_SOURCE_DIR");
    const QByteArray document = TestFiles::read(sources + "/docs/in-your-build.md");
    QCOMPARE(run("cp -r '" + sources +
                 "/examples/thermostat' panel && mv panel/thermostat.nyx "
                 "panel/panel.nyx && git init -q . && printf '*.nyx "
                 "diff=nyx\\n' > .gitattributes"),
             0);
    const QStringList workflow = commands(document, "yaml");
    QCOMPARE(workflow.size(), 4);
    const QStringList shell = commands(document, "sh");
    QCOMPARE(shell.size(), 4);
    for (const QString &line : shell)
        QCOMPARE(run(line), 0);
    QByteArray told;
    for (const QString &line : workflow)
        QVERIFY2(run(line, &told) == 0, told);
    for (const char *file :
         {"panel.sarif", "findings.json", "budget.json", "report.json", "package/panel.bin"})
        QVERIFY2(QFile::exists(m_folder.filePath("out/") + file), file);

    // A change that nobody accepted stops the build at the third step.
    QCOMPARE(run("git add . && git -c user.name=t -c user.email=t@t commit -qm one"), 0);
    QCOMPARE(
        run("sed -i 's/selected=\"0\" font=\"26\"/selected=\"1\" font=\"26\"/' panel/panel.nyx"),
        0);
    QCOMPARE(run(workflow[0]) + run(workflow[1]), 0);
    QCOMPARE(run(workflow[2]), 1);
    QVERIFY(QFile::exists(m_folder.filePath("out/failed/Home.diff.png")));
    QCOMPARE(run("git difftool -y -t nyx", &told), 0);
    QVERIFY2(told.contains("selected: \"0\" -> \"1\""), told);
}

QTEST_GUILESS_MAIN(tst_BuildWorkflow)
#include "tst_buildworkflow.moc"
