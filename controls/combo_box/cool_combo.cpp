#include "controls/combo_box/cool_combo.h"

#include "controls/combo_box/accessible_combo.h"
#include "controls/combo_box/button_pictures.h"
#include "controls/combo_box/combo_layout.h"
#include "controls/combo_box/drop_button.h"
#include "controls/combo_box/flat_combo.h"
#include "platform/drawing/rounding.h"
#include "platform/runtime_error.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

constexpr float initialWidth = 1500;
constexpr Color frameColor = Color::rgb(165, 150, 132);
constexpr Color white = Color::rgb(255, 255, 255);
constexpr int borderAndMarginPx = 8; // What a combo box needs above and below its text.
const QString initialText = u"QRT"_s;

QRect pixels(const QRectF& twips)
{
    return {twipsToPixels(twips.x()), twipsToPixels(twips.y()), twipsToPixels(twips.width()),
            twipsToPixels(twips.height())};
}

qint16 numberIn(const QString& text)
{
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    if (!isNumber || std::isnan(number)) throw RuntimeError(RuntimeError::Number::TypeMismatch);
    return roundToInt16(number);
}

} // namespace

coolCombo::coolCombo(QWidget* parent)
    : ControlWidget(ScaleMode::Twips, parent),
      m_pic1(new QWidget(this)),
      m_Combo1(new FlatCombo(m_pic1)),
      m_Pic2(new DropButton(m_pic1))
{
    installComboAccessibility();
    m_pic1->setObjectName(u"pic1"_s);
    m_pic1->setPalette(frameColor.toQColor());
    m_pic1->setAutoFillBackground(true);
    m_Combo1->setObjectName(u"Combo1"_s);
    m_Combo1->setFont(m_font.toQFont());
    m_Pic2->setObjectName(u"Pic2"_s);
    m_Pic2->setPicture(picUP());
    setFocusProxy(m_Combo1);
    applyColors();
    setSizeTwips(initialWidth, 0);
    connect(m_Pic2, &DropButton::clicked, this, &coolCombo::openFromButton);
    connect(m_Combo1, &FlatCombo::activated, this, &coolCombo::itemChosen);
    connect(this, &coolCombo::Validate, m_Pic2, [this] { m_Pic2->setPicture(picUP()); });
    connect(this, &coolCombo::LostFocus, this, &coolCombo::followBox);
}

void coolCombo::InitProperties()
{
    setText(initialText);
    setForeColor({0});
    setBackColor(white);
    setFont(ambientFont());
    setEnabled(true);
    setRightToLeft(false);
    setLocked(false);
}

void coolCombo::ReadProperties(const PropertyBag& bag)
{
    setText(bag.readString(u"Text"_s, initialText));
    setForeColor(bag.readColor(u"ForeColor"_s, {0}));
    setFont(bag.readFont(u"Font"_s, ambientFont()));
    setButtonIcon(bag.readPicture(u"ButtonIcon"_s));
    setEnabled(bag.readBool(u"Enabled"_s, true));
    setRightToLeft(bag.readBool(u"RightToLeft"_s, false));
    setBackColor(bag.readColor(u"BackColor"_s, white));
    setLocked(bag.readBool(u"Locked"_s, false));
}

void coolCombo::WriteProperties(PropertyBag& bag) const
{
    bag.writeString(u"Text"_s, m_Text, initialText);
    bag.writeColor(u"ForeColor"_s, m_ForeColor, {0});
    bag.writeFont(u"Font"_s, m_font, ambientFont());
    bag.writePicture(u"ButtonIcon"_s, ButtonIcon());
    bag.writeBool(u"Enabled"_s, Enabled(), true);
    bag.writeBool(u"RightToLeft"_s, RightToLeft(), false);
    bag.writeColor(u"BackColor"_s, m_BackColor, white);
    bag.writeBool(u"Locked"_s, Locked(), false);
}

// The box would select the first item by itself.
void coolCombo::AddItem(const QVariant& Item)
{
    const int selected = m_Combo1->currentIndex();
    m_Combo1->addItem(Item.toString());
    m_Combo1->setCurrentIndex(selected);
}

void coolCombo::Clear() { m_Combo1->clear(); }

void coolCombo::Refresh() { m_Combo1->repaint(); }

void coolCombo::RemoveItem(const qint16& Index)
{
    if (Index < 0 || Index >= m_Combo1->count())
        throw RuntimeError(RuntimeError::Number::InvalidProcedureCall);
    const bool isSelected = m_Combo1->currentIndex() == Index;
    m_Combo1->removeItem(Index);
    if (isSelected) m_Combo1->setCurrentIndex(-1);
}

