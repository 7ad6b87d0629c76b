#pragma once

#include "CWidgetProperty.h"

#include <QVector>

class CItemModel;

/// Which of an item's properties a user sees in the panel, in which order and form.
namespace ShownProperties {
QVector<CWidgetProperty> of(const CItemModel &item);
}
