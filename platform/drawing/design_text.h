#pragma once

#include "platform/drawing/property_bag.h"
#include "platform/result.h"

namespace vistrel
{

/// One control of a form's design data.
struct ControlDesign {
    QString name;      ///< Instance name, no blanks: "fbConvert", "fbMake(0)".
    QString className; ///< "FButton"
    PropertyBag properties;

    friend bool operator==(const ControlDesign&, const ControlDesign&) = default;
};

/// Reads design data. The format, line by line (blanks around a line and around "=" do not count):
///
///     ; a comment; empty lines are allowed, too
///     [fbConvert FButton]              a control: its name and its class
///     Caption = "Convert  \r\n"        text, always in quotes; escapes \" \\ \r \n \t
///     style = -1                       integer, 32 bits
///     IfDraw = true                    Boolean: true or false
///     BackColor = 0x8000000F           colour, one to eight hexadecimal digits
///     Font = MS Sans Serif, 8.25 pt, bold, italic, underline
///     Picture = @folder.png            picture by its name in the program's resources
///
/// Error::Kind::Format for the first malformed line, a key given twice for one control, a property before any
/// control, or a picture that is not in the resources; the message starts with "line N: ".
Result<QList<ControlDesign>> readDesign(const QString& text);

/// What stands to the right of "=" for value.
QString designValue(const PropertyValue& value);

/// The same text form; readDesign() gives the same controls back. Lines end in LF.
QString writeDesign(const QList<ControlDesign>& controls);

} // namespace vistrel
