#include "batch/command_line.h"

#include "tests/support/temp_folder.h"

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

Plan planOf(const QStringList& arguments)
{
    auto parsed = parseCommandLine(arguments);
    if (const auto* answer = std::get_if<Answer>(&parsed)) ADD_FAILURE() << answer->text.toStdString();
    return std::holds_alternative<Plan>(parsed) ? std::get<Plan>(parsed) : Plan();
}

ExitCode refusal(const QStringList& arguments)
{
    const auto parsed = parseCommandLine(arguments);
    return std::holds_alternative<Answer>(parsed) ? std::get<Answer>(parsed).exitCode : ExitCode::Converted;
}

TEST(CommandLine, EveryOptionReachesThePlan)
{
    const Plan plan = planOf(
        {u"a.txt"_s,        u"-"_s,        u"--url"_s,       u"http://x/"_s,   u"--url"_s,     u"y.example"_s,
         u"-o"_s,           u"out/"_s,     u"-f"_s,          u"jpeg"_s,        u"--name"_s,    u"number"_s,
         u"-q"_s,           u"55"_s,       u"--thumbnail"_s, u"200x150"_s,     u"--delay"_s,   u"1.5"_s,
         u"--timeout"_s,    u"12"_s,       u"--no-script"_s, u"--overwrite"_s, u"--browser"_s, u"chrome"_s,
         u"--no-sandbox"_s, u"--report"_s, u"r.jsonl"_s,     u"--verbose"_s});
    EXPECT_EQ(plan.lists, (QStringList{u"a.txt"_s, u"-"_s}));
    EXPECT_EQ(plan.addresses, (QStringList{u"http://x/"_s, u"y.example"_s}));
    EXPECT_EQ(plan.outputFolder, u"out"_s);
    EXPECT_EQ(plan.formats, QList{ImageFormat::Jpeg});
    EXPECT_EQ(plan.naming, u"number"_s);
    EXPECT_EQ(plan.jpegQuality, 55);
    EXPECT_EQ(plan.thumbnail, QSize(200, 150));
    EXPECT_EQ(plan.page.delay, std::chrono::milliseconds(1500));
    EXPECT_EQ(plan.page.timeout, std::chrono::seconds(12));
    EXPECT_FALSE(plan.page.allowScript);
    EXPECT_TRUE(plan.overwrite);
    EXPECT_EQ(plan.browser.program, u"chrome"_s);
    EXPECT_FALSE(plan.browser.sandbox);
    EXPECT_EQ(plan.reportFile, u"r.jsonl"_s);
    EXPECT_TRUE(plan.verbose);
}

TEST(CommandLine, WhatPagesAndServersAreToldReachesThePlan)
{
    const test::TempFolder folder;
    const Plan plan = planOf({u"a.txt"_s,
                              u"--viewport=390x844"_s,
                              u"--scale=1.337"_s,
                              u"--max-height=900"_s,
                              u"--selector=[role=main]"_s,
                              u"--wait-for=#ready"_s,
                              u"--wait-until=idle"_s,
                              u"--dark"_s,
                              u"--css"_s,
                              folder.write(u"a.css"_s, "p { color: red }"),
                              u"--script"_s,
                              folder.write(u"a.js"_s, "go()"),
                              u"--hide=[role=dialog], .ad"_s,
                              u"--hide=p"_s,
                              u"--lang=de-CH,de"_s,
                              u"--user-agent=Tea/1.0 (pot)"_s,
                              u"--header=X-Token:  a: b "_s,
                              u"--header=Authorization: Basic eA=="_s,
                              u"--cookie=a=b=c"_s,
                              u"--proxy=socks5://h:1080/"_s,
                              u"--insecure"_s});
    EXPECT_EQ(plan.page.viewport, QSize(390, 844));
    EXPECT_EQ(plan.page.scale, 1.34);
    EXPECT_EQ(plan.page.maxHeight, 900);
    EXPECT_EQ(plan.page.element, u"[role=main]"_s);
    EXPECT_EQ(plan.page.awaitedElement, u"#ready"_s);
    EXPECT_TRUE(plan.page.awaitsIdle && plan.page.dark && plan.browser.takeBadCertificates);
    EXPECT_EQ(plan.page.style, u"p { color: red }"_s);
    EXPECT_EQ(plan.page.script, u"go()"_s);
    EXPECT_EQ(plan.page.hidden, (QStringList{u"[role=dialog], .ad"_s, u"p"_s}));
    EXPECT_EQ(plan.browser.language, u"de-CH,de"_s);
    EXPECT_EQ(plan.browser.userAgent, u"Tea/1.0 (pot)"_s);
    ASSERT_EQ(plan.page.headers.size(), 2);
    EXPECT_EQ(plan.page.headers[0].name, u"X-Token"_s);
    EXPECT_EQ(plan.page.headers[0].value, u"a: b"_s);
    EXPECT_EQ(plan.page.cookies[0].value, u"b=c"_s);
    EXPECT_EQ(plan.browser.proxy, u"socks5://h:1080"_s);
    EXPECT_TRUE(planOf({u"a.txt"_s, u"--visible-only"_s}).page.windowOnly);
}

