#include "HostFixture.h"
#include <QMimeData>
#include <QNativeGestureEvent>
#include <QStyleHints>
#include <QTemporaryFile>
#include <QTextEdit>
#include <QWheelEvent>

namespace velmorath {

namespace {

class Input : public HostFixture {
protected:
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

    QTest::QTouchEventWidgetSequence touch() { return QTest::touchEvent(&host.widget(), screen.get()); }

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
    touch().press(0, {10, 20});
    touch().stationary(0).press(1, {30, 40});
    touch().move(0, {11, 21}).move(1, {31, 41});
    touch().release(0, {11, 21}).stationary(1);
    touch().release(1, {31, 41});
    touch().press(0, {50, 60});
    touch().release(0, {50, 60});
    EXPECT_EQ(client.heard,
        (Texts{"began 1 at 10 20", "began 2 at 30 40", "moved 1 at 11 21, moved 2 at 31 41",
            "ended 1 at 11 21", "ended 2 at 31 41", "began 3 at 50 60", "ended 3 at 50 60"}));
}

TEST_F(Input, TheSystemCancelsFingersOnceAndForAll)
{
    touch().press(0, {10, 20}).press(1, {30, 40});
    QTouchEvent cancel(QEvent::TouchCancel, screen.get());
    QCoreApplication::sendEvent(&host.widget(), &cancel);
    QTest::mousePress(&host.widget(), Qt::LeftButton, {}, {100, 100});
    host.widget().hide();
    QTest::mouseRelease(&host.widget(), Qt::LeftButton, {}, {100, 100});
    EXPECT_EQ(client.heard,
        (Texts{"began 1 at 10 20, began 2 at 30 40", "cancelled 1 at 10 20, cancelled 2 at 30 40",
            "began 3 at 100 100", "cancelled 3 at 100 100", "out of sight"}));
    touch().release(0, {0, 0}).release(1, {0, 0});
}

TEST_F(Input, TheLeftButtonIsOneFingerAndNothingElseIs)
{
    QTest::mouseMove(&host.widget(), {5, 5});
    QTest::mouseClick(&host.widget(), Qt::RightButton, {}, {10, 10});
    QTest::mouseClick(&host.widget(), Qt::MiddleButton, {}, {10, 10});
    sendMouse(QEvent::MouseButtonPress, {10, 10}, Qt::MouseEventSynthesizedByQt);
    sendMouse(QEvent::MouseMove, {10, 20}, Qt::MouseEventSynthesizedBySystem);
    EXPECT_EQ(client.heard, Texts{});

    QTest::mouseClick(&host.widget(), Qt::LeftButton, {}, {10, 10});
    QTest::mouseDClick(&host.widget(), Qt::LeftButton, {}, {10, 10});
    QTest::mouseRelease(&host.widget(), Qt::LeftButton, {}, {10, 10});
    EXPECT_EQ(
        client.heard, (Texts{"began 1 at 10 10", "ended 1 at 10 10", "began 2 at 10 10", "ended 2 at 10 10"}))
        << "a double click is two taps";
}

TEST_F(Input, ControlMakesASecondFingerThatMirrorsTheFirst)
{
    for (const int y : {240, 160}) {
        QTest::mousePress(&host.widget(), Qt::LeftButton, Qt::ControlModifier, {100, 200});
        sendMouse(QEvent::MouseMove, QPointF(110, y), Qt::MouseEventNotSynthesized);
        QTest::mouseRelease(&host.widget(), Qt::LeftButton, {}, {110, y});
    }
    EXPECT_EQ(client.heard,
        (Texts{"began 1 at 100 200.5, began 2 at 100 199.5", "moved 1 at 110 240.5, moved 2 at 90 159.5",
            "ended 1 at 110 240.5, ended 2 at 90 159.5", "began 3 at 100 200.5, began 4 at 100 199.5",
            "moved 3 at 90 240.5, moved 4 at 110 159.5", "ended 3 at 90 240.5, ended 4 at 110 159.5"}))
        << "the lower finger stays the lower one";
}

TEST_F(Input, ATouchpadPinchesAroundTheCursor)
{
    sendGesture(Qt::BeginNativeGesture, 0);
    EXPECT_EQ(client.heard, Texts{}) << "it may be no pinch";
    sendGesture(Qt::ZoomNativeGesture, 0);
    sendGesture(Qt::ZoomNativeGesture, 0.5);
    sendGesture(Qt::ZoomNativeGesture, 1.0 / 3);
    sendGesture(Qt::EndNativeGesture, 0);
    EXPECT_EQ(client.heard,
        (Texts{"began 1 at 100 324, began 2 at 100 276", "moved 1 at 100 324, moved 2 at 100 276",
            "moved 1 at 100 336, moved 2 at 100 264", "moved 1 at 100 348, moved 2 at 100 252",
            "ended 1 at 100 348, ended 2 at 100 252"}));
}

TEST_F(Input, WheelAndTouchpadScroll)
{
    sendWheel({}, {0, 120});
    sendWheel({0, -7}, {0, -30});
    sendWheel({}, {});
    ASSERT_EQ(QApplication::wheelScrollLines(), 3);
    EXPECT_EQ(client.heard, (Texts{"scrolled 60", "scrolled -7"})) << "up is towards the beginning";
}

TEST_F(Input, TheEditorTakesItsOwnClicksOnly)
{
    begin("some words");
    QWindow* window = host.widget().windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, {}, {23, 120});
    EXPECT_EQ(editor<QLineEdit>()->cursorPosition(), 0);
    touchEditor({200, 120}, {200, 120});
    EXPECT_EQ(editor<QLineEdit>()->cursorPosition(), 10);
    EXPECT_EQ(client.heard, Texts{});

