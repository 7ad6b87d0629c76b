#include "CImageChooser.h"
#include "PropertiesTestSupport.h"

#include <QAction>
#include <QFileDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

/// Images are chosen and converted from the rows of the property panel.
class tst_PropertyImages : public CPropertiesTest
{
    Q_OBJECT

private Q_SLOTS:
    void filesAreChosenInTheirRow();
    void anotherFormatConvertsTheImageAnew_data();
    void anotherFormatConvertsTheImageAnew();
    void formatStaysWhenTheImageCannotBeConverted();

private:
    void openIn(const QTemporaryDir &folder) const
    {
        m_project->setWorkingDirectory(folder.path());
        CProjectModel::setCurrent(m_project.get()); // until it is destroyed
    }
    static QString written(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) > 0 ? path : QString();
    }
    /// Takes the file in the dialog that opens next, or closes it when there is no such file.
    void answerWith(const QString &file)
    {
        QTimer::singleShot(0, this, [file] {
            auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            dialog->setDirectory(QFileInfo(file).path());
            dialog->selectFile(file);
            if (QFile::exists(file))
                QMetaObject::invokeMethod(dialog, "accept");
            else
                dialog->reject();
        });
    }
};

void tst_PropertyImages::filesAreChosenInTheirRow()
{
    const QTemporaryDir folder;
    openIn(folder);
    const QString raw = written(folder.filePath("picture.raw"), QByteArray(64, 'x'));

    CWidgetModel *bitmap = show("Kiv_Bitmap_T");
    const QByteArray before = savedBytes(*m_project);
    QSignalSpy messages(m_view.get(), &CWidgetPropertiesView::message);
    auto *line = edit<QLineEdit>("filename");
    QVERIFY(line);
    QVERIFY(line->isReadOnly());
    auto *choose = line->findChild<QAction *>("chooseFile");
    QVERIFY(choose);
    answerWith(folder.filePath("missing.raw"));
    choose->trigger();
    QCOMPARE(stack().count(), 0);
    answerWith(raw);
    choose->trigger();
    QCOMPARE(bitmap->propertyText("filename"), raw);
    QCOMPARE(bitmap->propertyText("basename"), QStringLiteral("picture"));
    QCOMPARE(bitmap->propertyText("format"), QStringLiteral("None"));
    QCOMPARE(shown("basename"), QStringLiteral("picture"));
    QVERIFY(
        QFile::exists(m_project->absoluteFolder(bitmap->propertyText("bfolder")) + "/picture.raw"));
    QCOMPARE(stack().count(), 1);
    QVERIFY(messages.last().first().toString().contains("size is not known"));
    // A raw file has no other format to be converted into; it is only told what it holds.
    variantRow("format")->setValue(5);
    QCOMPARE(bitmap->propertyText("format"), QStringLiteral("L8"));
    QCOMPARE(stack().count(), 2);
    stack().undo();
    stack().undo();
    QCOMPARE(savedBytes(*m_project), before);
    show("Kiv_ImageButton_T");
    line = edit<QLineEdit>("basename");
    QVERIFY(line->findChild<QAction *>("chooseFile"));
}

/// With the program's own tools.
void tst_PropertyImages::anotherFormatConvertsTheImageAnew_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("usual");
    QTest::newRow("with its file name") << "Kiv_Bitmap_T"
                                        << "photo.png"
                                        << "ARGB4";
    QTest::newRow("from the copy of its file") << "Kiv_ImageButton_T"
                                               << "photo.png"
                                               << "ARGB4";
    QTest::newRow("nothing transparent") << "Kiv_Bitmap_T"
                                         << "photo.jpg"
                                         << "RGB565";
}

void tst_PropertyImages::anotherFormatConvertsTheImageAnew()
{
    QFETCH(QString, kind);
    QFETCH(QString, file);
    QFETCH(QString, usual);
    const QString before = QDir::currentPath();
    QDir::setCurrent(qEnvironmentVariable("KIV_BIN_DIR"));
    const QTemporaryDir folder;
    openIn(folder);
    const QString photo = folder.filePath(file);
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(photo));

    CWidgetModel *bitmap = show(kind);
    bitmap->setProperty("format", "None"); // as it is after a raw file
    auto *chooser = m_view->findChild<CImageChooser *>();
    answerWith(photo);
    chooser->choose(bitmap);
    const auto size = [&](const QString &format) {
        const QString converted = m_project->absoluteFolder(bitmap->propertyText("bfolder"));
        return QFileInfo(converted + "/photo_" + format + ".raw").size();
    };
    QCOMPARE(shown("format"), usual);
    QCOMPARE(shown("bwidth") + "x" + shown("bheight"), QStringLiteral("40x30"));
    QCOMPARE(size(usual), qint64(40 * 30 * 2));

    auto *format = variantRow("format");
    const QStringList formats = format->attributeValue("enumNames").toStringList();
    format->setValue(formats.indexOf("L8"));
    QCOMPARE(bitmap->propertyText("format"), QStringLiteral("L8"));
    QCOMPARE(size("L8"), qint64(40 * 30));
    QCOMPARE(stack().count(), 2);
    stack().undo();
    QCOMPARE(shown("format"), usual);
    stack().undo();
    QCOMPARE(shown("basename"), QString());
    QDir::setCurrent(before);
}

void tst_PropertyImages::formatStaysWhenTheImageCannotBeConverted()
{
    const QTemporaryDir folder;
    openIn(folder);
    const QString noImage = written(folder.filePath("picture.png"), "no picture");
    CWidgetModel *bitmap = show("Kiv_Bitmap_T");
    QSignalSpy messages(m_view.get(), &CWidgetPropertiesView::message);
    auto *format = variantRow("format");
    format->setValue(0); // without a file it is a plain change
    QCOMPARE(bitmap->propertyText("format"), QStringLiteral("None"));
    QCOMPARE(stack().count(), 1);
    bitmap->setProperty("filename", noImage);
    format->setValue(3);
    QCOMPARE(bitmap->propertyText("format"), QStringLiteral("None"));
    QCOMPARE(shown("format"), QStringLiteral("None"));
    QCOMPARE(stack().count(), 1);
    QVERIFY(!messages.isEmpty());
}

QTEST_MAIN(tst_PropertyImages)
#include "tst_propertyimages.moc"
