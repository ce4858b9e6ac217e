#include "platform/forms/text_box.h"

#include "platform/forms/list_edit.h"

#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color buttonShadow = Color::system(SystemColor::ButtonShadow);
constexpr Color windowBackground = Color::system(SystemColor::Window);
constexpr Color windowText = Color::system(SystemColor::WindowText);

/// With every line break as the edit field keeps it.
QString withSingleBreaks(QString text) { return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n'); }

/// The edit field's text, blanks of every kind as they were typed.
QString rawText(const QPlainTextEdit& edit)
{
    return edit.document()
        ->toRawText()
        .replace(QChar::ParagraphSeparator, u'\n')
        .replace(QChar::LineSeparator, u'\n');
}

} // namespace

TextBox::TextBox(QWidget* parent) : ControlWidget(ScaleMode::Pixels, parent), m_txtText(new ListEdit(this))
{
    m_txtText->setObjectName(u"txtText"_s);
    setFocusProxy(m_txtText);
    connect(m_txtText, &ListEdit::filesDropped, this, &TextBox::filesDropped);
}

void TextBox::InitProperties() { ReadProperties({}); }

void TextBox::ReadProperties(const PropertyBag& bag)
{
    m_borderColor = bag.readColor(u"BorderColor"_s, buttonShadow);
    m_backColor = bag.readColor(u"BackColor"_s, windowBackground);
    m_foreColor = bag.readColor(u"ForeColor"_s, windowText);
    m_font = bag.readFont(u"Font"_s, ambientFont());
    QPalette colors = m_txtText->palette();
    colors.setColor(QPalette::Base, m_backColor.toQColor());
    colors.setColor(QPalette::Text, m_foreColor.toQColor());
    m_txtText->setPalette(colors);
    m_txtText->setFont(m_font.toQFont());
    setText(bag.readString(u"Text"_s, {}));
    surfaceResize();
}

void TextBox::WriteProperties(PropertyBag& bag) const
{
    bag.writeColor(u"BorderColor"_s, m_borderColor, buttonShadow);
    bag.writeColor(u"BackColor"_s, m_backColor, windowBackground);
    bag.writeColor(u"ForeColor"_s, m_foreColor, windowText);
    bag.writeFont(u"Font"_s, m_font, ambientFont());
    bag.writeString(u"Text"_s, Text(), {});
}

QString TextBox::Text() const { return rawText(*m_txtText).replace(u"\n"_s, u"\r\n"_s); }

void TextBox::setText(const QString& New_Text)
{
    const QString next = withSingleBreaks(New_Text);
    const QString present = rawText(*m_txtText);
    if (next.startsWith(present) && !present.isEmpty()) {
        QTextCursor end(m_txtText->document());
        end.movePosition(QTextCursor::End);
        end.insertText(next.sliced(present.size()));
    } else {
        m_txtText->setPlainText(next);
    }
    Q_EMIT propertyChanged(u"Text"_s);
}

qint32 TextBox::SelStart() const
{
    const QTextCursor caret = m_txtText->textCursor();
    return caret.selectionStart() + m_txtText->document()->findBlock(caret.selectionStart()).blockNumber();
}

void TextBox::moveCaretToEnd() { m_txtText->moveCursor(QTextCursor::End); }

void TextBox::surfaceResize()
{
    Surface& canvas = drawingSurface();
    canvas.setBackColor(m_backColor);
    canvas.clear();
    canvas.drawRectangle(0, 0, canvas.ScaleWidth() - 1, canvas.ScaleHeight() - 1, m_borderColor);
    m_txtText->setGeometry(rect().adjusted(1, 1, -1, -1));
}

} // namespace vistrel
