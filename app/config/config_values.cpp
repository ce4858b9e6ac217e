#include "app/config/config_values.h"

#include "app/util/lenient_number.h"
#include "app/util/mod_folders.h"
#include "app/util/mod_functions.h"
#include "platform/rounding.h"
#include "platform/text.h"

#include <array>
#include <functional>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr QStringView section = u"Main";

/// One key of the file and the field that it fills.
struct Key {
    QString name;
    std::function<void(ConfigValues&, const QString&)> load; // The text is empty when the key is missing.
    std::function<QString(const ConfigValues&)> save;
};

/// What a number may be.
template<typename Integer>
struct Range {
    Integer least = std::numeric_limits<Integer>::min();
    Integer most = std::numeric_limits<Integer>::max();
    std::optional<Integer> otherwise = {}; // Replaces a number out of range; none: the default does.
};

/// An empty text, or a number too large for the field, gives the field's default.
template<typename Integer>
Key number(const QString& name, Integer ConfigValues::*field, std::type_identity_t<Range<Integer>> range = {})
{
    const Integer absent = ConfigValues().*field;
    const auto load = [=](ConfigValues& values, const QString& text) {
        const auto stored = text.isEmpty() ? std::nullopt : roundedTo<Integer>(leadingNumber(text));
        const Integer value = stored.value_or(absent);
        const bool isInRange = value >= range.least && value <= range.most;
        values.*field = isInRange ? value : range.otherwise.value_or(absent);
    };
    return {name, load, [field](const ConfigValues& values) { return QString::number(values.*field); }};
}

/// "a" for true, "b" for false, in these very letters; an empty text gives the field's default.
Key letter(const QString& name, bool ConfigValues::*field)
{
    const bool absent = ConfigValues().*field;
    const auto load = [=](ConfigValues& values, const QString& text) {
        values.*field = text.isEmpty() ? absent : text == u"a"_s;
    };
    return {name, load, [field](const ConfigValues& values) { return values.*field ? u"a"_s : u"b"_s; }};
}

Key folder(const QString& name, QString ConfigValues::*field)
{
    constexpr qint32 documents = 5;
    const auto load = [field](ConfigValues& values, const QString& text) {
        values.*field = text.isEmpty() ? GetSpecialFolder(documents) : text;
    };
    return {name, load, [field](const ConfigValues& values) { return values.*field; }};
}

/// In the order in which they are read and written.
const std::array<Key, 15>& keys()
{
    using Values = ConfigValues;
    static const std::array<Key, 15> table{{
        number(u"FirstTime"_s, &Values::FirstTime),
        folder(u"OutputFolder"_s, &Values::OutputFolder),
        number(u"ImageType"_s, &Values::ImageType, {.least = 0, .most = 4}),
        // A missing scheme is "URL", a wrong one "Manual".
        number(u"NameAs"_s, &Values::NameAs, {.least = 0, .most = 2, .otherwise = 2}),
        number(u"OverWrite"_s, &Values::Overwrite, {.least = 0, .most = 1}),
        number(u"OpenOutput"_s, &Values::OpenOutput, {.least = 0, .most = 1}),
        number(u"TimeOut"_s, &Values::TimeOut, {.least = 5}),
        number(u"DelayTime"_s, &Values::DelayTime, {.least = 0, .most = 300}),
        number(u"JpgQuality"_s, &Values::JpgQuality, {.least = 1, .most = 100}),
        letter(u"Thumbnail"_s, &Values::Thumbnail),
        number(u"ThumWidth"_s, &Values::ThumWidth, {.least = 2}),
        number(u"ThumHeight"_s, &Values::ThumHeight, {.least = 2}),
        letter(u"EnableActiveX"_s, &Values::EnableActiveX),
        letter(u"EnableJava"_s, &Values::EnableJava),
        letter(u"EnableScript"_s, &Values::EnableScript),
    }};
    return table;
}

} // namespace

QString configPath() { return GetAppPath() + u"Config.Ini"_s; }

ConfigValues loadConfig(const QString& path, const ProfileFiles& files)
{
    const Profile profile = files.read(path);
    ConfigValues values;
    for (const Key& key : keys())
        key.load(values, StripNull(profile.value(section, key.name)));
    return values;
}

Result<void> saveConfig(const QString& path, const ConfigValues& values, const ProfileFiles& files)
{
    QList<ProfileFiles::Entry> entries;
    for (const Key& key : keys())
        entries.append({key.name, key.save(values)});
    return files.write(path, section.toString(), entries);
}

} // namespace vistrel
