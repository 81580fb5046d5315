#include "HostFixture.h"
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QStyleHints>
#include <QTemporaryFile>
#include <QTextEdit>
#include <QWheelEvent>

namespace velmorath {

namespace {

using Phase = HostTouch::Phase;

class Input : public HostFixture, public TextInputClient {
protected:
    void textInputDidChange(const std::string&) override { }
    void textInputDidReturn() override { }

    void sendMouse(QEvent::Type type, QPointF at, Qt::MouseEventSource source)
    {
        QMouseEvent event(type, at, at, at, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier, source);
        QCoreApplication::sendEvent(&host.widget(), &event);
    }

    void sendWheel(QPoint pixels, QPoint angle)
    {
        QWheelEvent event(
            {50, 50}, {50, 50}, pixels, angle, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&host.widget(), &event);
    }

    void sendGesture(Qt::NativeGestureType type, double value)
    {
        QNativeGestureEvent event(type, touchpad.get(), 2, {100, 300}, {100, 300}, {100, 300}, value, {});
        QCoreApplication::sendEvent(&host.widget(), &event);
    }

    void touchEditor(QPoint from, QPoint to, int held = 0)
    {
        QWindow* const window = host.widget().windowHandle();
        constexpr int steps = 10;
        QTest::touchEvent(window, screen.get()).press(0, from);
        QTest::qWait(held);
        for (int step = 1; from != to && step <= steps; ++step) {
            QTest::touchEvent(window, screen.get()).move(0, from + (to - from) * step / steps);
            QTest::qWait(10);
        }
        QTest::touchEvent(window, screen.get()).release(0, to);
    }

