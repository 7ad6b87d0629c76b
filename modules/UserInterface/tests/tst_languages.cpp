#include "CLanguageLoader.h"
#include "CMainWindow.h"
#include "CMenuBar.h"
#include "COptionDialog.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ProgramFolder.h"

#include <QTest>
#include <QThreadPool>
#include <QXmlStreamReader>
#include <QtWidgets>

#include <memory>

namespace {
struct SText
{
    QString source;
    QString translation;
    bool isUnfinished;
};

QString languageFile(const QString &language)
{
    return qEnvironmentVariable("KIV_SOURCE_DIR") +
           QStringLiteral("/resources/languages/NYX_%1.ts").arg(language);
}

QVector<SText> textsOf(const QString &path)
{
    QFile file(path);
    QVector<SText> texts;
    if (!file.open(QIODevice::ReadOnly))
        return texts;
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("source")) {
            texts.append({reader.readElementText(), QString(), true});
        } else if (reader.name() == QLatin1String("translation")) {
            texts.last().isUnfinished =
                reader.attributes().value(QLatin1String("type")) == QLatin1String("unfinished");
            texts.last().translation = reader.readElementText();
        }
    }
    return texts;
}

QStringList marksOf(const QString &text, const QString &pattern)
{
    QStringList marks;
    auto matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        marks << matches.next().captured();
    marks.sort();
    return marks;
}

/// What can be read on an object, or would be when it is shown.
QStringList textsOn(const QObject *object)
{
    QStringList texts;
    for (const char *name :
         {"text", "title", "windowTitle", "toolTip", "statusTip", "placeholderText"}) {
        const bool isTyped =
            qobject_cast<const QLineEdit *>(object) && name == QLatin1String("text");
        const bool isDerived =
            qobject_cast<const QAction *>(object) && name == QLatin1String("toolTip");
        if (!isTyped && !isDerived)
            texts << object->property(name).toString();
    }
    if (const auto *tree = qobject_cast<const QTreeWidget *>(object)) {
        texts << tree->headerItem()->text(0) << tree->headerItem()->text(1);
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            texts << tree->topLevelItem(i)->text(0);
    }
    if (const auto *list = qobject_cast<const QListWidget *>(object)) { // the palette
        for (int i = 0; i < list->count(); ++i)
            texts << list->item(i)->text() << list->item(i)->toolTip();
    }
    if (const auto *box = qobject_cast<const QComboBox *>(object)) {
        for (int i = 0; i < box->count(); ++i)
            texts << box->itemText(i);
    }
    return texts;
}

/// The same for all below a window; the options, which are made anew, at the end.
QStringList shownTexts(const CMainWindow &window)
{
    const auto *options = window.findChild<const COptionDialog *>();
    QStringList texts;
    for (const QObject *each : window.findChildren<QObject *>()) {
        bool isOption = false;
        for (const QObject *above = each; above && !isOption; above = above->parent())
            isOption = above == options;
        if (!isOption)
            texts << textsOn(each);
    }
    texts << textsOn(options);
    for (const QObject *each : options->findChildren<QObject *>())
        texts << textsOn(each);
    return texts;
}

/// Buttons in docks that are pressed by a letter with Alt that opens a menu, and menus that share
/// one.
QStringList takenFromMenus(const CMainWindow &window)
{
    QList<QKeySequence> keys;
    QStringList taken;
    const auto take = [&](const QString &text) {
        const auto key = QKeySequence::mnemonic(text);
        if (!key.isEmpty() && keys.contains(key))
            taken << text;
        return key;
    };
    for (const QAction *menu : window.menuBar()->actions())
        keys << take(menu->text());
    for (const auto *button : window.findChildren<QAbstractButton *>())
        if (button->window() == &window && !button->text().isEmpty())
            take(button->text());
    return taken;
}

void load(CMainWindow *window, const QString &language)
{
    window->loadLanguage(language);
    QCoreApplication::sendPostedEvents(); // that is how windows are told
    QCoreApplication::sendPostedEvents(nullptr,
                                       QEvent::DeferredDelete); // what went with the old one
}
} // namespace

