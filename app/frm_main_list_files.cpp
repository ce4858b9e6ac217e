#include "app/frm_main_list_files.h"

#include "controls/flat_button/f_button.h"
#include "convert/add_files.h"
#include "platform/forms/text_box.h"
#include "platform/shortcut_file.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr qint64 leastBytes = 3;
constexpr qint64 mostBytes = 65535;
const QString textFilter = u"Text file(*.txt)|*.txt"_s;

QString readShortcut(const QString& fileName) { return ReadShortcutUrl(fileName); }

} // namespace

MainListFiles::MainListFiles(Form& form, Program& program, MainRun& run)
    : m_form(form), m_program(program), m_run(run)
{
    connectEvents();
}

void MainListFiles::connectEvents()
{
    const auto onClick = [this](const QString& name, void (MainListFiles::*handler)()) {
        QObject::connect(&m_form.control<FButton>(name), &FButton::Click, &m_form,
                         [this, handler] { (this->*handler)(); });
    };
    onClick(u"fbClear"_s, &MainListFiles::fbClear_Click);
    onClick(u"fbLoadList"_s, &MainListFiles::LoadList);
    onClick(u"fbSaveList"_s, &MainListFiles::SaveList);
    onClick(u"fbAddFiles"_s, &MainListFiles::fbAddFiles_Click);
    QObject::connect(&m_form.control<TextBox>(u"txtURLList"_s), &TextBox::filesDropped, &m_form,
                     [this](const QStringList& paths) { addDroppedFiles(paths); });
}

void MainListFiles::fbClear_Click()
{
    m_run.setListText(u"* The line starts with \"*\" will be treated as comment\r\n"_s);
}

void MainListFiles::LoadList()
{
    QString path;
    const OpenDialog dialog{.fileMustExist = true, .filter = textFilter, .defaultExtension = u".txt"_s};
    if (!m_run.ShowOpenDialog(path, dialog)) return;
    const auto length = m_program.files.length(path);
    if (!length) return;
    if (*length > mostBytes || *length < leastBytes)
        return m_program.messageBoxes.critical(&m_form, u"Invalid file!"_s);
    const auto bytes = m_program.files.read(path);
    if (!bytes) return;
    m_run.setListText(m_run.listText() + u"\r\n"_s + m_program.codePage.toText(*bytes));
    m_run.moveListCaretToEnd();
    m_run.focusList();
}

// Where the old file cannot be deleted it stays as it is. Whether writing succeeds is not looked at.
void MainListFiles::SaveList()
{
    QString path;
    const OpenDialog dialog{.filter = textFilter, .title = u"Select a file"_s, .defaultExtension = u".txt"_s};
    if (!m_run.ShowOpenDialog(path, dialog)) return;
    if (m_program.files.exists(path)) {
        if (!mayOverwrite() || !m_program.files.remove(path)) return;
    }
    const QByteArray bytes = m_program.codePage.toBytes(m_run.listText());
    static_cast<void>(m_program.files.writeFromStart(path, bytes));
}

bool MainListFiles::mayOverwrite()
{
    using Button = MessageBoxes::Button;
    const QString question = u"The specified file already exists, do you wish to overwrite the file?"_s;
    return m_program.messageBoxes.question(&m_form, question, Button::No) == Button::Yes;
}

void MainListFiles::fbAddFiles_Click() { AddFiles(m_run, readShortcut, PathStyle::host()); }

void MainListFiles::addDroppedFiles(QStringList paths)
{
    for (QString& path : paths)
        AddListEntry(m_run, readShortcut, path);
    m_run.moveListCaretToEnd();
    m_run.focusList();
}

} // namespace vistrel