    std::unique_ptr<QPointingDevice> screen{QTest::createTouchDevice()};
    std::unique_ptr<QPointingDevice> touchpad{QTest::createTouchDevice(QInputDevice::DeviceType::TouchPad)};
};

TEST_F(Input, FingersKeepTheirIdentifiersAndNewOnesGetNewOnes)
{
    QTest::touchEvent(&host.widget(), screen.get()).press(0, {10, 20});
    QTest::touchEvent(&host.widget(), screen.get()).stationary(0).press(1, {30, 40});
    QTest::touchEvent(&host.widget(), screen.get()).move(0, {11, 21}).move(1, {31, 41});
    QTest::touchEvent(&host.widget(), screen.get()).release(0, {11, 21}).stationary(1);
    QTest::touchEvent(&host.widget(), screen.get()).release(1, {31, 41});
    QTest::touchEvent(&host.widget(), screen.get()).press(0, {50, 60});
    QTest::touchEvent(&host.widget(), screen.get()).release(0, {50, 60});

    const auto& touches = client.touches;
    ASSERT_EQ(touches.size(), 8u);
    EXPECT_EQ(client.touchCalls, 7) << "fingers that move together are reported together";
    const auto first = touches[0].identifier;
    const auto second = touches[1].identifier;
    EXPECT_NE(first, second);
    EXPECT_EQ(touches[1].phase, Phase::began);
    EXPECT_EQ(touches[2].identifier, first);
    EXPECT_EQ(touches[2].phase, Phase::moved);
    EXPECT_EQ(touches[3].location, (CGPoint{31, 41}));
    EXPECT_EQ(touches[4].phase, Phase::ended);
    EXPECT_EQ(touches[4].identifier, first);
    EXPECT_EQ(touches[5].identifier, second);
    EXPECT_NE(touches[6].identifier, first);
    EXPECT_NE(touches[6].identifier, second);
}

TEST_F(Input, TheSystemCancelsFingersOnceAndForAll)
{
    QTest::touchEvent(&host.widget(), screen.get()).press(0, {10, 20}).press(1, {30, 40});
    QTouchEvent cancel(QEvent::TouchCancel, screen.get());
    QCoreApplication::sendEvent(&host.widget(), &cancel);
    QTest::mousePress(&host.widget(), Qt::LeftButton, {}, {100, 100});
    host.widget().hide();
    QTest::mouseRelease(&host.widget(), Qt::LeftButton, {}, {100, 100});

    ASSERT_EQ(client.touches.size(), 6u);
    EXPECT_EQ(client.touches[2].phase, Phase::cancelled);
    EXPECT_EQ(client.touches[3].phase, Phase::cancelled);
    EXPECT_EQ(client.touches[5].phase, Phase::cancelled);
    EXPECT_EQ(client.states.back(), HostState::background);
    QTest::touchEvent(&host.widget(), screen.get()).release(0, {0, 0}).release(1, {0, 0});
}

TEST_F(Input, TheLeftButtonIsOneFingerAndNothingElseIs)
{
    QTest::mouseMove(&host.widget(), {5, 5});
    QTest::mouseClick(&host.widget(), Qt::RightButton, {}, {10, 10});
    QTest::mouseClick(&host.widget(), Qt::MiddleButton, {}, {10, 10});
    sendMouse(QEvent::MouseButtonPress, {10, 10}, Qt::MouseEventSynthesizedByQt);
    sendMouse(QEvent::MouseMove, {10, 20}, Qt::MouseEventSynthesizedBySystem);
    EXPECT_TRUE(client.touches.empty());

    QTest::mouseClick(&host.widget(), Qt::LeftButton, {}, {10, 10});
    QTest::mouseDClick(&host.widget(), Qt::LeftButton, {}, {10, 10});
    QTest::mouseRelease(&host.widget(), Qt::LeftButton, {}, {10, 10});
    ASSERT_EQ(client.touches.size(), 4u) << "a double click is two taps";
    EXPECT_EQ(client.touches[2].phase, Phase::began);
    EXPECT_EQ(client.touches[3].phase, Phase::ended);
}

TEST_F(Input, ControlMakesASecondFingerThatMirrorsTheFirst)
{
    for (const int direction : {1, -1}) {
        client.touches.clear();
        QTest::mousePress(&host.widget(), Qt::LeftButton, Qt::ControlModifier, {100, 200});
        sendMouse(QEvent::MouseMove, QPointF(110, 200 + 40 * direction), Qt::MouseEventNotSynthesized);
        QTest::mouseRelease(&host.widget(), Qt::LeftButton, {}, {110, 200 + 40 * direction});

        const auto& touches = client.touches;
        ASSERT_EQ(touches.size(), 6u);
        EXPECT_GT(touches[0].location.y, touches[1].location.y);
        EXPECT_GT(touches[2].location.y, touches[3].location.y) << "the lower finger stays the lower one";
        for (const std::size_t i : {0u, 2u, 4u}) {
            EXPECT_EQ(touches[i].identifier, touches[0].identifier);
            EXPECT_EQ(touches[i].location.x + touches[i + 1].location.x, 200);
            EXPECT_EQ(touches[i].location.y + touches[i + 1].location.y, 400);
        }
        EXPECT_NEAR(touches[2].location.y - touches[3].location.y, 81, 0.01);
        EXPECT_EQ(touches[4].phase, Phase::ended);
        EXPECT_EQ(touches[5].phase, Phase::ended);
    }
}

TEST_F(Input, ATouchpadPinchesAroundTheCursor)
{
    sendGesture(Qt::BeginNativeGesture, 0);
    EXPECT_TRUE(client.touches.empty()) << "it may be no pinch";
    sendGesture(Qt::ZoomNativeGesture, 0);
    sendGesture(Qt::ZoomNativeGesture, 0.5);
    sendGesture(Qt::ZoomNativeGesture, 1.0 / 3);
    sendGesture(Qt::EndNativeGesture, 0);
    const auto distance = [this](std::size_t i) {
        return client.touches[i].location.y - client.touches[i + 1].location.y;
    };
    ASSERT_EQ(client.touches.size(), 10u);
    EXPECT_NEAR(distance(6) / distance(0), 2, 0.001);
    EXPECT_EQ((client.touches[6].location.y + client.touches[7].location.y) / 2, 300);
    EXPECT_EQ(client.touches[9].phase, Phase::ended);
}

TEST_F(Input, WheelAndTouchpadScroll)
{
    sendWheel({}, {0, 120});
    sendWheel({0, -7}, {0, -30});
    sendWheel({}, {});
    ASSERT_EQ(client.scrolls.size(), 2u);
    EXPECT_EQ(client.scrolls[0].dy, 20.0 * QApplication::wheelScrollLines()) << "up is towards the beginning";
    EXPECT_EQ(client.scrolls[1].dy, -7);
}

TEST_F(Input, TheEditorTakesItsOwnClicksOnly)
{
    const CGRect field = CGRectMake(20, 100, 200, 40);
    host.textInput().begin(*this, "some words", {}, {});
    host.textInput().place(field, field, 1);
    auto* editor = host.widget().findChild<QLineEdit*>();
    QWindow* window = host.widget().windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, {}, {23, 120});
    EXPECT_EQ(editor->cursorPosition(), 0);
    QTest::touchEvent(window, screen.get()).press(0, {200, 120});
    QTest::touchEvent(window, screen.get()).release(0, {200, 120});
    EXPECT_EQ(editor->cursorPosition(), 10);
    EXPECT_TRUE(client.touches.empty());

