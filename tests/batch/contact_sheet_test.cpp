#include "batch/contact_sheet.h"

#include "tests/support/temp_folder.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

TEST(ContactSheet, NothingOfAnEntryReachesThePageAsMarkup)
{
    const test::TempFolder folder;
    ContactSheet sheet;
    ASSERT_TRUE(sheet.open(folder.path(u"sheet.html"_s)));
    Entry entry;
    entry.text = u"http://u:secret@h/</script><img src=x onerror=alert(1)>"_s;
    Outcome outcome = Outcome::failed(u"<!-- </SCRIPT>"_s);
    outcome.file = folder.path(u"a #1%.png"_s);
    sheet.add(entry, outcome);
    sheet.add(entry, outcome);
    ASSERT_TRUE(sheet.close());
    const QByteArray html = folder.read(u"sheet.html"_s);
    EXPECT_EQ(html.toLower().count("</script"), 1);
    EXPECT_FALSE(html.contains("<img src=x"));
    EXPECT_FALSE(html.contains("secret"));
    EXPECT_TRUE(html.contains("\"./a%20%231%25.png\""));
}

TEST(ContactSheet, AFolderThatIsNotThereIsAnError)
{
    ContactSheet sheet;
    EXPECT_FALSE(sheet.open(u"/no/such/folder/sheet.html"_s));
}

} // namespace

} // namespace vistrel
