#pragma once

#include <QString>
#include <QTranslator>

/// Puts the texts of the program and of Qt into a language, from the folder "languages" beside the
/// programs, and makes QLocale() that of the language, for numbers and dates in texts. Whoever
/// shows texts is told by QEvent::LanguageChange.
class CLanguageLoader
{
public:
    /// `folder`: where the programs lie, absolute.
    explicit CLanguageLoader(const QString &folder);
    ~CLanguageLoader();

    /// `language`: a locale name such as "de" or "zh_CN". False, and the language stays as it was,
    /// when there is no file for it.
    bool load(const QString &language);
    /// The language of the system, if there is a file for it.
    void loadSystemLanguage();
    QString language() const { return m_language; }
    const QString &folder() const { return m_folder; }

private:
    static void useLocale(const QString &language);

    QString m_folder;
    QString m_language = QStringLiteral("en"); ///< at first that of the sources
    QTranslator m_program;
    QTranslator m_qt;
};
