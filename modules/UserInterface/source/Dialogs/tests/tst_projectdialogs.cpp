#include "CConfigurationDialog.h"
#include "CDialogAnswers.h"
#include "CEmulatorAdapter.h"
#include "CFontsDialog.h"
#include "CLanguageDialog.h"
#include "COptionDialog.h"
#include "CPlatformTable.h"
#include "CPrintScreenDialog.h"
#include "CProjectModel.h"
#include "IProjectOptionsObserver.h"
#include "PropertyKey.h"

#include <QtTest>
#include <QtWidgets>

namespace {

template<typename Field>
Field *field(const QDialog &dialog, const char *name)
{
    return dialog.findChild<Field *>(QLatin1String(name));
}

QPushButton *okButton(const QDialog &dialog)
{
    return dialog.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
}

void touch(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void makeNew(CProjectModel *project, const QString &width, const QString &height)
{
    project->newProject({{PropertyKey::ProjectName, "before"},
                         {PropertyKey::Platform, "QX110"},
                         {PropertyKey::Width, width},
                         {PropertyKey::Height, height}});
}

struct SObserver : IProjectOptionsObserver
{
    void projectOptionsChanged() override { ++calls; }
    int calls = 0;
};

} // namespace

class tst_ProjectDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newProjectWithTheProposedValues()
    {
        QTemporaryDir folder;
        QCOMPARE(CConfigurationDialog::proposedName(folder.path()), "untitled_project");
        touch(folder.filePath("untitled_project.nyx"));
        touch(folder.filePath("untitled_project(1).nyx"));
        const QString before = QDir::currentPath();

        QTemporaryDir other;
        CConfigurationDialog dialog(m_platforms, other.path());
        CDialogAnswers answers;
        answers.expect([&folder](QDialog *opened) {
            Q_EMIT qobject_cast<QFileDialog *>(opened)->fileSelected(folder.path());
        });
        field<QToolButton>(dialog, "chooseFolder")->click();
        auto *platform = field<QComboBox>(dialog, "platform");
        auto *resolution = field<QComboBox>(dialog, "resolution");
        platform->setCurrentText("QX112");
        resolution->setCurrentText("800 x 480");
        okButton(dialog)->click();
        QCOMPARE(dialog.options(),
                 (CConfigurationDialog::Options{
                     {"project_name", "untitled_project(2)"},
                     {"width", "800"},
                     {"height", "480"},
                     {"platform", "QX112"},
                     {"working_directory", QDir(folder.path()).canonicalPath()}}));
        QCOMPARE(QDir::currentPath(), before);
    }

    void anExistingFileKeepsTheDialogOpen()
    {
        QTemporaryDir folder;
        touch(folder.filePath("taken.nyx"));
        CConfigurationDialog dialog(m_platforms, folder.path());
        dialog.show();
        field<QLineEdit>(dialog, "projectName")->setText("taken");
        CDialogAnswers answers;
        answers.expect([](QDialog *opened) {
            auto *box = qobject_cast<QMessageBox *>(opened);
            QVERIFY(box);
            box->button(QMessageBox::Ok)->click();
        });
        okButton(dialog)->click();
        QVERIFY(answers.allGiven());
        QVERIFY(dialog.isVisible());
        QVERIFY(dialog.options().isEmpty());
        field<QLineEdit>(dialog, "projectName")->setText("free");
        okButton(dialog)->click();
        QCOMPARE(dialog.options().value("project_name"), "free");
    }

