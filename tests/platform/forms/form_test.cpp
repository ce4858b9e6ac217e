#include "platform/forms/form.h"

#include "platform/forms/label.h"
#include "platform/forms/placement.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QString header = u"[frmTest Form]\nClientWidth = 3000\nClientHeight = 1500\n"_s;

Result<void> create(Form& form, const QString& text)
{
    const auto design = readDesign(text);
    return design ? form.create(*design, hostControlClasses()) : design.error();
}

QString problem(const QString& text)
{
    Form form({});
    const auto created = create(form, text);
    return created ? QString() : created.error().text();
}

TEST(Form, PlacesControlsInTheirContainersAndWritesWhatTheyAreNow)
{
    Form form({});
    ASSERT_TRUE(
        create(form, header + u"[picPage PictureBox]\nLeft = 150\nTop = 300\nWidth = 600\nHeight = 450\n"
                              "[lblName Label]\nContainer = \"picPage\"\nLeft = 30\nTop = 45\nWidth = 300\n"
                              "Height = 255\nVisible = false\nHostEnabled = false\nTag = \"t\"\n"
                              "AccessibleName = \"Name\"\nCaption = \"Hello\"\n"_s));
    EXPECT_EQ(form.size(), QSize(200, 100));
    auto& label = form.control<Label>(u"lblName"_s);
    EXPECT_EQ(label.geometry(), QRect(2, 3, 20, 17));
    EXPECT_EQ(label.parentWidget(), &form.control<ControlWidget>(u"picPage"_s));
    EXPECT_TRUE(label.isHidden() && !label.isEnabled());
    EXPECT_EQ(tagOf(label), u"t"_s);
    EXPECT_EQ(label.accessibleName(), u"Name"_s);

    label.setCaption(u"Bye"_s);
    label.move(4, 5);
    label.setEnabled(true);
    setTag(label, u"later"_s);
    EXPECT_EQ(writeDesign({form.design().last()}),
              u"[lblName Label]\nContainer = \"picPage\"\nLeft = 60\nTop = 75\nWidth = 300\nHeight = 255\n"
              "Visible = false\nTag = \"later\"\nAccessibleName = \"Name\"\nCaption = \"Bye\"\n"_s);
}

TEST(Form, SaysWhatIsWrongWithADesign)
{
    EXPECT_TRUE(problem(header).isEmpty());
    EXPECT_EQ(problem(u"[lblName Label]\n"_s), u"the design does not start with a form"_s);
    EXPECT_EQ(problem(header + u"[x Gauge]\n"_s), u"x is of the unknown class Gauge"_s);
    EXPECT_EQ(problem(header + u"[x Label]\nContainer = \"y\"\n"_s), u"x lies in the unknown y"_s);
    EXPECT_EQ(problem(header + u"[x Label]\n[x Shape]\n"_s), u"x is given twice"_s);
}

} // namespace

} // namespace vistrel
