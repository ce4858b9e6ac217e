#pragma once

#include "app/program.h"
#include "platform/forms/form.h"

namespace vistrel
{

class Coolradiobutton;
class TextLine;
class coolCombo;
class cpvSlider;

/// The Options page. Every change of the user goes into the settings at once.
class MainOptions
{
public:
    /// Takes over the events of the page's controls. Both outlive it.
    MainOptions(Form& form, Program& program);

    /// Fills the two combo boxes; an item's position is the stored value.
    void addItems();
    /// Shows the settings in the controls. What a control does not take is skipped.
    void showSettings();

private:
    using WholeNumberSetter = void (clsConfig::*)(qint32);

    /// What one of the boxes for seconds accepts: 0 or more, up to 300; anything else becomes instead.
    struct SecondsRule {
        int least;
        QString instead;
    };

    void connectChoices();
    void connectNumbers();
    void connectButtons();
    void chkThum_Click();
    void validateSeconds(TextLine& box, const SecondsRule& rule, WholeNumberSetter store);
    void validateSize(TextLine& box, qint32 previous, WholeNumberSetter store);
    void enableSizeBoxes(bool enabled);
    void txtOutputFolder_DblClick();
    void fbOutpath_Click();
    void fbInternetOptions_Click();

    [[nodiscard]] clsConfig& config() const { return *m_program.Config; }
    [[nodiscard]] Coolradiobutton& check(const QString& name) const;
    [[nodiscard]] TextLine& box(const QString& name) const;

    Form& m_form;
    Program& m_program;
    coolCombo& m_cobFileType;
    coolCombo& m_cobFileName;
    cpvSlider& m_csQuality;
    TextLine& m_txtOutputFolder;
    TextLine& m_txtThumWidth;
    TextLine& m_txtThumHeight;
};

} // namespace vistrel
