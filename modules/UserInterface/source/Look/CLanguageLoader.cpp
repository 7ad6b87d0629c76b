#include "CLanguageLoader.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>

CLanguageLoader::CLanguageLoader(const QString &folder)
    : m_folder(folder + QStringLiteral("/languages/"))
{
}

CLanguageLoader::~CLanguageLoader()
{
    QCoreApplication::removeTranslator(&m_program);
    QCoreApplication::removeTranslator(&m_qt);
}

/// Numbers and dates are written as in the texts around them: with the system's own habits when
/// that speaks the language, such as those of Austria.
void CLanguageLoader::useLocale(const QString &language)
{
    const QLocale locale(language);
    QLocale::setDefault(QLocale::system().language() == locale.language() ? QLocale::system()
                                                                          : locale);
}

bool CLanguageLoader::load(const QString &language)
{
    if (language.contains(QLatin1Char('/')) || language.contains(QLatin1Char('\\')))
        return false; // a file elsewhere, which nobody has installed
    const QString program = m_folder + QStringLiteral("NYX_%1.qm").arg(language);
    if (!QFile::exists(program))
        return false;
    QCoreApplication::removeTranslator(&m_program);
    QCoreApplication::removeTranslator(&m_qt);
    // Qt's texts first: where both have one, the translator installed last wins.
    if (m_qt.load(m_folder + QStringLiteral("qt_%1.qm").arg(language)))
        QCoreApplication::installTranslator(&m_qt);
    if (m_program.load(program))
        QCoreApplication::installTranslator(&m_program);
    m_language = language;
    useLocale(language);
    return true;
}

void CLanguageLoader::loadSystemLanguage()
{
    const QString name = QLocale::system().name(); // such as "de_AT" or "zh_CN"
    if (!load(name) && !load(name.section(QLatin1Char('_'), 0, 0)))
        useLocale(m_language);
}
