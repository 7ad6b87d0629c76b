// The editor of a colour's row.
#include "CPendingEdit.h"
#include "CPropertyEditorFactory.h"
#include "CThemeIcons.h"

#include <QAction>
#include <QLineEdit>
#include <QtVariantPropertyManager>

namespace {
/// "#rrggbb", also without its "#", "#aarrggbb" or a colour's name.
QColor colourNamed(const QString &text)
{
    const QString name = text.trimmed();
    return QColor::isValidColor(name) ? QColor(name) : QColor(QLatin1Char('#') + name);
}
} // namespace

/// A colour is typed as its name, or chosen in a dialog.
QWidget *CPropertyEditorFactory::makeColourEdit(QtVariantPropertyManager *manager,
                                                QtProperty *property, QWidget *parent)
{
    auto *line = new QLineEdit(parent);
    QAction *swatch = line->addAction(property->valueIcon(), QLineEdit::LeadingPosition);
    const auto typed = [manager, property, line]() -> QVariant {
        const QColor colour = colourNamed(line->text());
        return colour.isValid() ? QVariant(colour) : manager->value(property);
    };
    CPendingEdit *pending = follow(manager, property, line, typed, [property, line, swatch] {
        line->setText(property->valueText());
        swatch->setIcon(property->valueIcon());
    });
    connect(line, &QLineEdit::editingFinished, pending, [this, property, line, pending] {
        if (!line->isModified())
            return;
        pending->touch();
        pending->commit();
        refresh(property); // what was no colour gives way to the one that is
    });
    QAction *choose = line->addAction(CThemeIcons::icon(QStringLiteral(":/images/RGB.png")),
                                      QLineEdit::TrailingPosition);
    choose->setObjectName(QStringLiteral("chooseColour"));
    choose->setToolTip(tr("Choose a colour"));
    for (QAction *opener : {swatch, choose})
        connect(opener, &QAction::triggered, pending,
                [this, property, line] { Q_EMIT colourWanted(property, line); });
    return line;
}
