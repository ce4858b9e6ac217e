#pragma once

#include "app/frm_main.h"
#include "controls/flat_button/f_button.h"
#include "platform/forms/label.h"
#include "platform/forms/text_box.h"
#include "tests/convert/scripted_capture.h"
#include "tests/support/fake_file_dialogs.h"
#include "tests/support/fake_message_boxes.h"
#include "tests/support/memory_files.h"
#include "tests/support/pointer.h"
#include "tests/support/printers.h"
#include "tests/support/temp_folder.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace vistrel::test
{

/// What the desktop was asked to open, in order.
class FakeShell final : public Shell
{
public:
    explicit FakeShell(QStringList& opened) : m_opened(opened) {}
    void open(WindowHandle, const QString& target) override { m_opened += target; }
    void internetOptions(WindowHandle) override { m_opened += QStringLiteral("internet options"); }

private:
    QStringList& m_opened;
};

/// The main window with a settings file of its own, files in memory, dialogs, message boxes and a desktop
/// that answer as they are told, and a scripted page-capture component.
class WizardTest : public testing::Test
{
protected:
    /// The first run, unless settings says otherwise: lines of the settings file.
    void start(const QByteArray& settings = {})
    {
        if (!settings.isEmpty()) (void)folder.write(QStringLiteral("Config.Ini"), "[Main]\r\n" + settings);
        window = std::make_unique<frmMain>(program);
        window->Form_Load();
        window->show();
        QApplication::setActiveWindow(window.get());
        QApplication::processEvents();
    }
    void startAgain() { start("FirstTime=1\r\nOutputFolder=/out/\r\n"); }

    template<typename Control>
    Control& control(const QString& name) const
    {
        return window->control<Control>(name);
    }
    ControlWidget& widget(const QString& name) const { return control<ControlWidget>(name); }

    void click(const QString& name, Qt::MouseButton button = Qt::LeftButton)
    {
        Pointer::click(widget(name), widget(name).rect().center(), button);
        QApplication::processEvents();
    }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    QString notice() const { return control<Label>(QStringLiteral("lblNotice")).Caption(); }
    QString list() const { return control<TextBox>(QStringLiteral("txtURLList")).Text(); }
    void setList(const QString& text) { control<TextBox>(QStringLiteral("txtURLList")).setText(text); }
    bool listHasFocus() const { return widget(QStringLiteral("txtURLList")).hasFocus(); }

    TempFolder folder;
    FakeFileDialogs dialogs;
    FakeMessageBoxes messages;
    MemoryFiles files;
    CallLog captureLog;
    CaptureScript script;
    QStringList opened;
    Program program{dialogs,
                    messages,
                    files,
                    [this](const QString&) { return std::make_shared<ScriptedCapture>(captureLog, script); },
                    std::make_unique<FakeShell>(opened),
                    folder.path(QStringLiteral("Config.Ini"))};
    std::unique_ptr<frmMain> window;
};

} // namespace vistrel::test
