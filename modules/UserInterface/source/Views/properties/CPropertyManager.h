#pragma once

#include "SPropertyLook.h"

#include <QHash>
#include <QtVariantPropertyManager>

#include <functional>

class CWidgetProperty;

/// The rows' values and how they read: colours as #rrggbb, real numbers without idle zeros. Also
/// knows how a row is made from a property of the model and what the model would store for it.
/// Values of the model outside the limits of their property are shown as they are: the limits of
/// such a row give way.
class CPropertyManager : public QtVariantPropertyManager
{
    Q_OBJECT

public:
    static constexpr int Sixteenths = 16; ///< in a pixel
    static constexpr int Decimals = 4;    ///< smaller differences are no edit
    /// A colour's name as documents have it, with alpha where it is not opaque.
    static QString colourText(const QColor &colour);
    static QString numberText(double number);
    /// To as many decimals as are shown, halves away from zero.
    static double rounded(double number);

    explicit CPropertyManager(QObject *parent = nullptr);

    /// A new row for the property, with its limits and tool tip, showing its value.
    QtVariantProperty *addRow(const CWidgetProperty &property,
                              SPropertyLook::EEditor editor = SPropertyLook::EEditor::Plain);
    SPropertyLook::EEditor editorOf(const QtProperty *row) const { return m_editors.value(row); }
    /// A row that only tells something.
    QtVariantProperty *addText(const QString &name, const QString &text);
    /// How the number of a font reads; as any number while there is none.
    void setFontText(const std::function<QString(int)> &text) { m_fontText = text; }
    /// Shows a value of the model.
    void showValue(QtVariantProperty *row, const QVariant &value);
    /// The row's value as the model stores it: the entry of an enumeration, not its index.
    QVariant modelValue(const QtProperty *row) const;

protected:
    QString valueText(const QtProperty *property) const override;
    QIcon valueIcon(const QtProperty *property) const override;

    void uninitializeProperty(QtProperty *property) override;

private:
    void showEntry(QtVariantProperty *row, const QString &entry);
    static QString rangeText(const CWidgetProperty &property, int unit);

    std::function<QString(int)> m_fontText;
    QHash<const QtProperty *, SPropertyLook::EEditor> m_editors; ///< of those that are not plain
};
