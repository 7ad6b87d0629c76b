#include "CFontImport.h"

#include "CCommandChangeFonts.h"
#include "CFileCopies.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "CWidgetProperty.h"
#include "FontFiles.h"
#include "ItemTree.h"
#include "SItemElement.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <functional>

namespace {
constexpr int LongestList = 1 << 20; ///< bytes; more is no list of 16 fonts

bool isFontKey(const QString &key)
{
    return key == QLatin1String("font") || key.endsWith(QLatin1String("_font"));
}

/// -1 for what is none of a project's.
int handleFrom(const QString &text)
{
    bool isNumber = false;
    const int handle = text.toInt(&isNumber);
    return isNumber && handle >= 0 && handle < SProjectFont::HandleCount ? handle : -1;
}

/// A project finds its own fonts changed since then, not missing.
QByteArray markOf(const CProjectModel &project)
{
    return QByteArray::number(QCoreApplication::applicationPid()) + ' ' +
           QByteArray::number(quintptr(&project)) + ' ' + project.workingDirectory().toUtf8();
}

QSet<int> withFallbacks(QSet<int> used, const ProjectFontList &fonts)
{
    for (int before = -1; before != used.size();) {
        before = used.size();
        for (const SProjectFont &each : fonts) {
            if (used.contains(each.handle))
                used += QSet<int>(each.fallback.begin(), each.fallback.end());
        }
    }
    return used;
}

void forEachAttribute(SItemElement &element, const std::function<void(ItemAttribute &)> &visit)
{
    for (ItemAttribute &each : element.attributes)
        visit(each);
    for (SItemElement &each : element.children)
        forEachAttribute(each, visit);
}

ProjectFontList parsed(const QByteArray &text)
{
    QVector<ItemAttributes> elements;
    const QStringList lines = QString::fromUtf8(text).split(QLatin1Char('\n'));
    for (const QString &line : lines.mid(1)) {
        ItemAttributes attributes;
        for (const QString &field : line.split(QLatin1Char('\t')))
            attributes.append(
                {field.section(QLatin1Char('='), 0, 0), field.section(QLatin1Char('='), 1)});
        elements.append(attributes);
    }
    return ProjectFonts::fromAttributes(elements);
}
} // namespace

const QString CFontImport::Mime = QStringLiteral("widget-copy-fonts");

QByteArray CFontImport::copied(const CProjectModel &project,
                               const QVector<const CItemModel *> &items)
{
    QSet<int> used;
    for (const CItemModel *item : items) {
        forEachItem(*item, [&used](const CItemModel &each) {
            for (const CWidgetProperty &property : each.properties()) {
                if (isFontKey(property.key()))
                    used.insert(handleFrom(property.text()));
            }
        });
    }
    used = withFallbacks(used, project.fonts());
    ProjectFontList fonts;
    for (const SProjectFont &each : project.fonts()) {
        if (!used.contains(each.handle) || each.file.isEmpty())
            continue;
        fonts.append(each);
        fonts.last().file = project.absoluteFolder(each.file);
    }
    if (fonts.isEmpty())
        return {};
    QByteArray text = markOf(project);
    for (const ItemAttributes &element : ProjectFonts::attributes(fonts)) {
        QStringList fields;
        for (const ItemAttribute &each : element)
            fields.append(each.name + QLatin1Char('=') +
                          QString(each.text)
                              .replace(QLatin1Char('\t'), QLatin1Char(' '))
                              .replace(QLatin1Char('\n'), QLatin1Char(' ')));
        text += '\n' + fields.join(QLatin1Char('\t')).toUtf8();
    }
    return text;
}

/// That of the same font in the list, to which it is added where it lacks; -1 when there is no
/// room.
int CFontImport::handleOf(const SProjectFont &font, ProjectFontList &fonts) const
{
    const auto isSame = [&](SProjectFont other) {
        const QString file = m_project->absoluteFolder(other.file);
        const bool isSameFile = file == font.file || CFileCopies::areEqual(file, font.file);
        other.handle = font.handle;
        other.name = font.name;
        other.file = font.file;
        other.fallback = font.fallback;
        return isSameFile && other == font;
    };
    const auto found = std::find_if(fonts.begin(), fonts.end(), isSame);
    if (found != fonts.end())
        return found->handle;
    const bool isFree = std::none_of(fonts.begin(), fonts.end(), [&font](const auto &each) {
        return each.handle == font.handle;
    });
    SProjectFont added = font;
    added.handle = isFree ? font.handle : ProjectFonts::freeHandle(fonts);
    if (added.handle < 0)
        return -1;
    fonts.append(added);
    return added.handle;
}

QString CFontImport::bring(SItemElement &root, const QByteArray &fonts)
{
    const bool isOwn = fonts.startsWith(markOf(*m_project) + '\n');
    if (isOwn || fonts.isEmpty() || fonts.size() > LongestList)
        return {};
    QSet<int> used;
    forEachAttribute(root, [&used](ItemAttribute &each) {
        if (isFontKey(each.name))
            used.insert(handleFrom(each.text));
    });
    const ProjectFontList given = parsed(fonts);
    used = withFallbacks(used, given);
    const ProjectFontList before = m_project->fonts();
    ProjectFontList after = before;
    QHash<int, int> handles;
    for (const SProjectFont &each : given) {
        const int handle = used.contains(each.handle) ? handleOf(each, after) : -1;
        if (handle >= 0)
            handles.insert(each.handle, handle);
    }
    for (int index = before.size(); index < after.size(); ++index) {
        QVector<int> fallback;
        for (const int each : qAsConst(after[index].fallback)) {
            if (handles.contains(each))
                fallback.append(handles[each]);
        }
        after[index].fallback = fallback;
    }
    if (after.size() > before.size()) {
        const QString problem = FontFiles::bringIn(*m_project, after);
        if (!problem.isEmpty())
            return problem;
        std::sort(after.begin(), after.end(),
                  [](const auto &left, const auto &right) { return left.handle < right.handle; });
        m_fonts = after;
    }
    forEachAttribute(root, [&handles](ItemAttribute &each) {
        const int handle = isFontKey(each.name) ? handleFrom(each.text) : -1;
        if (handles.contains(handle))
            each.text = QString::number(handles[handle]);
    });
    return {};
}

QUndoCommand *CFontImport::command(QUndoCommand *parent) const
{
    return m_fonts.isEmpty() ? nullptr : new CCommandChangeFonts(m_project, m_fonts, parent);
}