    QTest::mouseClick(window, Qt::LeftButton, {}, {23, 160});
    QTest::touchEvent(window, screen.get()).press(0, {200, 160});
    QTest::touchEvent(window, screen.get()).release(0, {200, 160});
    EXPECT_EQ(client.touches.size(), 4u);
    EXPECT_EQ(QApplication::focusWidget(), editor);
    host.textInput().end();
}

TEST_F(Input, AFingerScrollsATextAndSelectsWhatItHoldsOrTapsTwice)
{
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += "some words\n";
    const CGRect field = CGRectMake(0, 100, 375, 400);
    // A busy machine is no slow finger.
    QStyleHints& hints = *QGuiApplication::styleHints();
    const int tapInterval = hints.mouseDoubleClickInterval();
    const int holdInterval = hints.mousePressAndHoldInterval();
    hints.setMouseDoubleClickInterval(2000);
    hints.setMousePressAndHoldInterval(1500);
    // A timer may be a twentieth of its interval late.
    constexpr int late = 200;
    host.textInput().begin(*this, lines, {}, {.multiline = true, .tap = CGPoint{0, 0}});
    host.textInput().place(field, field, 1);
    auto* const editor = host.widget().findChild<QTextEdit*>();

    touchEditor({100, 450}, {100, 250});
    EXPECT_GE(host.textInput().scrolled(), 150);
    EXPECT_FALSE(editor->textCursor().hasSelection());
    EXPECT_EQ(editor->textCursor().position(), 0) << "it was no tap";
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const double before = host.textInput().scrolled();
            QTest::qWait(100);
            return host.textInput().scrolled() == before;
        },
        20000))
        << "it comes to rest";

    touchEditor({60, 300}, {60, 300});
    EXPECT_GT(editor->textCursor().position(), 0);
    EXPECT_FALSE(editor->textCursor().hasSelection());
    touchEditor({60, 300}, {60, 300});
    EXPECT_EQ(editor->textCursor().selectedText(), QStringLiteral("words"));
    QTest::qWait(hints.mouseDoubleClickInterval() + late);
    touchEditor({10, 300}, {10, 300}, hints.mousePressAndHoldInterval() + late);
    EXPECT_EQ(editor->textCursor().selectedText(), QStringLiteral("some"));
    const double scrolled = host.textInput().scrolled();
    touchEditor({10, 300}, {10, 350}, hints.mousePressAndHoldInterval() + late);
    EXPECT_GT(editor->textCursor().selectedText().size(), 10) << "drawn on, it selects more";
    EXPECT_EQ(host.textInput().scrolled(), scrolled);
    EXPECT_TRUE(client.touches.empty());
    host.textInput().end();
    hints.setMouseDoubleClickInterval(tapInterval);
    hints.setMousePressAndHoldInterval(holdInterval);
}

TEST_F(Input, FilesAndTextsAreDroppedOnTheWindow)
{
    const auto drop = [this](const QList<QUrl>& addresses, const QString& text) {
        QMimeData dropped;
        dropped.setUrls(addresses);
        if (addresses.isEmpty())
            dropped.setText(text);
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&host.widget(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event({50, 50}, Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&host.widget(), &event);
        return event.isAccepted();
    };
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    file.write("- [ ] note\n");
    file.flush();
    EXPECT_TRUE(drop({QUrl::fromLocalFile(file.fileName())}, {}));
    EXPECT_TRUE(drop({}, QStringLiteral("a text")));
    EXPECT_TRUE(drop({QUrl::fromLocalFile(QStringLiteral("/nowhere/at/all"))}, {}));
    EXPECT_EQ(client.documents, (std::vector<std::string>{"- [ ] note\n", "a text", "error"}));
}

} // namespace

} // namespace velmorath
