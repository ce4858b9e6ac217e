#pragma once

#include "platform/widgets/control_widget.h"

#include <QVariant>

namespace vistrel
{

class DropButton;
class FlatCombo;

/// A combo box to pick an item from, in a flat frame, with a drop button of its own. The control keeps a copy
/// of the selected text, Text, that follows the box at certain moments only.
///
/// The setters report their property through propertyChanged(), but Text's. Sizes are twips; the height is
/// fixed.
class coolCombo : public ControlWidget
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText)
    Q_PROPERTY(vistrel::Color ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(vistrel::Font Font READ Font WRITE setFont)
    Q_PROPERTY(vistrel::Picture ButtonIcon READ ButtonIcon WRITE setButtonIcon)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(bool RightToLeft READ RightToLeft WRITE setRightToLeft)
    Q_PROPERTY(vistrel::Color BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(QString ListIndex READ ListIndex WRITE setListIndex)
    Q_PROPERTY(QString ListCount READ ListCount WRITE setListCount)

public:
    explicit coolCombo(QWidget* parent = nullptr);

    void InitProperties() override;
    /// Without a "ButtonIcon" the button stays empty until the first choice or loss of the focus.
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;

    /// Appends an item, converted to text.
    void AddItem(const QVariant& Item);
    /// Removes all items.
    void Clear();
    /// Repaints the box.
    void Refresh();
    /// Removes an item; nothing is selected afterwards if it was that one. An Index out of range is an
    /// InvalidProcedureCall.
    void RemoveItem(const qint16& Index);

    /// The selected item's text, as it was when an item was chosen, ListIndex was set or the focus left last;
    /// or what it was set to since. Setting it changes nothing but that.
    [[nodiscard]] const QString& Text() const { return m_Text; }
    void setText(const QString& New_Text);
    [[nodiscard]] Color ForeColor() const { return m_ForeColor; }
    void setForeColor(Color New_ForeColor);
    [[nodiscard]] const vistrel::Font& Font() const { return m_font; }
    void setFont(const vistrel::Font& New_Font);
    /// What the drop button shows now. The control's own pictures replace it with the first click, choice or
    /// loss of the focus.
    [[nodiscard]] const Picture& ButtonIcon() const;
    void setButtonIcon(const Picture& New_ButtonIcon);
    [[nodiscard]] bool Enabled() const { return surfaceEnabled(); }
    void setEnabled(bool New_Enabled);
    /// The text at the right, the drop button at the left.
    [[nodiscard]] bool RightToLeft() const;
    void setRightToLeft(bool New_RightToLeft);
    [[nodiscard]] Color BackColor() const { return m_BackColor; }
    void setBackColor(Color New_BackColor);
    /// The list opens, but the user cannot change the selection.
    [[nodiscard]] bool Locked() const;
    void setLocked(bool New_Locked);
    /// The selected item's number from 0 on, "-1" for none, as decimal text. Setting it raises Click. A text
    /// that is no number is a TypeMismatch, a number beyond 16 bits an Overflow, one that is neither -1 nor
    /// an item an InvalidPropertyValue.
    [[nodiscard]] QString ListIndex() const;
    void setListIndex(const QString& New_ListIndex);
    /// The number of items as decimal text. Setting it only reports the property.
    [[nodiscard]] QString ListCount() const;
    void setListCount(const QString& New_ListCount);

    [[nodiscard]] AccessibleFacts accessibleFacts() const override;

Q_SIGNALS:
    /// The user chose an item, perhaps the one that was selected before, or ListIndex was set.
    void Click();

protected:
    void surfaceResize() override;

private:
    void layOut();
    void reportLaidOut(const QString& property);
    void applyColors();
    void followBox();
    void itemChosen();
    void openFromButton();

    QWidget* m_pic1;
    FlatCombo* m_Combo1;
    DropButton* m_Pic2;
    QString m_Text;
    Color m_ForeColor;
    Color m_BackColor = Color::rgb(255, 255, 255);
    vistrel::Font m_font;
};

} // namespace vistrel
