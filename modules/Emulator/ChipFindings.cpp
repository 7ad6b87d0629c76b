#include "ChipFindings.h"

#include "CItemModel.h"
#include "CPlatformTable.h"
#include "CProjectModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetLibraryModel.h"
#include "ItemTree.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

class CFinder
{
    Q_DECLARE_TR_FUNCTIONS(ChipFindings)

public:
    explicit CFinder(const QString &platform) : m_platform(platform)
    {
        const auto &manager = CWidgetLibraryManager::instance();
        for (const uint32_t code : CPlatformTable().chipCodes())
            if (const CWidgetLibraryModel *library = manager.libraryModel(code))
                m_libraries.append(library);
    }

    QStringList findings;

    void lookAt(const CItemModel &item)
    {
        for (const CWidgetProperty &here : item.library()->properties(item.itemTypeName())) {
            const auto property = item.properties().constFind(here.key());
            if (property == item.properties().constEnd())
                continue;
            const QString problem = problemOf(item.itemTypeName(), here, *property);
            if (!problem.isEmpty())
                findings.append(messageLabel(item) + QStringLiteral(": ") + problem);
        }
    }

private:
    /// `here`: the definition for this chip; `property`: what the item has.
    QString problemOf(const QString &type, const CWidgetProperty &here,
                      const CWidgetProperty &property) const
    {
        if (here.isHidden()) {
            const auto isShown = [](const CWidgetProperty &other) { return !other.isHidden(); };
            return property.text() != here.text() && anyChip(type, here.key(), isShown)
                       ? tr("%1 is not available on %2").arg(here.key(), m_platform)
                       : QString();
        }
        if (here.propertyType() == PropertyType::Enum)
            return here.enumerationEntries().contains(property.text())
                       ? QString()
                       : tr("%1 \"%2\" is not available on %3")
                             .arg(here.key(), property.text(), m_platform);
        const auto differs = [&here](const CWidgetProperty &other) {
            return other.minimum() != here.minimum() || other.maximum() != here.maximum();
        };
        const double value = property.value().toDouble();
        const bool isOver = here.maximum().isValid() && value > here.maximum().toDouble();
        const bool isUnder = here.minimum().isValid() && value < here.minimum().toDouble();
        if ((!isOver && !isUnder) || !anyChip(type, here.key(), differs))
            return {};
        return isOver
                   ? tr("%1 %2 is over the maximum of %3, %4")
                         .arg(here.key(), property.text(), m_platform, here.maximum().toString())
                   : tr("%1 %2 is under the minimum of %3, %4")
                         .arg(here.key(), property.text(), m_platform, here.minimum().toString());
    }

    template<typename Test>
    bool anyChip(const QString &type, const QString &key, Test test) const
    {
        return std::any_of(
            m_libraries.begin(), m_libraries.end(), [&](const CWidgetLibraryModel *library) {
                const CWidgetLibraryModel::PropertySet properties = library->propertySet(type);
                const auto found = properties.constFind(key);
                return found != properties.constEnd() && test(*found);
            });
    }

    const QString m_platform;
    QList<const CWidgetLibraryModel *> m_libraries;
};

} // namespace

QStringList chipFindings(const CItemModel &screen)
{
    const CProjectModel *project = screen.project();
    CFinder finder(project ? project->platform() : QString());
    forEachItem(screen, [&finder](const CItemModel &each) {
        if (each.kind() == CItemModel::Kind::Widget && each.library())
            finder.lookAt(each);
    });
    return finder.findings;
}

QString messageLabel(const CItemModel &item)
{
    QString label = item.itemTypeName();
    if (!item.idString().isEmpty())
        label += QLatin1Char(' ') + item.idString();
    if (!item.name().isEmpty())
        label += QStringLiteral(" \"%1\"").arg(item.name());
    return label;
}
