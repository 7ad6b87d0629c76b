#pragma once

#include "ProjectColours.h"

#include <QColor>
#include <QDialog>

class CColourField;
class CColourSwatches;
class QLabel;
class QLineEdit;

/// Asks for a colour: by its parts, as #rrggbb or a name, or one of those that the project uses or
/// that were chosen last; a click on one of these takes it. What is tried is told at once;
/// accepting adds it to the recent ones.
class CColourDialog : public QDialog
{
    Q_OBJECT

public:
    CColourDialog(const QColor &start, const ProjectColours::Uses &used, QWidget *parent = nullptr);

    const QColor &colour() const { return m_colour; }
    /// Beside a widget rather than over it.
    void standBeside(const QWidget *widget);

    void accept() override;

Q_SIGNALS:
    void colourTried(const QColor &colour); ///< also back at the one there was

private:
    void tryColour(const QColor &colour);
    void showColour();
    QLabel *addHeading(const QString &text);

    const QColor m_start;
    QColor m_colour;
    CColourField *m_field;
    QLineEdit *m_text;
    QLabel *m_compare; ///< the colour that was there, and the one that is tried
};
