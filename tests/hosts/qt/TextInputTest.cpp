#include "HostFixture.h"
#include <QClipboard>
#include <QInputMethodEvent>
#include <QTextEdit>

namespace velmorath {

namespace {

class Editing : public HostFixture {
protected:
    void compose(const char16_t* unfinished, const char16_t* committed = u"")
    {
        QInputMethodEvent event(QString::fromUtf16(unfinished), {});
        event.setCommitString(QString::fromUtf16(committed));
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    }
};

using EditorPlace = Editing;

int differentPixels(const QImage& left, const QImage& right)
{
    int count = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x)
            count += left.pixel(x, y) != right.pixel(x, y);
    }
    return count;
}

TEST_F(EditorPlace, TextDoesNotMoveWhenItsEditingStarts)
{
    const CGRect even = CGRectMake(20, 100, 200, 160);
    const CGRect odd = CGRectMake(31, 77, 201, 155);
    const CGRect moved = CGRectMake(20.5, 100.5, 200, 160);
    const std::string longText = "one two three four five six seven eight nine ten\n\neleven \u00e9 twelve";
    const double scale = host.widget().devicePixelRatioF();
    for (const CGRect& where : {even, odd, moved}) {
        // Where a point is not whole pixels, a row that slides past may be off by a part of a pixel.
        if (where == moved && scale != std::floor(scale))
            continue;
        for (const std::string& text :
            {std::string("buy milk \u00e9"), {"\u05e9\u05dc\u05d5\u05dd abc"}, longText}) {
            const bool multiline = text == longText;
            for (const auto alignment : {CGTextAlignment::natural, CGTextAlignment::left,
                     CGTextAlignment::center, CGTextAlignment::right}) {
                style.alignment = alignment;
                style.wraps = multiline;
                field = where;
                client.drawing = [&](CGContext& context) { context.drawText(text, field, style); };
                const QImage drawn = grab();
                client.drawing = nullptr;
                ASSERT_NE(drawn, grab()) << "nothing was drawn";
                begin(text, {.multiline = multiline});
                QApplication::focusWidget()->clearFocus(); // Takes the caret away.
                // The very edge of a letter may stick out of an editor that stands between two points.
                EXPECT_LE(differentPixels(drawn, grab()), where == moved && multiline ? 5 : 0)
                    << text << " " << static_cast<int>(alignment);
                host.textInput().end();
            }
        }
    }
}

TEST_F(EditorPlace, CaretIsSeenOnAnyBackground)
{
    for (const CGRect& where : {field, field.offsetBy(0.5, 0.5)}) {
        for (const CGColor& color : {CGColor::gray(0), CGColor{1, 0.3, 0}, CGColor::gray(1)}) {
            client.drawing = [&](CGContext& context) { context.fill(field, 0, color); };
            style.color = CGColor::gray(color.green > 0.5 ? 0 : 1);
            field = where;
            begin("");
            ASSERT_TRUE(QApplication::focusWidget());
            const QImage withCaret = grab();
            QApplication::focusWidget()->clearFocus();
            EXPECT_GE(differentPixels(withCaret, grab()), 17) << color.red;
            host.textInput().end();
        }
    }
}

TEST_F(EditorPlace, ShowsOnlyWhatIsInsideTheClipAndFades)
{
    begin("HHHHHHHHHH");
    QApplication::focusWidget()->clearFocus();
    const auto brightest = [this](const QRect& points) {
        const double scale = host.widget().devicePixelRatioF();
        const QImage image = grab();
        int level = 0;
        for (int y = int(points.top() * scale); y < points.bottom() * scale; ++y) {
            for (int x = int(points.left() * scale); x < points.right() * scale; ++x)
                level = std::max(level, qGray(image.pixel(x, y)));
        }
        return level;
    };
    const QRect left(20, 100, 30, 60);
    const QRect right(60, 100, 30, 60);
    EXPECT_GT(brightest(left), 240);
    host.textInput().place(field, CGRectMake(55, 0, 300, 300), 1);
    EXPECT_EQ(brightest(left), 0);
    EXPECT_GT(brightest(right), 240);
    host.textInput().place(field, field, 0.5);
    EXPECT_NEAR(brightest(left), 128, 8);
    host.textInput().place(field, {}, 1);
    EXPECT_EQ(brightest(right), 0);
}

TEST_F(Editing, TypingIsReportedAndKeysEndOneLine)
{
    begin("buy");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral(" x"));
    EXPECT_EQ(changes, (Texts{"buy ", "buy x"})) << "the caret starts at the end";
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        QTest::keyClick(QApplication::focusWidget(), key);
    EXPECT_EQ(returns, 3);
    host.textInput().end();
    host.textInput().end();
    EXPECT_EQ(changes.size(), 2u);
    EXPECT_FALSE(editor<QLineEdit>());
}

