#include "capture/protocol/base64.h"
#include "capture/protocol/connection.h"
#include "capture/protocol/message_splitter.h"
#include "capture/protocol/task.h"
#include "tests/support/await.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace vistrel::test
{
namespace
{

/// A transport whose other side is the test.
class FakeTransport : public Transport
{
public:
    void send(const QByteArray& message) override
    {
        sent += QJsonDocument::fromJson(message).object();
        if (breaks) Q_EMIT received("torn");
    }
    QList<QJsonObject> sent;
    bool breaks = false; ///< While something is sent.
};

class ProtocolTest : public testing::Test
{
protected:
    Task<Result<Reply>> call(const QString& method, Session::Limit limit = 1s)
    {
        const auto session = page;
        co_return co_await session->call(method, {}, limit);
    }

    void receive(const QByteArray& message) { Q_EMIT transport->received(message); }

    FakeTransport* transport = new FakeTransport;
    Connection connection{std::unique_ptr<Transport>(transport)};
    std::shared_ptr<Session> page = connection.openSession(u"S"_s);
};

TEST(MessageSplitter, GivesTheSameMessagesHoweverTheBytesAreChunked)
{
    const QByteArray stream =
        QByteArray("{\"a\":1}#{}#{\"b\":\"long enough to be cut\"}#").replace('#', '\0');
    for (int size = 1; size <= stream.size(); ++size) {
        MessageSplitter splitter;
        QList<QByteArray> messages;
        for (qsizetype at = 0; at < stream.size(); at += size)
            messages += *splitter.feed(stream.mid(at, size));
        ASSERT_EQ(messages, (QList<QByteArray>{"{\"a\":1}", "{}", "{\"b\":\"long enough to be cut\"}"}))
            << size;
    }
}

TEST(MessageSplitter, RefusesAMessageWithoutEnd)
{
    MessageSplitter splitter(100);
    EXPECT_TRUE(splitter.feed(QByteArray(100, 'x')).ok());
    EXPECT_EQ(splitter.feed("x").error().kind, Error::Kind::Protocol);
}

TEST(Base64, GivesTheBytesAndNothingForOtherText)
{
    const QByteArray all = QByteArray::fromHex("00ff10fb3fbf7e80");
    for (qsizetype length = 0; length <= all.size(); ++length)
        EXPECT_EQ(decodeBase64(all.first(length).toBase64()), all.first(length)) << length;
    for (const char* other : {"A", "AAA", "A===", "AA=A", "AAAA\n", "A-_A", "AA==AAAA", "AAAA AA="})
        EXPECT_EQ(decodeBase64(other), QByteArray()) << other;
}

TEST(Message, PicturesComeAsBytesAndEverythingElseAsJson)
{
    QByteArray picture(300000, Qt::Uninitialized);
    for (qsizetype i = 0; i < picture.size(); ++i)
        picture[i] = char(i * 7 + i / 255);
    const auto large =
        Message::parse("{\"id\":7,\"result\":{\"data\":\"" + picture.toBase64() + "\"},\"sessionId\":\"S\"}");
    ASSERT_TRUE(large.ok());
    EXPECT_EQ(large->id, 7);
    EXPECT_EQ(large->sessionId, u"S");
    EXPECT_TRUE(large->reply.data == picture);

    EXPECT_EQ(Message::parse("{\"id\":7,\"result\":{\"data\":\"YWJj\"}}")->reply.data, "abc");
    const QByteArray text(50000, 'y');
    const auto other = Message::parse("{\"id\":8,\"result\":{\"data\":\"" + text + "\",\"eof\":true}}");
    ASSERT_TRUE(other.ok());
    EXPECT_EQ(other->reply.result[u"data"].toString().size(), text.size()) << "not a picture's shape";
    EXPECT_FALSE(Message::parse("{\"id\":").ok());
    EXPECT_FALSE(Message::parse("[]").ok());
}

TEST_F(ProtocolTest, RepliesReachTheirCallsInAnyOrder)
{
    const auto first = call(u"A.first"_s);
    const auto second = call(u"A.second"_s);
    ASSERT_EQ(transport->sent.size(), 2);
    EXPECT_EQ(transport->sent[0][u"sessionId"], u"S"_s);
    const auto number = [this](int i) { return QByteArray::number(transport->sent[i][u"id"].toInt()); };
    receive("{\"id\":" + number(1) + ",\"result\":{\"v\":2},\"sessionId\":\"S\"}");
    EXPECT_FALSE(first.isReady());
    receive("{\"id\":" + number(0) + ",\"error\":{\"code\":-32000,\"message\":\"no\"},\"sessionId\":\"S\"}");
    EXPECT_EQ((await(call(u"x"_s, 1ms))).error().kind, Error::Kind::Timeout);
    ASSERT_TRUE(first.isReady() && second.isReady());
}

TEST_F(ProtocolTest, LateAndUnknownMessagesAreDropped)
{
    EXPECT_EQ(await(call(u"Slow"_s, 5ms)).error().kind, Error::Kind::Timeout);
    receive("{\"id\":1,\"result\":{},\"sessionId\":\"S\"}");
    receive("{\"id\":99,\"result\":{}}");
    receive("{\"method\":\"Some.event\",\"params\":{},\"sessionId\":\"gone\"}");
    EXPECT_TRUE(connection.isOpen());
}

TEST_F(ProtocolTest, ABrokenStreamEndsEverySessionAndEveryCall)
{
    const auto pending = call(u"Waits"_s, 60s);
    int ended = 0;
    const auto wait = [&](std::shared_ptr<Session> session) -> Task<> {
        (void)co_await session->until([] { return false; }, 60s, u"never"_s);
        EXPECT_FALSE(connection.isOpen()) << "who ends with a session learns that it was the connection";
        ++ended;
    };
    for (char id = 'A'; id <= 'S'; ++id)
        wait(id == 'S' ? page : connection.openSession(QChar::fromLatin1(id)));
    receive("{\"id\":1,\"result\":{\"torn\"");
    EXPECT_TRUE(pending.isReady());
    EXPECT_EQ(ended, 'S' - 'A' + 1);
    EXPECT_EQ(page->reason().kind, Error::Kind::Protocol);
    EXPECT_EQ(await(call(u"After"_s)).error().kind, Error::Kind::Protocol) << "later calls fail at once";
}

TEST_F(ProtocolTest, ACallUnderWhichTheStreamBreaksEnds)
{
    transport->breaks = true;
    const auto broken = call(u"Breaks"_s, 60s);
    ASSERT_TRUE(broken.isReady());
    EXPECT_FALSE(page->isOpen());
}

TEST_F(ProtocolTest, WaitsEndWithTheirConditionTheirLimitOrTheirSession)
{
    bool met = false;
    QObject::connect(page.get(), &Session::received, page.get(),
                     [&met](const QString& method) { met = method == u"X.now"; });
    const auto wait = [&met](std::shared_ptr<Session> session, Session::Limit limit) -> Task<Result<void>> {
        co_return co_await session->until([&met] { return met; }, limit, u"the event"_s);
    };
    EXPECT_EQ(await(wait(page, 5ms)).error().kind, Error::Kind::Timeout);
    const auto waiting = wait(page, 60s);
    receive("{\"method\":\"X.other\",\"params\":{},\"sessionId\":\"S\"}");
    EXPECT_FALSE(waiting.isReady());
    receive("{\"method\":\"X.now\",\"params\":{},\"sessionId\":\"S\"}");
    EXPECT_TRUE(waiting.isReady());
    met = false;
    const auto cut = wait(page, 60s);
    page->end({Error::Kind::Cancelled, u"enough"_s, {}});
    EXPECT_TRUE(cut.isReady());
    EXPECT_TRUE(connection.isOpen()) << "one session's end is not the connection's";
}

} // namespace
} // namespace vistrel::test
