#pragma once

#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QUndoCommand>
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
class CChangeColour final : public QUndoCommand
{
public:
    CChangeColour(CProjectModel *project, const QString &colour)
        : m_screen(project->screen(0)), m_new(colour), m_old(m_screen->propertyText(key()))
    {
    }
    void redo() override { m_screen->setProperty(key(), m_new); }
    void undo() override { m_screen->setProperty(key(), m_old); }

private:
    static QString key() { return QStringLiteral("color"); }
    CScreenModel *const m_screen;
    const QString m_new;
    const QString m_old;
};

inline void change(CProjectModel *project, const QString &colour = QStringLiteral("#112233"))
{
    project->undoStack()->push(new CChangeColour(project, colour));
}
} // namespace ProjectTestSupport
