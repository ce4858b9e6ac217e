#pragma once

#include "platform/drawing/color.h"
#include "platform/drawing/font.h"
#include "platform/drawing/picture.h"

#include <QList>
#include <QString>

#include <variant>

namespace vistrel
{

/// What one property of a control may hold. A colour stays apart from an integer so that it is written as a
/// colour.
using PropertyValue = std::variant<qint32, bool, QString, Color, Font, Picture>;

/// The saved properties of one control: keys with values, in the order in which they were written. Keys are
/// exact.
///
/// Reading converts between the numeric kinds: integer, colour and Boolean (true is -1, any number but 0
/// is true). RuntimeError::Number::TypeMismatch for a value of another kind, Number::Overflow for a number
/// that does not fit in 16 bits.
class PropertyBag
{
public:
    struct Entry {
        QString key;
        PropertyValue value;

        friend bool operator==(const Entry&, const Entry&) = default;
    };

    [[nodiscard]] const QList<Entry>& entries() const { return m_entries; }
    [[nodiscard]] bool contains(const QString& key) const { return find(key) != nullptr; }
    /// Adds key, or replaces its value in place.
    void set(const QString& key, const PropertyValue& value);

    /// A missing key reads as the default.
    [[nodiscard]] qint32 readInt32(const QString& key, qint32 defaultValue) const;
    [[nodiscard]] qint16 readInt16(const QString& key, qint16 defaultValue) const;
    [[nodiscard]] bool readBool(const QString& key, bool defaultValue) const;
    [[nodiscard]] QString readString(const QString& key, const QString& defaultValue) const;
    [[nodiscard]] Color readColor(const QString& key, Color defaultValue) const;
    [[nodiscard]] Font readFont(const QString& key, const Font& defaultValue) const;
    /// The default is no picture.
    [[nodiscard]] Picture readPicture(const QString& key) const;

    /// A value equal to its default is not written.
    void writeInt32(const QString& key, qint32 value, qint32 defaultValue);
    void writeBool(const QString& key, bool value, bool defaultValue);
    void writeString(const QString& key, const QString& value, const QString& defaultValue);
    void writeColor(const QString& key, Color value, Color defaultValue);
    void writeFont(const QString& key, const Font& value, const Font& defaultValue);
    /// The default is no picture. A picture without a name cannot be saved and is left out, too.
    void writePicture(const QString& key, const Picture& value);

    friend bool operator==(const PropertyBag&, const PropertyBag&) = default;

private:
    [[nodiscard]] const PropertyValue* find(const QString& key) const;

    QList<Entry> m_entries;
};

} // namespace vistrel
