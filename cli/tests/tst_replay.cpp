#include "CModelIterator.h"
#include "CPlatformTable.h"
#include "CProgramData.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "displaylist/CommandTable.h"
#include "displaylist/DisplayListText.h"
#include "executor/CExecutor.h"
#include "host/CLuaHost.h"
#include "host/CSnapshot.h"
#include "raster/CSurface.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace kivemu;

/// What panel-export writes is what the chip would show: the bytes of each screen, executed against
/// its graphics memory, give the picture's pixels, and the text form says the same as the bytes.
class tst_Replay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void budgetsAreTheChips();
    void bytesGiveThePicture_data() { examples(); }
    void bytesGiveThePicture();
    void textAndBytesAreTheSame_data() { examples(); }
    void textAndBytesAreTheSame();
    void cleanupTestCase();

private:
    using Words = std::vector<uint32_t>;

    void examples();
    QString exported(const QString &file) const { return m_folder.filePath(file); }
    QList<Words> screensOfBytes(const QString &name) const;
    QList<QPair<QString, QByteArray>> screensOfText(const QString &name) const;

    const QDir m_programFolder{QString::fromLocal8Bit(qgetenv("KIV_BIN_DIR"))};
    const CProgramData m_data{m_programFolder.path()};
    QTemporaryDir m_folder;
    size_t m_largestMemory = 0;
};

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void tst_Replay::initTestCase()
{
    QCOMPARE(m_data.loadWidgetLibrary(), QString());
}

void tst_Replay::cleanupTestCase()
{
    QVERIFY2(m_largestMemory > 0, "no example has a bitmap, so graphics memory was not tested");
}

void tst_Replay::examples()
{
    QTest::addColumn<QString>("project");
    const QDir folder(qEnvironmentVariable("KIV_SOURCE_DIR") + "/examples");
    for (const QString &name : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        for (const QFileInfo &file :
             QDir(folder.filePath(name)).entryInfoList({QStringLiteral("*.nyx")})) {
            QTest::newRow(qPrintable(file.completeBaseName())) << file.absoluteFilePath();
            const QString base = exported(file.completeBaseName());
            QCOMPARE(QProcess::execute(m_programFolder.filePath("panel-export"),
                                       {file.absoluteFilePath(), "--strict", "--bin", base + ".bin",
                                        "--dl", base + ".dl", "--png", base}),
                     0);
        }
}

/// The lists of a byte file, cut behind each end command.
QList<tst_Replay::Words> tst_Replay::screensOfBytes(const QString &name) const
{
    const QByteArray bytes = contentOf(exported(name + QStringLiteral(".bin")));
    const Words words = fromBytes(reinterpret_cast<const uint8_t *>(bytes.constData()),
                                  static_cast<size_t>(bytes.size()));
    QList<Words> screens;
    Words screen;
    for (size_t i = 0; i < words.size();) {
        const SCommand *command = findCommand(static_cast<uint8_t>(words[i] >> 24));
        const size_t next = i + 1 + (command ? command->operandWords() : 0);
        while (i < next && i < words.size())
            screen.push_back(words[i++]);
        if (command && command->opcode == EOpcode::End)
            screens.append(std::exchange(screen, {}));
    }
    if (!screen.empty())
        screens.append(screen);
    return screens;
}

/// Names and texts of the sections of a text file.
QList<QPair<QString, QByteArray>> tst_Replay::screensOfText(const QString &name) const
{
    QList<QPair<QString, QByteArray>> screens;
    const QString text = QString::fromUtf8(contentOf(exported(name + QStringLiteral(".dl"))));
    for (const QString &line : text.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("===")))
            screens.append({line.mid(3, line.size() - 6), QByteArray()});
        else if (!screens.isEmpty())
            screens.last().second += line.toLatin1() + '\n';
    }
    return screens;
}

/// The editor's table, the emulator's and the documentation's.
void tst_Replay::budgetsAreTheChips()
{
    const QByteArray page =
        contentOf(qEnvironmentVariable("KIV_SOURCE_DIR") + QStringLiteral("/docs/chips.md"));
    const CPlatformTable table;
    for (const QString &name : table.platforms()) {
        const SChipLimits chip = chipLimits(CPlatformTable::chipCode(name));
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
}

void tst_Replay::bytesGiveThePicture()
{
    QFETCH(QString, project);
    const QString name = QFileInfo(project).completeBaseName();
    CProjectModel model;
    QString error;
    QVERIFY2(model.loadFromFile(project, &error), qPrintable(error));
    const QList<Words> screens = screensOfBytes(name);
    QCOMPARE(screens.size(), model.screenCount());

    const SChipLimits chip = chipLimits(CPlatformTable::chipCode(model.platform()));
    const QSize size = model.resolution();
    for (int row = 0; row < screens.size(); ++row) {
        CLuaHost host(chip); // fills the graphics memory; its display list is not looked at
        QVERIFY(host.loadFile(QFile::encodeName(m_data.renderScriptPath()).toStdString()));
        CModelIterator iterator(model.screen(row));
        CSnapshot snapshot;
        snapshot.take(&iterator);
        host.draw(snapshot, size.width(), size.height());
        m_largestMemory = std::max(m_largestMemory, host.memory().used());

        CSurface surface(size.width(), size.height());
        CExecutor executor(EKernelSet::Plain);
        const auto errors =
            executor.execute(screens[row].data(), screens[row].size(), host.memory(), surface);
        QVERIFY(errors.empty());
        const QString picture = model.screen(row)->name() + QStringLiteral(".png");
        const QImage shown(exported(name + QLatin1Char('/') + picture));
        QCOMPARE(shown.size(), size);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width(); ++x)
                QVERIFY2(surface.row(y)[x] == shown.pixel(x, y),
                         qPrintable(QString("%1, pixel %2, %3").arg(picture).arg(x).arg(y)));
    }
}

void tst_Replay::textAndBytesAreTheSame()
{
    QFETCH(QString, project);
    const QString name = QFileInfo(project).completeBaseName();
    const QList<Words> bytes = screensOfBytes(name);
    const auto texts = screensOfText(name);
    QVERIFY(!bytes.isEmpty());
    QCOMPARE(texts.size(), bytes.size());
    for (int i = 0; i < texts.size(); ++i) {
        std::string error;
        const auto assembled = assemble(texts[i].second.toStdString(), &error);
        QVERIFY2(assembled, error.c_str());
        QVERIFY(*assembled == bytes[i]);
        // And back: the exported text is the disassembled bytes, a command a line.
        QByteArray text = QByteArray::fromStdString(disassemble(bytes[i].data(), bytes[i].size()));
        QCOMPARE(texts[i].second.trimmed(), text.replace(';', ";\n").trimmed());
    }
}

QTEST_MAIN(tst_Replay)
#include "tst_replay.moc"
