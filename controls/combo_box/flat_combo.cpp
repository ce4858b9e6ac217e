#include "controls/combo_box/flat_combo.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QStandardItemModel>
#include <QWheelEvent>

namespace vistrel
{

namespace
{

constexpr int textMargin = 3;

class ListBelowFrame : public QProxyStyle
{
public:
    explicit ListBelowFrame(const FlatCombo& box) : m_box(box) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override
    {
        if (hint == SH_ComboBox_Popup) return 0; // A list, not a menu over the box.
        if (hint == SH_ComboBox_PopupFrameStyle) return static_cast<int>(QFrame::Box) | QFrame::Plain;
        return QProxyStyle::styleHint(hint, option, widget, result);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override
    {
        if (part == SC_ComboBoxListBoxPopup && control == CC_ComboBox) return m_box.frame();
        return QProxyStyle::subControlRect(control, option, part, widget);
    }

private:
    const FlatCombo& m_box;
};

class Items : public QStandardItemModel
{
public:
    explicit Items(FlatCombo& box) : QStandardItemModel(&box), m_box(box) {}

    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const Qt::ItemFlags flags = QStandardItemModel::flags(index);
        return m_box.isLocked() ? flags & ~Qt::ItemIsSelectable : flags;
    }

private:
    const FlatCombo& m_box;
};

} // namespace

FlatCombo::FlatCombo(QWidget* parent) : QComboBox(parent)
{
    auto* style = new ListBelowFrame(*this);
    style->setParent(this);
    setStyle(style);
    setModel(new Items(*this));
    setFocusPolicy(Qt::StrongFocus);
    view()->setTextElideMode(Qt::ElideRight);
    view()->installEventFilter(this);
}

void FlatCombo::showWithin(const QRect& frame, const QRect& field)
{
    m_frame = frame;
    m_field = field;
    setMask(frame.adjusted(1, 1, -1, -1));
}

void FlatCombo::paintEvent(QPaintEvent*)
{
    const auto color = [this](QPalette::ColorRole role) { return palette().color(role); };
    QPainter painter(this);
    painter.fillRect(rect(), color(isEnabled() ? QPalette::Base : QPalette::Button));
    if (hasFocus()) painter.fillRect(m_field.adjusted(1, 1, -1, -1), color(QPalette::Highlight));
    painter.setPen(color(hasFocus() ? QPalette::HighlightedText : QPalette::Text));
    const QRect text = m_field.adjusted(textMargin, 0, -textMargin, 0);
    painter.drawText(text, QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter),
                     fontMetrics().elidedText(currentText(), Qt::ElideRight, text.width()));
}

void FlatCombo::keyPressEvent(QKeyEvent* event)
{
    if (m_isLocked)
        event->ignore();
    else
        QComboBox::keyPressEvent(event);
}

// The open list takes what these keys choose, though it cannot be selected.
bool FlatCombo::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (m_isLocked && isKey) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Select) {
            hidePopup();
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void FlatCombo::wheelEvent(QWheelEvent* event)
{
    if (m_isLocked || !hasFocus())
        event->ignore();
    else
        QComboBox::wheelEvent(event);
}

} // namespace vistrel