    void fontsAreOneStepAndTheirFilesGoAlong()
    {
        const QString made = QStringLiteral(KIV_TEST_FONTS "/variable.ttf");
        const QTemporaryDir home;
        const QTemporaryDir other;
        CProjectModel project;
        makeNew(&project, "480", "320");
        project.setWorkingDirectory(home.path());
        touch(home.filePath("empty.ttf"));
        QVERIFY(QFile::copy(KIV_TEST_FONTS "/variable.woff2", other.filePath("variable.ttf")));
        {
            CFontsDialog dialog(CEmulatorAdapter::instance(), &project);
            auto *list = field<QListWidget>(dialog, "fonts");
            auto *problem = field<QLabel>(dialog, "fontProblem");
            dialog.addFiles({home.filePath("empty.ttf")});
            QTRY_VERIFY(problem->text().startsWith("empty.ttf: "));
            for (const QString &file : {made, made, other.filePath("variable.ttf")}) {
                const int before = list->count();
                dialog.addFiles({file});
                QTRY_COMPARE(list->count(), before + 1);
            }
            for (const int row : {0, 1}) { // the first one asks the last one, the second the first
                list->setCurrentRow(row);
                field<QListWidget>(dialog, "fontFallback")
                    ->item(1 - row)
                    ->setCheckState(Qt::Checked);
            }
            list->setCurrentRow(2);
            field<QDoubleSpinBox>(dialog, "fontSize")->setValue(13.5);
            field<QListWidget>(dialog, "fontFallback")->item(1)->setCheckState(Qt::Checked);
            field<QSpinBox>(dialog, "fontHandle")->setValue(0);
            QVERIFY(!okButton(dialog)->isEnabled() && !problem->text().isEmpty());
            field<QSpinBox>(dialog, "fontHandle")->setValue(15);
            auto *weight = field<QDoubleSpinBox>(dialog, "fontAxis_wght");
            QTRY_VERIFY(weight);
            weight->setValue(weight->maximum());
            okButton(dialog)->click();
        }
        const auto told = [&project] { return ProjectFonts::rendererText(project.fonts()); };
        const QString fonts = told();
        const QStringList lines = fonts.split('\n');
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines[0].section('\t', 6, 6), "15"); // it was 2, and met the first one's 0
        QCOMPARE(lines[1].section('\t', 2), "before_Fonts/variable.ttf\t24\t8\t\t0\t");
        QCOMPARE(lines[2].section('\t', 2),
                 "before_Fonts/variable (1).ttf\t13.5\t8\twght=900\t1\t");
        QCOMPARE(QDir(home.filePath("before_Fonts")).entryList(QDir::Files).size(), 2);
        QCOMPARE(project.undoStack()->count(), 1);
        project.undoStack()->undo();
        QCOMPARE(told(), QString());
        project.undoStack()->redo();
        QCOMPARE(told(), fonts);

