#pragma once

#include "ItemGeometry.h"

#include <QVariant>

/// Keeps the geometry of an item in step with the properties that define it, in both directions: a
/// property changes the geometry, and a size that is set is written back into the property that
/// holds it in the item's mode.
class CItemGeometry
{
public:
    /// The properties as the geometry needs them.
    class IProperties
    {
    public:
        virtual ~IProperties() = default;
        /// Sets one, if the item has it and its value is another.
        virtual void writeBack(const QString &name, const QVariant &value, bool notify) = 0;
        /// Keeps a size that follows from another property up to date, so that setting it back to
        /// what it was (as an undo does) gives the defining property back as well.
        virtual void storeDerived(const QString &name, double size) = 0;
    };

    const ItemGeometry &values() const { return m_values; }
    /// Of another item of the same kind.
    void copyFrom(const CItemGeometry &other) { m_values = other.m_values; }

    static bool isGeometry(const QString &name); ///< whether apply() does anything
    void apply(const QString &name, const QVariant &value, IProperties &properties);
    void setWidth(double width, IProperties &properties);
    void setHeight(double height, IProperties &properties);
    void setRadius(double radius, IProperties &properties);
    void setAngle(double degrees, IProperties &properties);

private:
    void setRoundSize(double size, IProperties &properties);
    void deriveWidth(); // of two corners
    void deriveHeight();

    ItemGeometry m_values;
};
