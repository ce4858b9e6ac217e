#include "tests/app/wizard_test.h"

namespace vistrel::test
{

namespace
{

QString bagText(const ControlDesign& control) { return writeDesign({control}); }

TEST(FrmMainDesign, ComesBackUnchangedFromTheControls)
{
    const QList<ControlDesign> design = frmMainDesign();
    Form form({});
    ASSERT_TRUE(form.create(design, frmMainControlClasses()));

    const QList<ControlDesign> saved = form.design();
    ASSERT_EQ(saved.size(), design.size());
    for (qsizetype at = 0; at < design.size(); ++at)
        EXPECT_EQ(bagText(saved[at]), bagText(design[at]));
}

TEST(FrmMainDesign, KeepsItsOddlyWrittenCaptions)
{
    const QString design = writeDesign(frmMainDesign());
    for (const QString& caption : {u"Convert   "_s, u"Options    "_s, u"Help      "_s, u"Time out :"_s,
                                   u"Create thumbnail after caputing :"_s, u"x  Height:"_s})
        EXPECT_TRUE(design.contains(u"Caption = \"%1\"\n"_s.arg(caption))) << caption.toStdString();
}

} // namespace

} // namespace vistrel::test
