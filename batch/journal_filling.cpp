#include "batch/journal_filling.h"

#include "batch/entry_source.h"
#include "platform/shortcut_file.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Decides what is loaded for entry, while relative paths still mean what the user meant.
void findTarget(Entry& entry)
{
    const QFileInfo file(entry.text);
    if (!file.isFile()) {
        entry.target = entry.text;
    } else if (entry.text.endsWith(u".url", Qt::CaseInsensitive)) {
        entry.target = ReadShortcutUrl(entry.text);
        if (entry.target.isEmpty()) entry.problem = u"the shortcut holds no address"_s;
    } else {
        entry.target = file.absoluteFilePath();
    }
}

} // namespace

Result<void> fillJournal(Journal& journal, const Plan& plan, OutputNames& names, std::istream& input)
{
    EntrySource source(plan, input);
    const bool nameLater = names.dependOnPage();
    auto done = journal.beginFilling();
    while (done) {
        auto next = source.next();
        if (!next) return next.error();
        if (!*next) return journal.endFilling();
        Entry& entry = **next;
        findTarget(entry);
        const auto name = nameLater ? Result<QString>(QString()) : names.claim(entry);
        if (!name) return name.error();
        done = journal.add(entry, *name);
    }
    return done;
}

} // namespace vistrel
