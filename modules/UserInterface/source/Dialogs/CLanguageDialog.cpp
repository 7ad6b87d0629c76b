#include "CLanguageDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString prefix = QStringLiteral("NYX_");
const QString suffix = QStringLiteral(".qm");
constexpr int FieldWidth = 200;

/// The language in its own words, with the country where the file names one.
QString captionOf(const QString &localeName)
{
    const QLocale locale(localeName);
    QString caption = locale.nativeLanguageName();
    if (caption.isEmpty() || locale.language() == QLocale::English) // would be American English
        caption = QLocale::languageToString(locale.language());
    if (!caption.isEmpty())
        caption.replace(0, 1, locale.toUpper(caption.left(1)));
    if (localeName.contains(QLatin1Char('_')))
        caption += QStringLiteral(" (%1)").arg(locale.nativeCountryName());
    return caption;
}

} // namespace

CLanguageDialog::CLanguageDialog(const QString &folder, const QString &current, QWidget *parent)
    : QDialog(parent), m_languages(new QComboBox(this))
{
    setWindowTitle(tr("Change Language"));
    m_languages->setObjectName(QStringLiteral("languages"));
    m_languages->setMinimumWidth(FieldWidth);
    listLanguages(folder);
    const int inForce = m_languages->findData(current);
    m_languages->setCurrentIndex(inForce < 0 ? 0 : inForce);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setEnabled(m_languages->count() > 0);
    connect(buttons, &QDialogButtonBox::accepted, this, &CLanguageDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CLanguageDialog::reject);

    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setHorizontalSpacing(8);
    form->addRow(tr("&Language:"), m_languages);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addLayout(form);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void CLanguageDialog::listLanguages(const QString &folder)
{
    const QStringList files =
        QDir(folder).entryList({prefix + QLatin1Char('*') + suffix}, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        const QString language =
            file.mid(prefix.size(), file.size() - prefix.size() - suffix.size());
        if (!language.isEmpty())
            m_languages->addItem(captionOf(language), language);
    }
}

void CLanguageDialog::accept()
{
    if (m_languages->currentIndex() < 0)
        return;
    Q_EMIT languageChanged(m_languages->currentData().toString());
    QDialog::accept();
}
