#include "CBatchImage.h"

#include "CBatchEditor.h"
#include "CThemeIcons.h"

#include <QAction>
#include <QLineEdit>

CBatchImage::CBatchImage(CBatchEditor *editor, const QString &key, QWidget *parent)
    : CBatchField(editor, key, parent), m_line(new QLineEdit(this))
{
    m_line->setReadOnly(true);
    setContent(m_line);
    QAction *choose = m_line->addAction(
        CThemeIcons::icon(QStringLiteral(":/images/openProject.png")), QLineEdit::TrailingPosition);
    choose->setObjectName(QStringLiteral("chooseFile"));
    choose->setToolTip(tr("Choose a file"));
    connect(choose, &QAction::triggered, editor,
            [this] { this->editor()->chooseImage(this->key()); });
}

void CBatchImage::show(const CBatchItems::SProperty &property)
{
    m_line->setText(property.isMixed ? QString() : property.property.text());
    m_line->setPlaceholderText(property.isMixed ? mixedText() : QString());
}
