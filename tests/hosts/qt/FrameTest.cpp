#include "HostFixture.h"

namespace velmorath {

namespace {

using Frames = HostFixture;

TEST_F(Frames, OneFrameForManyRequestsAndOnlyTheDamageIsDrawn)
{
    client.damage = CGRectMake(10, 20, 30.5, 40);
    host.screen().requestFrame();
    host.screen().requestFrame();
    EXPECT_EQ(client.frames, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !client.drawn.empty(); }));
    EXPECT_EQ(client.frames, 1);
    EXPECT_EQ(client.drawn[0], CGRectMake(10, 20, 31, 40));

    host.screen().requestFrame();
    EXPECT_TRUE(QTest::qWaitFor([this] { return client.frames == 2; }));
    QTest::qWait(100);
    EXPECT_EQ(client.frames, 2);
    EXPECT_EQ(client.drawn.size(), 1u) << "nothing has changed";
}

TEST_F(Frames, KeepTheDisplaysPaceAlsoWhereNothingIsPainted)
{
    client.onFrame = [this] { host.screen().requestFrame(); };
    host.screen().requestFrame();
    const double start = host.clock().now();
    QTest::qWait(300);
    EXPECT_TRUE(QTest::qWaitFor([this] { return client.frames > 2; }));
    const double fastestDisplay = 240;
    EXPECT_LE(client.frames, 2 + fastestDisplay * (host.clock().now() - start));
}

TEST_F(Frames, NewSizeIsKnownBeforeItIsDrawn)
{
    client.damage = CGRectMake(0, 0, 500, 700);
    host.widget().resize(500, 700);
    EXPECT_EQ(client.heard, Texts{"another size"});
    EXPECT_EQ(host.screen().size(), (CGSize{500, 700}));
    EXPECT_EQ(client.frames, 1);
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return !client.drawn.empty() && client.drawn.back() == CGRectMake(0, 0, 500, 700); }));
    EXPECT_GE(host.widget().minimumWidth(), 200);
}

TEST_F(Frames, FramesWaitUntilTheWindowIsSeen)
{
    host.widget().hide();
    host.screen().requestFrame();
    QTest::qWait(60);
    EXPECT_EQ(client.frames, 0);
    host.widget().show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return client.frames > 0 && client.heard.back() == "in sight"; }));
    EXPECT_EQ(client.heard.front(), "out of sight");
}

TEST_F(Frames, WakesOnceAtTheLastMomentAskedFor)
{
    const double start = host.clock().now();
    host.clock().wakeAt(start + 3600 * 24 * 365.0);
    host.clock().wakeAt(start + 0.03);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !client.heard.empty(); }));
    EXPECT_GE(host.clock().now(), start + 0.03);
    host.clock().wakeAt(host.clock().now() + 0.01);
    host.clock().wakeAt(std::numeric_limits<double>::infinity());
    QTest::qWait(50);
    EXPECT_EQ(client.heard, Texts{"woken"});
}

} // namespace

} // namespace velmorath
