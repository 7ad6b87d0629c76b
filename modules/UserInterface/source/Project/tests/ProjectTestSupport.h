#pragma once

#include "CCommandChangeItemProperty.h"
#include "CProjectModel.h"
#include "CScreenModel.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QUndoStack>

/// Small helpers of the tests of this folder.
namespace ProjectTestSupport {
inline bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The lock file of a process on another host, dead there or not.
const QByteArray foreignLock = "999999\nprogram\nanother-host.example\n\n\n";

inline QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDir::Name);
}

/// A project document of one screen with that many items, as the program itself would write it.
inline QByteArray document(const QString &name, int items = 1)
{
    QByteArray xml = "<Kiv_Project_T project_name=\"" + name.toUtf8() +
                     "\" platform=\"QX110\" width=\"480\" height=\"272\" "
                     "working_directory=\".\"><Kiv_Screen_T name=\"Page 1\" color=\"#000000\">";
    for (int i = 0; i < items; ++i)
        xml += "<Kiv_Text_T name=\"Text " + QByteArray::number(i) + "\" id=\"" +
               QByteArray::number(i + 1) + "\" x_coordinate=\"" + QByteArray::number(i % 480) +
               "\"/>";
    CProjectModel model;
    model.loadFromBytes(xml + "</Kiv_Screen_T></Kiv_Project_T>", nullptr);
    return model.saveToBytes(nullptr);
}

/// Makes the two versions of a document differ in size.
inline QString largeText()
{
    return QString(50'000, QLatin1Char('a'));
}

/// One undoable change of the first screen's colour.
inline void change(CProjectModel *project, const QString &colour = QStringLiteral("#112233"))
{
    const QString key = QStringLiteral("color");
    CScreenModel *screen = project->screen(0);
    project->undoStack()->push(
        new CCommandChangeItemProperty(screen, key, colour, screen->propertyValue(key)));
}
} // namespace ProjectTestSupport
