// What is there when a conversion and its tools are killed in front of each of their calls: nothing
// that is torn, nothing without its source, and the next attempt makes what this one should have.
#include "CImageFileConverter.h"
#include "CProjectModel.h"
#include "PropertyKey.h"
#include "TestFiles.h"

#include <QApplication>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {
/// As the editor would; run by a process of its own.
int convert(const QString &folder, const QString &source, const QString &format)
{
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR"));
    CProjectModel project;
    CProjectModel::setCurrent(&project);
    project.setProjectProperty(PropertyKey::ProjectName, "demo");
    project.setWorkingDirectory(folder);
    const bool isConverted = CImageFileConverter().convert(source, format);
    CProjectModel::setCurrent(nullptr);
    return isConverted ? 0 : 1;
}
} // namespace

class tst_KilledConversion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void killedAtEachCall_data();
    void killedAtEachCall();

private:
    QString photo(const char *name) const { return m_photos.filePath(name); }
    /// The exit code; -1 when it was killed. Is not killed at call 0.
    int run(const QString &folder, const QString &source, const QString &format, int killAt) const;

    QTemporaryDir m_photos;
};

int tst_KilledConversion::run(const QString &folder, const QString &source, const QString &format,
                              int killAt) const
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    if (killAt > 0) {
        QFile::remove(photo("count"));
        environment.insert("LD_PRELOAD", KILL_CALLS);
        environment.insert("KIV_KILL_AT", QString::number(killAt));
        environment.insert("KIV_KILL_COUNT", photo("count"));
        environment.insert("ASAN_OPTIONS", "verify_asan_link_order=0");
    }
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"convert", folder, source, format});
    process.waitForFinished();
    return process.exitStatus() == QProcess::CrashExit ? -1 : process.exitCode();
}

void tst_KilledConversion::killedAtEachCall_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("before"); // what was converted already
    const auto row = [](const char *fact, const char *image, const char *as, const char *there) {
        QTest::newRow(fact) << image << as << there;
    };
    row("general tool", "x.png", "L8", "");
    row("two tools", "x.png", "PALETTED8", "");
    row("only copied", "x.raw", "", "");
    row("a namesake is there", "x.png", "DXT1", "y/x.png");
    row("it is there without its source", "x.png", "L8", "x.png");
}

void tst_KilledConversion::killedAtEachCall()
{
    QFETCH(QString, source);
    QFETCH(QString, format);
    QFETCH(QString, before);
    QDir(m_photos.path()).mkdir("y");
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(photo("x.png")));
    image.fill(Qt::blue);
    QVERIFY(image.save(photo("y/x.png")));
    TestFiles::write(photo("x.raw"), "raw");
    source = photo(qPrintable(source));
    const QString copy = before.startsWith("y") ? "x_2.png" : QFileInfo(source).fileName();

    const auto prepare = [&](const QString &folder) {
        if (before.isEmpty())
            return true;
        const bool isDone = run(folder, photo(qPrintable(before)), format, 0) == 0;
        return isDone && (photo(qPrintable(before)) != source ||
                          QFile::remove(folder + "/demo_ConvertedImages/x.png"));
    };
    const QTemporaryDir whole;
    QVERIFY(prepare(whole.path()));
    const auto old = TestFiles::below(whole.path());
    QCOMPARE(run(whole.path(), source, format, 0), 0);
    const auto wanted = TestFiles::below(whole.path());

    int kills = 0;
    for (;; ++kills) {
        const QTemporaryDir folder;
        QVERIFY(prepare(folder.path()));
        const int code = run(folder.path(), source, format, kills + 1);
        if (code == 0)
            break;
        QCOMPARE(code, -1);
        const auto left = TestFiles::below(folder.path());
        bool hasSource = false;
        for (auto each = left.begin(); each != left.end(); ++each) {
            hasSource |= each.key().endsWith('/' + copy);
            const QByteArray name = QByteArray::number(kills + 1) + ' ' + each.key().toUtf8();
            QVERIFY2(!wanted.contains(each.key()) || each.value() == wanted[each.key()], name);
        }
        for (auto each = old.begin(); each != old.end(); ++each)
            QVERIFY(left.value(each.key()) == each.value());
        QVERIFY2(hasSource || left == old || before == "x.png", qPrintable(left.keys().join(' ')));
        QCOMPARE(run(folder.path(), source, format, 0), 0);
        const auto again = TestFiles::below(folder.path());
        if (before != "x.png") // else the attempt at another name may be left
            QCOMPARE(again.keys(), wanted.keys());
        for (auto each = wanted.begin(); each != wanted.end(); ++each)
            QVERIFY2(again.value(each.key()) == each.value(), qPrintable(each.key()));
    }
    QVERIFY2(kills >= 4, "its calls were not met");
    qInfo("killed at each of %d calls", kills);
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == "convert")
        return convert(arguments.value(2), arguments.value(3), arguments.value(4));
    tst_KilledConversion test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_killedconversion.moc"
