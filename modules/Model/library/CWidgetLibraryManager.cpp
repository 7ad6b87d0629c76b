#include "CWidgetLibraryManager.h"

#include "CToolboxModel.h"
#include "CWidgetLibraryModel.h"
#include "CXmlGuard.h"
#include "LibraryXml.h"

#include <QtDebug>

CWidgetLibraryManager::CWidgetLibraryManager(QObject *parent) : QObject(parent)
{
}

CWidgetLibraryManager::~CWidgetLibraryManager() = default;

CWidgetLibraryManager &CWidgetLibraryManager::instance()
{
    // Never deleted: its icons must not be destroyed after the application object.
    static auto *const manager = new CWidgetLibraryManager;
    return *manager;
}

void CWidgetLibraryManager::setChipCodes(const QVector<quint32> &chipCodes)
{
    m_chipCodes = chipCodes;
}

bool CWidgetLibraryManager::initialise(const QString &filePath, const QVector<quint32> &chipCodes)
{
    setChipCodes(chipCodes);
    return initialise(filePath);
}

bool CWidgetLibraryManager::initialise(const QString &filePath)
{
    m_errorText.clear();
    const auto bytes = CXmlGuard::readFile(filePath, &m_errorText);
    if (!bytes)
        return false;
    const auto document = CXmlGuard::parse(*bytes, &m_errorText);
    if (!document) {
        m_errorText = tr("%1: %2").arg(filePath, m_errorText);
        return false;
    }
    if (LibraryXml::root(*document).isNull()) {
        m_errorText = tr("%1 is not a widget library.").arg(filePath);
        return false;
    }
    const QStringList problems = LibraryXml::problems(*document);
    for (const QString &line : problems)
        qWarning().noquote() << line;
    for (const quint32 chipCode : qAsConst(m_chipCodes)) {
        m_toolboxes[chipCode] = std::make_unique<CToolboxModel>(*document);
        m_libraries[chipCode] = std::make_unique<CWidgetLibraryModel>(*document, chipCode);
    }
    return m_libraries.size() == static_cast<size_t>(m_chipCodes.size());
}

const CWidgetLibraryModel *CWidgetLibraryManager::libraryModel(quint32 chipCode) const
{
    const auto it = m_libraries.find(chipCode);
    return it == m_libraries.end() ? nullptr : it->second.get();
}

CToolboxModel *CWidgetLibraryManager::toolboxModel(quint32 chipCode) const
{
    const auto it = m_toolboxes.find(chipCode);
    return it == m_toolboxes.end() ? nullptr : it->second.get();
}
