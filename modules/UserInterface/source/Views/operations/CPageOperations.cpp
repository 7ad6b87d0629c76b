#include "CPageOperations.h"

#include "CCommandChangeItemProperty.h"
#include "CCommandDeleteScreen.h"
#include "CCommandPasteScreen.h"
#include "CFileWriter.h"
#include "CFontImport.h"
#include "CImageImport.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CUnusedIds.h"
#include "CXmlGuard.h"
#include "CanonicalValue.h"
#include "ItemNames.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "ScreenDocuments.h"

#include <QMimeData>
#include <QUndoStack>

namespace {

/// Pushes a change for each value of the item that is not in canonical form.
void pushCanonicalValues(CItemModel &item, QUndoStack *stack)
{
    QMap<QString, QVariant> changes; // in an order that does not change from run to run
    for (auto each = item.properties().cbegin(); each != item.properties().cend(); ++each) {
        const QVariant canonical = canonicalValue(each.value());
        if (canonical.isValid())
            changes.insert(each.key(), canonical);
    }
    for (auto each = changes.cbegin(); each != changes.cend(); ++each)
        stack->push(new CCommandChangeItemProperty(&item, each.key(), each.value(),
                                                   item.propertyValue(each.key())));
}

} // namespace

CPageOperations::CPageOperations(CProjectModel *project) : m_project(project)
{
}

QMimeData *CPageOperations::copy(const Screens &screens, QString *error)
{
    const QByteArray xml = ScreenDocuments::ofCopiedScreens(screens, error);
    if (xml.isEmpty())
        return nullptr;
    auto *data = new QMimeData;
    data->setData(ScreenDocuments::CopiedScreensMime, ScreenDocuments::toClipboard(xml));
    const QVector<const CItemModel *> items(screens.begin(), screens.end());
    const QByteArray fonts = CFontImport::copied(*screens.constFirst()->project(), items);
    if (!fonts.isEmpty())
        data->setData(CFontImport::Mime, fonts);
    return data;
}

QMimeData *CPageOperations::cut(const QVector<CScreenModel *> &screens, QString *error)
{
    QMimeData *data = copy(Screens(screens.begin(), screens.end()), error);
    if (!data)
        return nullptr;
    QUndoStack *stack = m_project->undoStack();
    stack->beginMacro(tr("Cut Page"));
    for (CScreenModel *screen : screens)
        stack->push(new CCommandDeleteScreen(screen));
    stack->endMacro();
    return data;
}

bool CPageOperations::canPaste(const QMimeData *data)
{
    return data && data->hasFormat(ScreenDocuments::CopiedScreensMime);
}

QString CPageOperations::paste(const QMimeData *data)
{
    if (!canPaste(data))
        return {};
    QString error;
    const QByteArray xml =
        ScreenDocuments::fromClipboard(data->data(ScreenDocuments::CopiedScreensMime));
    std::optional<SItemElement> root = ScreenDocuments::copiedScreens(xml, &error);
    if (root)
        error = refusalOf(*root);
    return error.isEmpty() ? addScreens(*root, tr("Paste Page"), Values::Canonical,
                                        data->data(CFontImport::Mime))
                           : tr("What was copied cannot be pasted: %1").arg(error);
}

QString CPageOperations::save(const Screens &screens, const QString &path)
{
    QString error;
    const QByteArray xml = ScreenDocuments::ofPageFile(screens, &error);
    return xml.isEmpty() ? error : CFileWriter::write(path, xml);
}

QString CPageOperations::load(const QString &path)
{
    QString error;
    const std::optional<QByteArray> xml = CXmlGuard::readFile(path, &error);
    if (!xml)
        return error;
    std::optional<SItemElement> root = ScreenDocuments::pageFile(*xml, &error);
    if (root)
        error = refusalOf(*root);
    if (error.isEmpty())
        error = addScreens(*root, tr("Load Page"), Values::AsTheyAre);
    return error.isEmpty() ? error : tr("%1: %2").arg(path, error);
}

/// Empty, or why the pages cannot become some of the project's.
QString CPageOperations::refusalOf(const SItemElement &root) const
{
    return root.children.empty() ? tr("There is no page in it.")
                                 : ScreenDocuments::savingRefusal(root, m_project);
}

QString CPageOperations::addScreens(SItemElement &root, const QString &macroText, Values values,
                                    const QByteArray &fonts)
{
    CImageImport images(m_project);
    const QString error = images.bring(root);
    if (!error.isEmpty())
        return error;
    CFontImport fontImport(m_project);
    const QString lack = fontImport.bring(root, fonts);
    QUndoStack *stack = m_project->undoStack();
    ItemNames::Names taken = ItemNames::ofScreens(*m_project);
    const auto unused = std::make_shared<SUnused>(*m_project);
    for (SItemElement &element : root.children) {
        const QString name = ItemNames::unused(element.attribute(PropertyKey::Name), taken);
        if (!name.isEmpty()) { // else the project gives one
            element.setAttribute(PropertyKey::Name, name);
            taken.insert(name);
            unused->names.exclude(name);
        }
    }
    stack->beginMacro(macroText);
    if (QUndoCommand *change = fontImport.command())
        stack->push(change);
    for (SItemElement &element : root.children)
        stack->push(
            new CCommandPasteScreen(m_project, std::move(element), m_project->rowCount(), unused));
    if (values == Values::Canonical)
        makeValuesCanonical();
    stack->endMacro();
    return images.missing().isEmpty() ? lack : images.missing();
}

void CPageOperations::makeValuesCanonical()
{
    forEachItem(*m_project,
                [this](CItemModel &each) { pushCanonicalValues(each, m_project->undoStack()); });
}
