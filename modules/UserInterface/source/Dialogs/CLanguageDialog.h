#pragma once

#include <QDialog>

class QComboBox;

/// Chooses the language of the program from the translations that lie in a folder.
class CLanguageDialog : public QDialog
{
    Q_OBJECT

public:
    /// `folder` is the one with the translations; `current` the locale name of the language in
    /// force, which may be empty.
    CLanguageDialog(const QString &folder, const QString &current, QWidget *parent = nullptr);

public Q_SLOTS:
    void accept() override;

Q_SIGNALS:
    /// The locale name that the translation's file carries, such as "de".
    void languageChanged(const QString &language);

private:
    void listLanguages(const QString &folder);

    QComboBox *const m_languages;
};