class tst_Languages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void languages_data()
    {
        QTest::addColumn<QString>("language");
        for (const char *each : {"de", "zh_CN"})
            QTest::newRow(each) << QString(each);
    }

    /// Every text of the sources is in the file, and none waits for its translation.
    void complete_data() { languages_data(); }
    void complete()
    {
        QFETCH(QString, language);
        const QTemporaryDir folder;
        for (const char *each : {"de", "zh_CN"}) {
            const QString path = languageFile(QLatin1String(each));
            QVERIFY(QFile::copy(path, folder.filePath(QFileInfo(path).fileName())));
        }
        QProcess update;
        update.start(qEnvironmentVariable("KIV_SOURCE_DIR") +
                         QStringLiteral("/resources/languages/update.sh"),
                     {folder.path()});
        QVERIFY(update.waitForFinished(120000));
        QCOMPARE(update.exitCode(), 0);
        const auto texts = textsOf(folder.filePath(QStringLiteral("NYX_%1.ts").arg(language)));
        QVERIFY(texts.size() > 250);
        QStringList missing;
        for (const SText &each : texts) {
            if (each.isUnfinished || each.translation.isEmpty())
                missing << each.source;
        }
        QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
        QCOMPARE(texts.size(), textsOf(languageFile(language)).size()); // nothing that is not used
    }

    /// What is filled in later, and what the program reads again, is the same in every language.
    void marks_data() { languages_data(); }
    void marks()
    {
        QFETCH(QString, language);
        for (const SText &each : textsOf(languageFile(language))) {
            for (const char *pattern : {"%\\d", "\\*\\.\\w+", "\\n"}) {
                const auto wanted = QString::fromLatin1(pattern);
                QVERIFY2(marksOf(each.source, wanted) == marksOf(each.translation, wanted),
                         qPrintable(each.source));
            }
            QVERIFY2(marksOf(each.source, "&\\S").size() ==
                         marksOf(each.translation, "&\\S").size(),
                     qPrintable(each.source));
        }
    }

    /// Everything that is shown changes at once, and back.
    void live_data() { languages_data(); }
    void live()
    {
        QFETCH(QString, language);
        const CProgramFolder folder;
        QFile::copy(qEnvironmentVariable("KIV_SOURCE_DIR") +
                        QStringLiteral("/examples/thermostat/thermostat.nyx"),
                    folder.path("thermostat.nyx"));
        CMainWindow window(folder.path("thermostat.nyx"));
        QThreadPool::globalInstance()->waitForDone(); // the examples of the start page
        QCoreApplication::processEvents();
        load(&window, "en");
        const QStringList before = shownTexts(window);
        QHash<QString, QStringList> translations;
        for (const SText &each : textsOf(languageFile(language)))
            translations[each.source] << each.translation;
        for (int page = 0; page < window.project()->screenCount(); ++page)
            translations.remove(window.project()->screen(page)->name()); // the user's words

        load(&window, language);
        const QStringList after = shownTexts(window);
        QCOMPARE(after.size(), before.size());
        QStringList wrong;
        int changed = 0;
        for (int i = 0; i < before.size(); ++i) {
            const QStringList wanted = translations.value(before[i]);
            changed += before[i] != after[i];
            if (!wanted.isEmpty() && !wanted.contains(after[i]))
                wrong << before[i] + QStringLiteral(" -> ") + after[i];
        }
        wrong.removeDuplicates();
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(QLatin1Char('\n'))));
        QVERIFY(changed > 150);
        QVERIFY(!window.windowTitle().contains(" for "));

        // Texts of Qt's own.
        const QMessageBox box(QMessageBox::NoIcon, QString(), QString(), QMessageBox::Cancel);
        QVERIFY(!box.button(QMessageBox::Cancel)->text().contains("Cancel"));

        load(&window, "xx"); // there is none: all stays
        QCOMPARE(shownTexts(window), after);
        load(&window, "en");
        QCOMPARE(shownTexts(window), before);

        for (auto *dock : window.findChildren<QDockWidget *>()) { // some are filled late
            QShowEvent shown;
            QCoreApplication::sendEvent(dock, &shown);
        }
        for (const QString &each : {QStringLiteral("en"), language}) {
            load(&window, each);
            QCOMPARE(takenFromMenus(window), QStringList());
            QCOMPARE(QLocale().language(), QLocale(each).language()); // numbers follow
        }
    }
};

QTEST_MAIN(tst_Languages)
#include "tst_languages.moc"
