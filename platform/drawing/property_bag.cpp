#include "platform/drawing/property_bag.h"

#include "platform/drawing/rounding.h"
#include "platform/runtime_error.h"

#include <optional>

namespace vistrel
{

namespace
{

std::optional<qint32> number(const PropertyValue& value)
{
    if (const auto* integer = std::get_if<qint32>(&value)) return *integer;
    if (const auto* color = std::get_if<Color>(&value)) return static_cast<qint32>(color->value);
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean ? -1 : 0;
    return std::nullopt;
}

qint32 requiredNumber(const PropertyValue& value)
{
    const std::optional<qint32> result = number(value);
    if (!result) throw RuntimeError(RuntimeError::Number::TypeMismatch);
    return *result;
}

template<typename T>
const T& required(const PropertyValue& value)
{
    const auto* result = std::get_if<T>(&value);
    if (result == nullptr) throw RuntimeError(RuntimeError::Number::TypeMismatch);
    return *result;
}

} // namespace

const PropertyValue* PropertyBag::find(const QString& key) const
{
    for (const Entry& entry : m_entries) {
        if (entry.key == key) return &entry.value;
    }
    return nullptr;
}

void PropertyBag::set(const QString& key, const PropertyValue& value)
{
    for (Entry& entry : m_entries) {
        if (entry.key == key) {
            entry.value = value;
            return;
        }
    }
    m_entries.append({key, value});
}

qint32 PropertyBag::readInt32(const QString& key, qint32 defaultValue) const
{
    const PropertyValue* value = find(key);
    return value != nullptr ? requiredNumber(*value) : defaultValue;
}

qint16 PropertyBag::readInt16(const QString& key, qint16 defaultValue) const
{
    return roundToInt16(readInt32(key, defaultValue));
}

bool PropertyBag::readBool(const QString& key, bool defaultValue) const
{
    const PropertyValue* value = find(key);
    return value != nullptr ? requiredNumber(*value) != 0 : defaultValue;
}

QString PropertyBag::readString(const QString& key, const QString& defaultValue) const
{
    const PropertyValue* value = find(key);
    return value != nullptr ? required<QString>(*value) : defaultValue;
}

Color PropertyBag::readColor(const QString& key, Color defaultValue) const
{
    const PropertyValue* value = find(key);
    return value != nullptr ? Color{static_cast<quint32>(requiredNumber(*value))} : defaultValue;
}

Font PropertyBag::readFont(const QString& key, const Font& defaultValue) const
{
    const PropertyValue* value = find(key);
    return value != nullptr ? required<Font>(*value) : defaultValue;
}

Picture PropertyBag::readPicture(const QString& key) const
{
    const PropertyValue* value = find(key);
    return value != nullptr ? required<Picture>(*value) : Picture();
}

void PropertyBag::writeInt32(const QString& key, qint32 value, qint32 defaultValue)
{
    if (value != defaultValue) set(key, value);
}

void PropertyBag::writeBool(const QString& key, bool value, bool defaultValue)
{
    if (value != defaultValue) set(key, value);
}

void PropertyBag::writeString(const QString& key, const QString& value, const QString& defaultValue)
{
    if (value != defaultValue) set(key, value);
}

void PropertyBag::writeColor(const QString& key, Color value, Color defaultValue)
{
    if (value != defaultValue) set(key, value);
}

void PropertyBag::writeFont(const QString& key, const Font& value, const Font& defaultValue)
{
    if (value != defaultValue) set(key, value);
}

void PropertyBag::writePicture(const QString& key, const Picture& value)
{
    if (!value.name().isEmpty()) set(key, value);
}

} // namespace vistrel
