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

TEST(FrmMainDesign, DecidesCaptionsColoursAndPlaces)
{
    QList<ControlDesign> design = frmMainDesign();
    for (ControlDesign& control : design) {
        if (control.name != u"fbClear"_s) continue;
        control.properties.set(u"Caption"_s, u"Empty"_s);
        control.properties.set(u"BackColor"_s, Color::rgb(1, 2, 3));
        control.properties.set(u"Left"_s, 150);
    }
    Form form({});
    ASSERT_TRUE(form.create(design, frmMainControlClasses()));

    const auto& fbClear = form.control<FButton>(u"fbClear"_s);
    EXPECT_EQ(fbClear.Caption(), u"Empty"_s);
    EXPECT_EQ(fbClear.x(), 10);
    EXPECT_EQ(fbClear.surface().image().pixelColor(3, 3), QColor(1, 2, 3));
}

TEST(FrmMainDesign, HoldsEveryTextThatTheUserReads)
{
    const QString design = writeDesign(frmMainDesign());
    const QStringList captions = {u"Convert   "_s,
                                  u"Options    "_s,
                                  u"Help      "_s,
                                  u"Add HTML Files"_s,
                                  u"Load List"_s,
                                  u"Save List"_s,
                                  u"Clear"_s,
                                  u"100%"_s,
                                  u"Image Format:"_s,
                                  u"Name Image files as:"_s,
                                  u"Output Path:"_s,
                                  u"Delay Time :"_s,
                                  u"Time out :"_s,
                                  u"seconds"_s,
                                  u"JPEG Quality:"_s,
                                  u"Create thumbnail after caputing :"_s,
                                  u"Width :"_s,
                                  u"x  Height:"_s,
                                  u"pixels"_s,
                                  u"Advanced"_s,
                                  u"Enable ActiveX"_s,
                                  u"Enable Java"_s,
                                  u"Enable Script"_s,
                                  u"Internet Options"_s,
                                  u"Open output folder after converting"_s,
                                  u"Overwrite existing image file"_s};
    for (const QString& caption : captions)
        EXPECT_TRUE(design.contains(u"Caption = \"%1\"\n"_s.arg(caption))) << caption.toStdString();
}

} // namespace

} // namespace vistrel::test