    QTest::mouseClick(window, Qt::LeftButton, {}, {23, 180});
    touchEditor({200, 180}, {200, 180});
    EXPECT_EQ(client.heard.size(), 4u);
    EXPECT_EQ(QApplication::focusWidget(), editor<QLineEdit>());
}

TEST_F(Input, AFingerScrollsATextAndSelectsWhatItHoldsOrTapsTwice)
{
    std::string lines;
    for (int i = 0; i < 60; ++i)
        lines += "some words\n";
    field = CGRectMake(0, 100, 375, 400);
    // A busy machine is no slow finger.
    QStyleHints& hints = *QGuiApplication::styleHints();
    const int tapInterval = hints.mouseDoubleClickInterval();
    const int holdInterval = hints.mousePressAndHoldInterval();
    hints.setMouseDoubleClickInterval(2000);
    hints.setMousePressAndHoldInterval(1500);
    // A timer may be a twentieth of its interval late.
    constexpr int late = 200;
    begin(lines, {.multiline = true, .tap = CGPoint{0, 0}});
    const auto caret = [this] { return editor<QTextEdit>()->textCursor(); };

    touchEditor({100, 450}, {100, 250});
    EXPECT_GE(host.textInput().scrolled(), 150);
    EXPECT_FALSE(caret().hasSelection());
    EXPECT_EQ(caret().position(), 0) << "it was no tap";
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            const double before = host.textInput().scrolled();
            QTest::qWait(100);
            return host.textInput().scrolled() == before;
        },
        20000))
        << "it comes to rest";

    touchEditor({60, 300}, {60, 300});
    EXPECT_GT(caret().position(), 0);
    EXPECT_FALSE(caret().hasSelection());
    touchEditor({60, 300}, {60, 300});
    EXPECT_EQ(caret().selectedText(), QStringLiteral("words"));
    QTest::qWait(hints.mouseDoubleClickInterval() + late);
    touchEditor({10, 300}, {10, 300}, hints.mousePressAndHoldInterval() + late);
    EXPECT_EQ(caret().selectedText(), QStringLiteral("some"));
    const double scrolled = host.textInput().scrolled();
    touchEditor({10, 300}, {10, 350}, hints.mousePressAndHoldInterval() + late);
    EXPECT_GT(caret().selectedText().size(), 10) << "drawn on, it selects more";
    EXPECT_EQ(host.textInput().scrolled(), scrolled);
    EXPECT_EQ(client.heard, Texts{});
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
    EXPECT_EQ(client.heard, (Texts{"- [ ] note\n", "a text", "error"}));
}

} // namespace

} // namespace velmorath
