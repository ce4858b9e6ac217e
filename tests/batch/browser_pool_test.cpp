#include "batch/browser_pool.h"
#include "capture/browser/browser_locator.h"
#include "tests/support/await.h"
#include "tests/support/temp_folder.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const QFile::Permissions kProgram =
    QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;

class BrowserPoolTest : public testing::Test
{
protected:
    BrowserPoolTest()
    {
        QFile::setPermissions(m_folder.path({}), kProgram);
        m_options.program = m_folder.path(u"browser"_s);
    }

    void install()
    {
        const QByteArray real = locateBrowser().value().toUtf8();
        (void)m_folder.write(u"browser"_s, "#!/bin/sh\nexec '" + real + "' \"$@\"\n");
        QFile::setPermissions(m_options.program, kProgram);
    }

    const test::TempFolder m_folder;
    BrowserOptions m_options;
};

TEST_F(BrowserPoolTest, ABrowserThatIsMissingForAMomentIsStartedAgainOnceOneHasRun)
{
    BrowserPool pool(m_options);
    EXPECT_FALSE(test::await(pool.browser())) << "the first start is not tried again";
    install();
    const auto first = test::await(pool.browser());
    ASSERT_TRUE(first) << first.error().text().toStdString();
    (*first)->setFaulty();
    QFile::remove(m_options.program);
    QTimer::singleShot(500, &pool, [this] { install(); });
    const auto second = test::await(pool.browser());
    ASSERT_TRUE(second) << second.error().text().toStdString();
    EXPECT_NE(*first, *second);
    (*second)->setFaulty();
    QFile::remove(m_options.program);
    QTimer::singleShot(300, &pool, [&pool] { pool.stop(); });
    EXPECT_FALSE(test::await(pool.browser())) << "the end of the run is the end of the attempts";
}

} // namespace

} // namespace vistrel
