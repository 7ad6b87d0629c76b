#pragma once

#include <QVariant>

class CWidgetProperty;

/// The value that a property should have instead of its own, because its text is not the one that
/// its type writes: whole and real numbers printed anew, an entry of an enumeration found when it
/// differs in case or is given by its index. Invalid when the value is as it should be.
QVariant canonicalValue(const CWidgetProperty &property);