TEST(CommandLine, TheBrowserDrawsJpegOnlyWhenNothingElseIsWanted)
{
    const Plan jpeg = planOf({u"a.txt"_s, u"-f"_s, u"jpeg"_s, u"-q"_s, u"33"_s});
    EXPECT_EQ(jpeg.page.encoding, PagePicture::Encoding::Jpeg);
    EXPECT_EQ(jpeg.page.jpegQuality, 33);
    EXPECT_EQ(planOf({u"a.txt"_s, u"-f"_s, u"gif"_s}).page.encoding, PagePicture::Encoding::Png);
}

TEST(CommandLine, WhatMakesNoSenseIsRefused)
{
    const test::TempFolder folder;
    const QString script = folder.write(u"a.js"_s, "1");
    const QList<QStringList> commands{{},
                                      {u"a.txt"_s, u"-f"_s, u"webp"_s},
                                      {u"a.txt"_s, u"-q"_s, u"0"_s},
                                      {u"a.txt"_s, u"-q"_s, u"101"_s},
                                      {u"a.txt"_s, u"--thumbnail"_s, u"200"_s},
                                      {u"a.txt"_s, u"--thumbnail"_s, u"0x5"_s},
                                      {u"a.txt"_s, u"--thumbnail"_s, u"20000x5"_s},
                                      {u"a.txt"_s, u"--delay"_s, u"-1"_s},
                                      {u"a.txt"_s, u"--timeout"_s, u"0"_s},
                                      {u"a.txt"_s, u"--timeout"_s, u"nan"_s},
                                      {u"a.txt"_s, u"--timeout"_s, u"5"_s, u"--delay"_s, u"5"_s},
                                      {u"a.txt"_s, u"--config"_s, u"/no/such/Config.Ini"_s},
                                      {u"a.txt"_s, u"--config"_s, folder.path({})},
                                      {u"a.txt"_s, u"-f"_s, u"png,webp"_s},
                                      {u"a.txt"_s, u"-j"_s, u"0"_s},
                                      {u"a.txt"_s, u"-j"_s, u"many"_s},
                                      {u"a.txt"_s, u"--name"_s, u"page"_s},
                                      {u"a.txt"_s, u"--name"_s, u"{index}-{nonsense}"_s},
                                      {u"a.txt"_s, u"--name"_s, u"{date}"_s},
                                      {u"a.txt"_s, u"--viewport"_s, u"1280"_s},
                                      {u"a.txt"_s, u"--scale"_s, u"0.4"_s},
                                      {u"a.txt"_s, u"--max-height"_s, u"0"_s},
                                      {u"a.txt"_s, u"--wait-until"_s, u"done"_s},
                                      {u"a.txt"_s, u"--hide"_s, u" "_s},
                                      {u"a.txt"_s, u"--css"_s, u"/no/such/file"_s},
                                      {u"a.txt"_s, u"--lang"_s, u"de; rm"_s},
                                      {u"a.txt"_s, u"--user-agent"_s, u"a\nb"_s},
                                      {u"a.txt"_s, u"--header"_s, u"no value"_s},
                                      {u"a.txt"_s, u"--header"_s, u"A: b\r\nC: d"_s},
                                      {u"a.txt"_s, u"--header"_s, u"Host: x"_s},
                                      {u"a.txt"_s, u"--cookie"_s, u"a=b; c=d"_s},
                                      {u"a.txt"_s, u"--proxy"_s, u"h:3128"_s},
                                      {u"a.txt"_s, u"--proxy"_s, u"http://user:word@h:3128"_s},
                                      {u"a.txt"_s, u"--selector"_s, u"p"_s, u"--visible-only"_s},
                                      {u"a.txt"_s, u"--script"_s, script, u"--no-script"_s},
                                      {u"a.txt"_s, u"-o"_s, u""_s},
                                      {u"a.txt"_s, u"--report"_s, u"./a.txt"_s},
                                      {u"--url"_s, script, u"--html"_s, folder.path(u"x/../a.js"_s)},
                                      {u"a.txt"_s, u"--report"_s, u"r"_s, u"--html"_s, u"./r"_s},
                                      {u"a.txt"_s, u"--no-such-option"_s}};
    for (const QStringList& command : commands)
        EXPECT_EQ(refusal(command), ExitCode::Usage) << command.join(u' ').toStdString();
}