        CFontsDialog dialog(CEmulatorAdapter::instance(), &project);
        field<QPushButton>(dialog, "removeFont")->click();
        field<QPushButton>(dialog, "removeFont")->click();
        okButton(dialog)->click();
        QCOMPARE(told().section('\t', 6), "\t"); // and it is nobody's fallback any more
    }

    void wrongFieldsAreRefusedBesideThem_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("folder"); // below the test's own
        QTest::addColumn<bool>("nameIsWrong");
        QTest::addColumn<bool>("folderIsWrong");
        const auto row = [](const char *what, QString name, QString folder, bool nameIsWrong,
                            bool folderIsWrong) {
            QTest::newRow(what) << name << folder << nameIsWrong << folderIsWrong;
        };
        row("both right", "demo", "", false, false);
        row("no name", "", "", true, false);
        row("leaves its folder", "../demo", "", true, false);
        row("too long", QString(300, 'a'), "", true, false);
        row("no such folder", "demo", "/nowhere", false, true);
        row("a file as folder", "demo", "/file", false, true);
    }

    void wrongFieldsAreRefusedBesideThem()
    {
        QFETCH(QString, name);
        QFETCH(QString, folder);
        QFETCH(bool, nameIsWrong);
        QFETCH(bool, folderIsWrong);
        QTemporaryDir root;
        touch(root.filePath("file"));
        CConfigurationDialog dialog(m_platforms, root.path());
        dialog.show();
        field<QLineEdit>(dialog, "projectName")->setText(name);
        field<QLineEdit>(dialog, "workingDirectory")->setText(root.path() + folder);
        QCOMPARE(!field<QLabel>(dialog, "nameProblem")->text().isEmpty(), nameIsWrong);
        QCOMPARE(!field<QLabel>(dialog, "folderProblem")->text().isEmpty(), folderIsWrong);
        QCOMPARE(okButton(dialog)->isEnabled(), !nameIsWrong && !folderIsWrong);
        dialog.accept();
        QCOMPARE(dialog.isVisible(), nameIsWrong || folderIsWrong);
    }

    void optionsAreOneStep()
    {
        CProjectModel project;
        makeNew(&project, "800", "480");
        SObserver observer;
        COptionDialog dialog(m_platforms, &observer);
        dialog.fill(&project, 10);
        dialog.accept(); // nothing was changed
        QCOMPARE(project.undoStack()->count(), 0);

        dialog.fill(&project, 10);
        dialog.layout()->activate();
        QWidget *first = field<QLineEdit>(dialog, "projectName");
        int height = 0; // Tab leads down the dialog
        for (QWidget *each = first->nextInFocusChain(); each != first;
             each = each->nextInFocusChain()) {
            if (!(each->focusPolicy() & Qt::TabFocus) || each->objectName().startsWith("qt_"))
                continue;
            const int bottom = each->mapTo(&dialog, QPoint(0, each->height())).y();
            QVERIFY2(bottom >= height, qPrintable(each->objectName()));
            height = bottom;
        }
        field<QLineEdit>(dialog, "projectName")->setText("after");
        field<QComboBox>(dialog, "platform")
            ->setCurrentText("QX100"); // 800 x 480 is too large for it
        QCOMPARE(field<QComboBox>(dialog, "offeredSizes")->currentText(), "480 x 272");
        dialog.accept();
        QCOMPARE(project.propertyText(PropertyKey::ProjectName), "after");
        QCOMPARE(project.platform(), "QX100");
        QCOMPARE(project.resolution(), QSize(480, 272));
        QCOMPARE(project.undoStack()->count(), 1);
        QCOMPARE(observer.calls, 1);
        project.undoStack()->undo();
        QCOMPARE(project.propertyText(PropertyKey::ProjectName), "before");
        QCOMPARE(project.resolution(), QSize(800, 480));
        QCOMPARE(observer.calls, 2);

        dialog.fill(&project, 10);
        field<QLineEdit>(dialog, "projectName")->setText("../x");
        QVERIFY(!okButton(dialog)->isEnabled());
        dialog.accept();
        QCOMPARE(project.undoStack()->index(), 0);
    }

    void customSizesUpToTheLargest()
    {
        CProjectModel project;
        makeNew(&project, "700", "30");
        COptionDialog dialog(m_platforms, nullptr);
        dialog.fill(&project, 0);
        auto *width = field<QSpinBox>(dialog, "width");
        auto *height = field<QSpinBox>(dialog, "height");
        auto *offered = field<QComboBox>(dialog, "offeredSizes");
        width->setValue(0);
        QVERIFY(!okButton(dialog)->isEnabled());
        width->setValue(2048);
        height->setValue(2048);
        dialog.accept();
        QCOMPARE(project.resolution(), QSize(2048, 2048));

        dialog.fill(&project, 0);
        offered->setCurrentIndex(1);
        Q_EMIT offered->activated(1);
        QVERIFY(!width->isEnabled());
        QCOMPARE(QSize(width->value(), height->value()), QSize(320, 240));
    }

    void autosaveIsNoStep()
    {
        CProjectModel project;
        makeNew(&project, "480", "272");
        COptionDialog dialog(m_platforms, nullptr);
        QSignalSpy changed(&dialog, &COptionDialog::autosaveIntervalChanged);
        auto *enabled = field<QCheckBox>(dialog, "autosave");
        auto *interval = field<QSpinBox>(dialog, "autosaveInterval");
        dialog.fill(&project, 30);
        enabled->setChecked(false);
        dialog.accept();
        QCOMPARE(changed.takeFirst().first().toInt(), 0);
        dialog.fill(&project, 0);
        enabled->setChecked(true);
        interval->setValue(45);
        dialog.accept();
        QCOMPARE(changed.takeFirst().first().toInt(), 45);
        dialog.fill(&project, 45);
        dialog.accept();
        QVERIFY(changed.isEmpty());
    }

    void optionsWithoutAProject()
    {
        COptionDialog dialog(m_platforms, nullptr);
        QSignalSpy changed(&dialog, &COptionDialog::autosaveIntervalChanged);
        dialog.fill(nullptr, 10);
        QVERIFY(!field<QLineEdit>(dialog, "projectName")->isEnabled());
        QVERIFY(okButton(dialog)->isEnabled());
        field<QSpinBox>(dialog, "autosaveInterval")->setValue(20);
        QSignalSpy steps(&dialog, &COptionDialog::nudgeStepsChosen);
        dialog.fillNudgeSteps(8, 2);
        dialog.accept();
        QCOMPARE(changed.count(), 1);
        QCOMPARE(steps.takeFirst(), QVariantList({8, 2}));
    }

    void languagesOfTheFolder()
    {
        QTemporaryDir folder;
        for (const char *name : {"NYX_de.qm", "NYX_zh_CN.qm", "qt_de.qm", "NYX_.qm", "NYX_fr.ts"})
            touch(folder.filePath(name));
        CLanguageDialog dialog(folder.path(), "zh_CN");
        auto *box = field<QComboBox>(dialog, "languages");
        QCOMPARE(box->count(), 2);
        QCOMPARE(box->currentData().toString(), "zh_CN");
        QSignalSpy changed(&dialog, &CLanguageDialog::languageChanged);
        box->setCurrentIndex(0);
        dialog.reject();
        QVERIFY(changed.isEmpty());
        okButton(dialog)->click();
        QCOMPARE(changed.takeFirst().first().toString(), "de");
    }

    void screenshotsOfTheSelection()
    {
        QTemporaryDir folder;
        CPrintScreenDialog::Pictures pictures;
        for (const QString &name : {QString("Page 1"), QString("a/b"), QString("Page 3")}) {
            QPixmap picture(40, 20);
            picture.fill(pictures.isEmpty() ? Qt::red : Qt::blue);
            pictures.append({name, picture});
        }
        pictures[1].second = QPixmap(); // never rendered
        const auto source = [&pictures] { return pictures; };
        touch(folder.filePath("Page 1.png"));

        CPrintScreenDialog dialog(source, folder.path());
        auto *screens = field<QListWidget>(dialog, "screens");
        dialog.resize(330, 900); // one below the other
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        const qint64 empty = screens->item(1)->icon().cacheKey();
        pictures[1].second = QPixmap(16, 16); // higher than its frame
        dialog.refresh();
        QTRY_VERIFY(screens->item(1)->icon().cacheKey() != empty);
        QVERIFY(!screens->visualItemRect(screens->item(1))
                     .intersects(screens->visualItemRect(screens->item(2))));
        for (const int row : {0, 1, 1, 1}) // the second one on, off, on again
            QTest::mouseClick(screens->viewport(), Qt::LeftButton, {},
                              screens->visualItemRect(screens->item(row)).center());
        field<QPushButton>(dialog, "save")->click();
        QTRY_VERIFY(!dialog.isVisible());
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files),
                 (QStringList{"a_b.png", "Page 1 (1).png", "Page 1.png"}));
        QCOMPARE(QImage(folder.filePath("Page 1 (1).png")).pixelColor(3, 3), QColor(Qt::red));
    }

    void screenshotFolderIsRemembered()
    {
        QTemporaryDir first;
        QTemporaryDir second;
        CPrintScreenDialog dialog([] { return CPrintScreenDialog::Pictures(); }, first.path());
        QSignalSpy changed(&dialog, &CPrintScreenDialog::saveFolderChanged);
        CDialogAnswers answers;
        answers.expect([&second](QDialog *opened) {
            auto *files = qobject_cast<QFileDialog *>(opened);
            files->setDirectory(second.path());
            files->findChild<QLineEdit *>("fileNameEdit")->setText(second.path());
            QMetaObject::invokeMethod(files, "accept");
        });
        field<QToolButton>(dialog, "chooseFolder")->click();
        QVERIFY(answers.allGiven());
        QCOMPARE(dialog.saveFolder(), second.path());
        QCOMPARE(changed.count(), 1);
        CPrintScreenDialog missing([] { return CPrintScreenDialog::Pictures(); },
                                   "/no/such/folder");
        QVERIFY(QFileInfo(missing.saveFolder()).isDir());
    }

private:
    const CPlatformTable m_platforms;
};

QTEST_MAIN(tst_ProjectDialogs)
#include "tst_projectdialogs.moc"
