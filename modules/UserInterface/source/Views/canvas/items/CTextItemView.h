#pragma once

#include "CItemView.h"

/// A text or a number. One that has no size of its own is as large as its text.
class CTextItemView final : public CItemView
{
    Q_OBJECT

public:
    enum class Mode { Text, Number };

    CTextItemView(CItemModel *item, const ICanvas &canvas, Mode mode);

    void onPropertyChanged(const QString &key) override;

protected:
    QRectF frameOfItem() const override;

private:
    QString shownText() const;

    const Mode m_mode;
};
