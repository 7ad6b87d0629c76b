#pragma once

#include <QString>

#include <optional>

class CItemModel;

/// The numbers of an item by the names that an expression may have for them.
namespace ItemNumbers {
/// A property that is a number, as it is shown, by its key or by what users know it as (see
/// PropertyWords::keyOf); "x", "y", "x2" and "y2" for the
/// coordinates; "width" and "height" of the frame for an item that has no such property. Nothing
/// for any other name.
std::optional<double> find(const CItemModel &item, const QString &name);
} // namespace ItemNumbers
