#include "platform/desktop/desktop_message_boxes.h"

#include "platform/desktop/owner_widget.h"

#include <QGridLayout>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

/// Keeps the box of a short message wide enough for its title.
void widen(QMessageBox& box)
{
    constexpr int leastWidth = 260;
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid != nullptr)
        grid->addItem(new QSpacerItem(leastWidth, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

QMessageBox::StandardButton show(WindowHandle owner, QMessageBox::Icon icon, const QString& title,
                                 QString text, QMessageBox::StandardButtons buttons,
                                 QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(icon, title, text.replace(u"\r\n"_s, u"\n"_s), buttons, ownerWidget(owner));
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    widen(box);
    return QMessageBox::StandardButton(box.exec());
}

void showWithOk(WindowHandle owner, QMessageBox::Icon icon, const QString& title, const QString& text)
{
    show(owner, icon, title, text, QMessageBox::Ok, QMessageBox::Ok);
}

} // namespace

void DesktopMessageBoxes::information(WindowHandle owner, const QString& text)
{
    showWithOk(owner, QMessageBox::Information, programTitle.toString(), text);
}

void DesktopMessageBoxes::critical(WindowHandle owner, const QString& text)
{
    showWithOk(owner, QMessageBox::Critical, programTitle.toString(), text);
}

void DesktopMessageBoxes::exclamation(WindowHandle owner, const QString& text, const QString& title)
{
    showWithOk(owner, QMessageBox::Warning, title, text);
}

MessageBoxes::Button DesktopMessageBoxes::question(WindowHandle owner, const QString& text,
                                                   Button defaultButton)
{
    const auto answer =
        show(owner, QMessageBox::Question, programTitle.toString(), text, QMessageBox::Yes | QMessageBox::No,
             defaultButton == Button::Yes ? QMessageBox::Yes : QMessageBox::No);
    return answer == QMessageBox::Yes ? Button::Yes : Button::No;
}

} // namespace vistrel
