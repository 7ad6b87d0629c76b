#include "DocumentChecks.h"

#include "CItemModel.h"
#include "CModelIterator.h"
#include "CPageOperations.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetLibraryModel.h"
#include "CWidgetModel.h"
#include "IModelItem.h"
#include "IModelProperty.h"
#include "ItemClipboard.h"
#include "ItemGeometry.h"
#include "ModelTestSupport.h"
#include "ScreenDocuments.h"

#include <QDomDocument>
#include <QMimeData>
#include <QTemporaryFile>
#include <QUndoStack>

#include <memory>

namespace {

/// Ids and names that what is taken may clash with, and a group.
const QByteArray Base =
    "<Kiv_Project_T project_name='fuzz' platform='QX110' width='480' height='272'>"
    "<Kiv_Screen_T name='Page 1' color='#101010'><Widget_Group_T name='Widget Group'"
    " x_coordinate='10' y_coordinate='10'><Kiv_Button_T id='1' name='Button'/></Widget_Group_T>"
    "<Kiv_Text_T id='2' name='Text'/><Kiv_Line_T id='3' name='Line'/></Kiv_Screen_T>"
    "<Kiv_Screen_T name='Page 2'/></Kiv_Project_T>";

void setDocument(QMimeData &data, const QString &mime, char form, const QByteArray &document)
{
    const bool isBare = form == 'p' || form == 'w';
    data.setData(mime, isBare ? document : ScreenDocuments::toClipboard(document));
}

void loadPageFile(CProjectModel &project, const QByteArray &document)
{
    QTemporaryFile file;
    if (!file.open())
        return;
    file.write(document);
    file.close();
    CPageOperations(&project).load(file.fileName());
}

void take(CProjectModel &project, char form, const QByteArray &document)
{
    QMimeData data;
    switch (form) {
    case 'F':
        loadPageFile(project, document);
        break;
    case 'W':
    case 'w':
        setDocument(data, ScreenDocuments::CopiedItemsMime, form, document);
        ItemClipboard::paste(*project.screen(0), data);
        break;
    default:
        setDocument(data, ScreenDocuments::CopiedScreensMime, form, document);
        CPageOperations(&project).paste(&data);
    }
}

/// Reads all that the renderer reads.
void walk(CScreenModel &screen)
{
    CModelIterator iterator(&screen);
    for (IModelItem *item = iterator.current(); item; iterator.next(), item = iterator.current()) {
        for (int index = 0; index < item->propertyCount(); ++index)
            (void)item->property(index)->valueText();
        (void)item->renderCommands();
    }
}

QByteArray wrongAfterTaking(CProjectModel &project, const QByteArray &before)
{
    QUndoStack *stack = project.undoStack();
    QString error;
    const QByteArray after = project.saveToBytes(&error);
    if (stack->count() == 0)
        return after == before ? QByteArray() : "no step was recorded, but the project differs";
    if (stack->count() > 1)
        return "more than one step was recorded";
    if (!error.isEmpty())
        return "the project can no longer be saved: " + error.toUtf8();
    for (int row = 0; row < project.screenCount(); ++row)
        walk(*project.screen(row));
    CProjectModel again;
    if (!again.loadFromBytes(after, &error) || again.saveToBytes(&error) != after)
        return "what was saved is read back as something else";
    stack->undo();
    if (project.saveToBytes(&error) != before)
        return "undoing does not give the project that was there before";
    stack->redo();
    return project.saveToBytes(&error) == after ? QByteArray() : "redoing gives another project";
}

/// Of a project's document: both ways to read and to write agree, and so does a copy.
QByteArray wrongInProject(const QByteArray &document)
{
    CProjectModel project;
    QString error;
    if (!project.loadFromBytes(document, &error))
        return project.screenCount() == 0 ? QByteArray() : "what was refused has left pages";
    const QByteArray saved = project.saveToBytes(&error);
    CProjectModel again;
    if (!error.isEmpty() || !again.loadFromBytes(saved, &error))
        return "what was read cannot be saved and read again: " + error.toUtf8();
    CProjectModel fromDom;
    QDomDocument written;
    project.save(written);
    if (!fromDom.load(written) || describe(fromDom) != describe(again) ||
        fromDom.saveToBytes(&error) != saved || again.saveToBytes(&error) != saved)
        return "what was saved is read back as something else";
    for (int row = 0; row < project.screenCount(); ++row) {
        const std::unique_ptr<CItemModel> copy(project.screen(row)->clone());
        (void)ItemGeometry::frameOf(*copy);
        if (describe(*copy) != describe(*project.screen(row)))
            return "a copy is something else";
    }
    return {};
}

/// Of a widget library: what is accepted has kinds that can be used, saved and read back.
QByteArray wrongInLibrary(const QByteArray &document)
{
    QTemporaryFile file;
    CWidgetLibraryManager manager;
    if (!file.open() || file.write(document) < 0 || !file.flush() ||
        !manager.initialise(file.fileName(), {0x100, 0x113}))
        return {};
    const CWidgetLibraryModel *library = manager.libraryModel(0x113);
    CProjectModel project;
    project.newProject({});
    const QStringList types = library->typeNames();
    for (const QString &type : types)
        project.screen(0)->appendRow(new CWidgetModel(type, library, &project));
    QString error;
    CProjectModel again;
    again.loadFromBytes(project.saveToBytes(&error), &error);
    return error.toUtf8();
}

} // namespace

QByteArray checkDocument(const QByteArray &input)
{
    if (input.startsWith('D'))
        return wrongInProject(input.mid(1));
    if (input.startsWith('L'))
        return wrongInLibrary(input.mid(1));
    CProjectModel project;
    QString error;
    if (input.isEmpty() || !project.loadFromBytes(Base, &error))
        return error.toUtf8();
    const QByteArray before = project.saveToBytes(&error);
    take(project, input.at(0), input.mid(1));
    return wrongAfterTaking(project, before);
}
