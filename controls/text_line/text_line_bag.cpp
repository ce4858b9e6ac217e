// How a text line is created, saved and loaded.
#include "controls/text_line/edit_field.h"
#include "controls/text_line/text_line.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr Color windowBackground = Color::system(SystemColor::Window);
constexpr Color windowText = Color::system(SystemColor::WindowText);
constexpr Color buttonFace = Color::system(SystemColor::ButtonFace);

} // namespace

void TextLine::InitProperties()
{
    m_hoverEffect = true;
    m_backColor = {0};
    m_createdAtRunTime = hostMode() == HostMode::Run;
}

void TextLine::ReadProperties(const PropertyBag& bag)
{
    m_fieldColor = bag.readColor(u"BackColor"_s, windowBackground);
    m_foreColor = bag.readColor(u"ForeColor"_s, windowText);
    applyColors();
    m_txtText->setEnabled(bag.readBool(u"Enabled"_s, true));
    setFont(bag.readFont(u"Font"_s, ambientFont()));
    m_txtText->setReadOnly(bag.readBool(u"Locked"_s, false));
    limitLength(bag.readInt32(u"MaxLength"_s, 0));
    usePointer(bag.readInt16(u"MousePointer"_s, 0));
    setMouseIcon(bag.readPicture(u"MouseIcon"_s));
    select(SelStart(), bag.readInt32(u"SelLength"_s, 0));
    select(bag.readInt32(u"SelStart"_s, 0), 0);
    m_txtText->insert(bag.readString(u"SelText"_s, {}));
    setFieldText(bag.readString(u"Text"_s, {}));
    m_txtText->setToolTip(bag.readString(u"ToolTipText"_s, {}));
    m_whatsThisHelpID = bag.readInt32(u"WhatsThisHelpID"_s, 0);
    drawingSurface().setBackColor(bag.readColor(u"BorderColor"_s, buttonFace));
    m_hoverEffect = bag.readBool(u"HoverEffect"_s, true);
    ShowFrame(!m_hoverEffect);
    setFieldText(bag.readString(u"ScrollBars"_s, {}));
    const auto lowBits = static_cast<qint16>(bag.readInt32(u"BackColor"_s, 0));
    m_backColor = {static_cast<quint32>(lowBits)};
    HoverLeave();
}

void TextLine::WriteProperties(PropertyBag& bag) const
{
    bag.writeColor(u"BackColor"_s, m_fieldColor, windowBackground);
    bag.writeColor(u"ForeColor"_s, m_foreColor, windowText);
    bag.writeBool(u"Enabled"_s, Enabled(), true);
    bag.writeFont(u"Font"_s, m_font, ambientFont());
    bag.writeBool(u"Locked"_s, Locked(), false);
    bag.writeInt32(u"MaxLength"_s, MaxLength(), 0);
    bag.writeInt32(u"MousePointer"_s, m_mousePointer, 0);
    bag.writePicture(u"MouseIcon"_s, m_mouseIcon);
    bag.writeInt32(u"SelLength"_s, SelLength(), 0);
    bag.writeInt32(u"SelStart"_s, SelStart(), 0);
    bag.writeString(u"SelText"_s, SelText(), {});
    bag.writeString(u"Text"_s, Text(), {});
    bag.writeString(u"ToolTipText"_s, ToolTipText(), {});
    bag.writeInt32(u"WhatsThisHelpID"_s, m_whatsThisHelpID, 0);
    bag.writeColor(u"BorderColor"_s, BorderColor(), buttonFace);
    bag.writeBool(u"HoverEffect"_s, m_hoverEffect, true);
    bag.writeString(u"ScrollBars"_s, Text(), {});
}

} // namespace vistrel