TEST(CommandLine, HelpAndVersionAreAnswers)
{
    const auto help = std::get<Answer>(parseCommandLine({u"--help"_s}));
    EXPECT_EQ(help.exitCode, ExitCode::Converted);
    EXPECT_TRUE(help.text.contains(u"--thumbnail"_s));
    EXPECT_TRUE(std::get<Answer>(parseCommandLine({u"--version"_s})).text.startsWith(u"vistrel-batch "_s));
}

TEST(CommandLine, TheWizardsSettingsAreDefaultsThatOptionsOverrule)
{
    const test::TempFolder folder;
    const QString file = folder.write(
        u"Config.Ini"_s,
        "[Main]\r\nOutputFolder=/pictures/\r\nImageType=4\r\nNameAs=1\r\nOverwrite=1\r\nTimeOut=44\r\n"
        "DelayTime=3\r\nJpgQuality=20\r\nThumbnail=a\r\nThumWidth=70\r\nThumHeight=80\r\n"
        "EnableScript=b\r\n");
    const QStringList common{u"a.txt"_s, u"--config"_s, file};
    const Plan plan = planOf(common);
    EXPECT_EQ(plan.outputFolder, u"/pictures"_s);
    EXPECT_EQ(plan.formats, QList{ImageFormat::Tiff});
    EXPECT_EQ(plan.naming, u"number"_s);
    EXPECT_TRUE(plan.overwrite);
    EXPECT_EQ(plan.page.timeout, std::chrono::seconds(44));
    EXPECT_EQ(plan.thumbnail, QSize(70, 80));
    EXPECT_FALSE(plan.page.allowScript);
    const Plan overruled = planOf(common + QStringList{u"-f"_s, u"gif"_s, u"--no-overwrite"_s});
    EXPECT_EQ(overruled.formats, QList{ImageFormat::Gif});
    EXPECT_FALSE(overruled.overwrite);
    EXPECT_EQ(overruled.jpegQuality, 20);
}

TEST(CommandLine, AResumedRunHasTheOptionsOfTheRunItGoesOnWith)
{
    const Plan first =
        planOf({u"a.txt"_s, u"--url"_s, u"http://x/"_s, u"-f"_s, u"png,jpeg"_s, u"--overwrite"_s,
                u"--delay"_s, u"2"_s, u"--thumbnail"_s, u"30x20"_s, u"--report"_s, u"r"_s, u"--hide=[a]"_s,
                u"--hide=[b],[c]"_s, u"--header=A: b, c"_s, u"--dark"_s, u"--scale=2"_s, u"--confine=."_s});
    EXPECT_EQ(first.options.value(u"--confine"_s), QStringList{QDir::currentPath()}) << "from any folder";
    const auto parsed = parseCommandLine({u"--resume"_s, u"-j"_s, u"3"_s}, first.options);
    ASSERT_TRUE(std::holds_alternative<Plan>(parsed));
    const Plan& plan = std::get<Plan>(parsed);
    EXPECT_EQ(plan.lists, first.lists);
    EXPECT_EQ(plan.addresses, first.addresses);
    EXPECT_EQ(plan.formats, (QList{ImageFormat::Png, ImageFormat::Jpeg}));
    EXPECT_TRUE(plan.overwrite);
    EXPECT_EQ(plan.page.delay, std::chrono::seconds(2));
    EXPECT_EQ(plan.thumbnail, QSize(30, 20));
    EXPECT_EQ(plan.jobs, 3);
    EXPECT_TRUE(plan.reportFile.isEmpty());
    EXPECT_EQ(plan.options, first.options);
}

TEST(CommandLine, AResumedRunCannotTurnIntoAnother)
{
    const Plan first = planOf({u"a.txt"_s, u"-f"_s, u"png"_s});
    const auto with = [&](const QStringList& more) {
        return std::holds_alternative<Plan>(
            parseCommandLine(QStringList{u"--resume"_s} + more, first.options));
    };
    EXPECT_TRUE(with({u"a.txt"_s, u"-f"_s, u"png"_s}));
    EXPECT_FALSE(with({u"-f"_s, u"gif"_s}));
    EXPECT_FALSE(with({u"b.txt"_s}));
    EXPECT_FALSE(with({u"--overwrite"_s}));
    EXPECT_FALSE(with({u"--dark"_s}));
    EXPECT_FALSE(with({u"--cookie"_s, u"a=b"_s}));
}

} // namespace

} // namespace vistrel