void coolCombo::setText(const QString& New_Text) { m_Text = New_Text; }

void coolCombo::setForeColor(Color New_ForeColor)
{
    m_ForeColor = New_ForeColor;
    applyColors();
    Q_EMIT propertyChanged(u"ForeColor"_s);
}

void coolCombo::setFont(const vistrel::Font& New_Font)
{
    m_font = New_Font;
    m_Combo1->setFont(m_font.toQFont());
    reportLaidOut(u"Font"_s);
}

const Picture& coolCombo::ButtonIcon() const { return m_Pic2->picture(); }

void coolCombo::setButtonIcon(const Picture& New_ButtonIcon)
{
    m_Pic2->setPicture(New_ButtonIcon);
    reportLaidOut(u"ButtonIcon"_s);
}

void coolCombo::setEnabled(bool New_Enabled)
{
    setSurfaceEnabled(New_Enabled);
    reportLaidOut(u"Enabled"_s);
}

bool coolCombo::RightToLeft() const { return m_Combo1->isRightToLeft(); }

void coolCombo::setRightToLeft(bool New_RightToLeft)
{
    m_Combo1->setLayoutDirection(New_RightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    reportLaidOut(u"RightToLeft"_s);
}

void coolCombo::setBackColor(Color New_BackColor)
{
    m_BackColor = New_BackColor;
    applyColors();
    reportLaidOut(u"BackColor"_s);
}

bool coolCombo::Locked() const { return m_Combo1->isLocked(); }

void coolCombo::setLocked(bool New_Locked)
{
    m_Combo1->setLocked(New_Locked);
    reportLaidOut(u"Locked"_s);
}

QString coolCombo::ListIndex() const { return QString::number(m_Combo1->currentIndex()); }

void coolCombo::setListIndex(const QString& New_ListIndex)
{
    const qint16 index = numberIn(New_ListIndex);
    if (index < -1 || index >= m_Combo1->count())
        throw RuntimeError(RuntimeError::Number::InvalidPropertyValue);
    m_Combo1->setCurrentIndex(index);
    itemChosen();
    Q_EMIT propertyChanged(u"ListIndex"_s);
    m_Text = m_Combo1->currentText();
}

QString coolCombo::ListCount() const { return QString::number(m_Combo1->count()); }

void coolCombo::setListCount(const QString&) { Q_EMIT propertyChanged(u"ListCount"_s); }

void coolCombo::surfaceResize() { layOut(); }

void coolCombo::layOut()
{
    const int comboHeight = m_Combo1->fontMetrics().height() + borderAndMarginPx;
    const auto comboTwips = static_cast<float>(comboHeight * twipsPerPixel);
    const ComboLayout parts = layoutCombo(Width(), comboTwips, RightToLeft());
    m_pic1->setGeometry(pixels(parts.pic1));
    setSizeTwips(Width(), static_cast<float>(parts.pic1.height()));
    m_Combo1->setGeometry(pixels(parts.Combo1));
    m_Pic2->setGeometry(pixels(parts.Pic2));

    const QRect inside = m_pic1->rect().adjusted(1, 1, -1, -1);
    m_Pic2->setMask(inside.translated(-m_Pic2->pos()));
    QRect field = inside;
    if (RightToLeft())
        field.setLeft(m_Pic2->geometry().right() + 1);
    else
        field.setRight(m_Pic2->geometry().left() - 1);
    const QPoint origin = m_Combo1->pos();
    m_Combo1->showWithin(m_pic1->rect().translated(-origin), field.translated(-origin));
}

void coolCombo::reportLaidOut(const QString& property)
{
    layOut();
    Q_EMIT propertyChanged(property);
}

void coolCombo::applyColors()
{
    QPalette palette = classicPalette();
    palette.setColor(QPalette::WindowText, frameColor.toQColor()); // Outlines the list.
    palette.setColor(QPalette::Base, m_BackColor.toQColor());
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::Text, m_ForeColor.toQColor());
    m_Combo1->setPalette(palette);
}

void coolCombo::followBox()
{
    m_Text = m_Combo1->currentText();
    m_Pic2->setPicture(picUP());
}

void coolCombo::itemChosen()
{
    followBox();
    Q_EMIT Click();
}

void coolCombo::openFromButton()
{
    m_Pic2->setPicture(picDown());
    m_Combo1->setFocus();
    m_Combo1->showPopup();
}

AccessibleFacts coolCombo::accessibleFacts() const
{
    AccessibleFacts facts;
    facts.role = QAccessible::Grouping; // The box inside is what has the items.
    facts.value = m_Combo1->currentText();
    return facts;
}

} // namespace vistrel