TEST_F(Editing, ReturnIsANewLineInManyLines)
{
    begin("a\u00a0b\nc", {.multiline = true});
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(changes.back(), "a\u00a0b\nc\n");
    EXPECT_EQ(returns, 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(returns, 1);
    compose(u"xyz");
    EXPECT_EQ(changes.back(), "a\u00a0b\nc\nxyz");
}

TEST_F(Editing, UnfinishedInputIsPartOfTheText)
{
    begin("ab");
    editor<QLineEdit>()->setCursorPosition(1);
    compose(u"\u306b");
    compose(u"\u307b", u"\u65e5");
    compose(u"", u"\u672c");
    compose(u"x");
    host.textInput().end();
    EXPECT_EQ(changes, (Texts{"a\u306bb", "a\u65e5\u307bb", "a\u65e5\u672cb", "a\u65e5\u672cxb"}))
        << "each text once, and the end takes it over";
}

TEST_F(Editing, TheClientMayEndAndStartAgainFromInside)
{
    begin("a");
    onChange = [this] {
        onChange = nullptr;
        host.textInput().end();
        begin("second");
    };
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("b"));
    QTest::qWait(1);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("c"));
    EXPECT_EQ(changes, (Texts{"ab", "secondc"}));
}

TEST_F(Editing, NeitherLongTextsNorPastedLinesAreSpoilt)
{
    const std::string longText(100'000, 'x');
    begin(longText);
    QGuiApplication::clipboard()->setText(QStringLiteral("1\r\n2\n3"));
    editor<QLineEdit>()->setCursorPosition(0);
    editor<QLineEdit>()->paste();
    ASSERT_FALSE(changes.empty());
    EXPECT_EQ(changes.back(), "1 2 3" + longText);
    EXPECT_EQ(editor<QLineEdit>()->cursorPosition(), 5);
}

TEST_F(Editing, LineBreaksOutliveTheEditingInOneLine)
{
    begin("one\ntwo");
    host.textInput().end();
    EXPECT_TRUE(changes.empty());
    begin("one\ntwo");
    EXPECT_EQ(editor<QLineEdit>()->text().size(), 7) << "a caret has a place on both sides of it";
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("!"));
    EXPECT_EQ(changes.back(), "one\ntwo!");
}

TEST_F(Editing, TheCaretGoesWhereTheTapWas)
{
    const auto caretAfterTap = [&](const std::string& text, CGFloat x) {
        begin(text, {.tap = CGPoint{x, 30}});
        const int caret = editor<QLineEdit>()->cursorPosition();
        host.textInput().end();
        return caret;
    };
    EXPECT_EQ(caretAfterTap("some words", 1), 0);
    EXPECT_EQ(caretAfterTap("some words", 199), 10);
    EXPECT_EQ(caretAfterTap(std::string(200, 'x'), 1), 0) << "what is tapped is the beginning of a long text";
    EXPECT_EQ(caretAfterTap("\u05e9\u05dc\u05d5\u05dd", 199), 0) << "it starts at the right";

    std::string lines;
    for (int i = 0; i < 30; ++i)
        lines += "line\n";
    begin(lines, {.multiline = true, .tap = CGPoint{1, 30}, .scrolled = 100});
    auto* const many = editor<QTextEdit>();
    EXPECT_EQ(host.textInput().scrolled(), 100) << "the text stays where it was";
    const QRect caret = many->cursorRect();
    EXPECT_LE(caret.top(), 30);
    EXPECT_GE(caret.bottom(), 30);
    host.textInput().end();
    EXPECT_EQ(host.textInput().scrolled(), 0);
    begin(lines, {.multiline = true});
    EXPECT_GT(host.textInput().scrolled(), 100) << "the caret is at the end, and in sight";
    host.textInput().end();

    host.textInput().begin(*this, lines, style, {.multiline = true, .tap = CGPoint{1, 1}});
    host.textInput().place(field, field.insetBy(0, -16), 1);
    EXPECT_EQ(editor<QTextEdit>()->cursorRect().top(), 16) << "only scrolled text is seen above its place";
    EXPECT_EQ(editor<QTextEdit>()->height(), 60 + 2 * 16);
}

TEST_F(Editing, LosingTheWindowsFocusChangesNothing)
{
    begin("a");
    QWidget other;
    other.show();
    other.activateWindow();
    QTest::qWait(50);
    EXPECT_TRUE(editor<QLineEdit>());
    EXPECT_EQ(returns, 0);
    host.widget().activateWindow();
    QTest::qWait(50);
    EXPECT_EQ(host.widget().focusWidget(), editor<QLineEdit>());
}

TEST_F(Editing, ALogOutFindsItSaved)
{
    begin("a");
    compose(u"x");
    // What it is about is told to nobody.
    char nobody = 0;
    Q_EMIT qApp->commitDataRequest(reinterpret_cast<QSessionManager&>(nobody));
    EXPECT_EQ(changes, (Texts{"ax"}));
    EXPECT_EQ(returns, 1);
}

TEST_F(Editing, TheKeyboardLearnsWhatItsReturnKeyDoes)
{
    begin("", {.doneKey = true});
    EXPECT_EQ(editor<QLineEdit>()->inputMethodQuery(Qt::ImEnterKeyType).toInt(), Qt::EnterKeyDone);
    begin("", {.multiline = true});
    EXPECT_TRUE(editor<QTextEdit>()->inputMethodHints() & Qt::ImhMultiLine);
    EXPECT_FALSE(editor<QLineEdit>());
}

} // namespace

} // namespace velmorath
