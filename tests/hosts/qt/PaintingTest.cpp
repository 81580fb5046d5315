#include "HostFixture.h"
#include "QtContext.h"
#include <QBuffer>
#include <QFontDatabase>

namespace velmorath {

namespace {

/// A hundred points on a side, black, at the scale of a good phone.
class Painting : public testing::Test {
protected:
    Painting() { image.fill(Qt::black); }

    void SetUp() override
    {
        image.setDevicePixelRatio(2);
        painter.begin(&image);
        context.emplace(painter, texts, shadows);
    }
    void TearDown() override { painter.end(); }

    QColor at(int x, int y) const { return image.pixelColor(2 * x, 2 * y); }

    /// The device columns or rows that are not black.
    QRect inked() const
    {
        QRect rect;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                rect |= image.pixelColor(x, y).lightness() > 40 ? QRect(x, y, 1, 1) : QRect();
        }
        return rect;
    }

    QImage image{200, 200, QImage::Format_ARGB32_Premultiplied};
    TextCache texts;
    ShadowCache shadows;
    QPainter painter;
    std::optional<QtContext> context;
};

TEST_F(Painting, ColoursAreClampedOnlyHere)
{
    context->fill(CGRectMake(0, 0, 50, 50), 0, CGColor{3.0, 0.2, -1});
    EXPECT_EQ(at(10, 10), QColor(255, 51, 0));
    context->fill(CGRectMake(0, 50, 50, 50), 0, CGColor{1, 1, 1, 7});
    EXPECT_EQ(at(10, 60), QColor(Qt::white));
    context->fill(CGRectMake(50, 0, 50, 50), 0, CGColor{NAN, 1, 0});
    EXPECT_EQ(at(60, 10), QColor(0, 255, 0));
}

TEST_F(Painting, AlphaMultipliesAndComesBack)
{
    context->saveState();
    context->multiplyAlpha(0.5);
    context->multiplyAlpha(0.5);
    context->fill(CGRectMake(0, 0, 10, 10), 0, CGColor::gray(4));
    context->fill(CGRectMake(20, 0, 10, 10), 0, CGGradient{{CGColor::gray(1, 9), CGColor::gray(1)}, {0, 1}});
    context->restoreState();
    context->fill(CGRectMake(40, 0, 10, 10), 0, CGColor::gray(1));
    EXPECT_NEAR(at(5, 5).red(), 64, 1);
    EXPECT_NEAR(at(25, 5).red(), 64, 1);
    EXPECT_EQ(at(45, 5).red(), 255);
}

TEST_F(Painting, GradientRunsFromTopToBottomThroughItsStops)
{
    const CGGradient gradient{
        {CGColor::gray(1), CGColor::gray(0), CGColor::gray(0), {1, 0, 0}}, {0, 0.5, 0.5, 1}};
    context->concatenate(CGAffineTransform::translation(0, 10));
    context->fill(CGRectMake(0, 0, 100, 80), 0, gradient);
    EXPECT_NEAR(at(50, 10).red(), 255, 3);
    EXPECT_NEAR(at(50, 30).red(), 128, 4);
    EXPECT_NEAR(at(50, 50).red(), 0, 4);
    EXPECT_NEAR(at(50, 70).red(), 128, 4);
    EXPECT_EQ(at(50, 70).green(), 0);
    EXPECT_EQ(at(0, 30), at(99, 30));
    EXPECT_EQ(at(50, 95), QColor(Qt::black));
}

TEST_F(Painting, RowsThatTouchLeaveNoSeamAndNoOverlap)
{
    for (int row = 0; row < 9; ++row)
        context->fill(CGRectMake(0, 0.3 + row * 10.7, 100, 10.7), 0, CGColor::gray(1, 0.5));
    for (int y = 2; y < 190; ++y)
        EXPECT_NEAR(image.pixelColor(100, y).red(), 128, 1) << y;
}

TEST_F(Painting, ClipsNarrowEachOther)
{
    context->saveState();
    context->clip(CGRectMake(0, 0, 60, 60), 30);
    context->clip(CGRectMake(0, 0, 30, 100), 0);
    context->fill(CGRectMake(0, 0, 100, 100), 0, CGColor::gray(1));
    context->restoreState();
    EXPECT_EQ(at(20, 30).red(), 255);
    EXPECT_EQ(at(1, 1).red(), 0) << "the round corner";
    EXPECT_EQ(at(40, 30).red(), 0);
    context->fill(CGRectMake(90, 90, 10, 10), 0, CGColor::gray(1));
    EXPECT_EQ(at(95, 95).red(), 255);
    context->clip({}, 0);
    context->fill(CGRectMake(0, 0, 100, 100), 0, CGColor{0, 0, 1});
    EXPECT_EQ(at(60, 60).blue(), 0) << "nothing is inside an empty rectangle";
}

TEST_F(Painting, StrokeStaysInside)
{
    context->stroke(CGRectMake(20, 20, 40, 40), 200, 2, CGColor::gray(1));
    EXPECT_EQ(inked(), QRect(40, 40, 80, 80));
    EXPECT_EQ(at(21, 21).red(), 0) << "a radius too large makes a circle";
    EXPECT_EQ(at(40, 40).red(), 0);
}

TEST_F(Painting, ShadowIsSoftAndMoved)
{
    context->drawShadow(CGRectMake(20, 20, 50, 50), 4, CGColor::gray(1), {0, 10}, 8);
    EXPECT_NEAR(at(45, 55).red(), 255, 2);
    EXPECT_NEAR(at(45, 30).red(), 128, 40) << "half of it at the edge";
    EXPECT_GT(at(45, 82).red(), 10);
    EXPECT_EQ(at(45, 95).red(), 0);
    EXPECT_GT(at(45, 76).red(), at(45, 82).red());
    EXPECT_EQ(at(45, 78), at(35, 78)) << "even along the edge";
}

TEST_F(Painting, PicturesFillTheirRectangle)
{
    QImage picture(4, 2, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    QtHost host{{}};
    const auto decoded = host.screen().decodeImage(bytes.toStdString());
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->pixelSize(), (CGSize{4, 2}));
    context->multiplyAlpha(0.5);
    context->drawImage(*decoded, CGRectMake(10, 10, 40, 60));
    EXPECT_NEAR(at(30, 60).red(), 128, 1);
    EXPECT_EQ(at(30, 72).red(), 0);

    EXPECT_FALSE(host.screen().decodeImage(bytes.left(20).toStdString()));
    EXPECT_FALSE(host.screen().decodeImage("no picture"));
    EXPECT_FALSE(host.screen().decodeImage(""));
    EXPECT_FALSE(host.screen().decodeImage("P6 1 1 255\nabc")) << "PNG and JPEG only";
}

TEST_F(Painting, EllipsisStandsAtTheEndOfTheReadingDirection)
{
    const CGTextStyle style{.font = {.size = 14}, .color = CGColor::gray(1)};
    // Three dots on the base line, and nothing above them.
    const auto isLowAt = [this](int x) {
        const int height = inked().height();
        for (int y = inked().top(); y < inked().top() + height / 2; ++y) {
            for (int column = x; column < x + 10; ++column) {
                if (image.pixelColor(column, y).lightness() > 40)
                    return false;
            }
        }
        return true;
    };
    context->drawText("HHHHHHHHHHHHHHHHHHHHHHHHH", CGRectMake(0, 0, 100, 40), style);
    EXPECT_LE(inked().right(), 200);
    EXPECT_TRUE(isLowAt(inked().right() - 9));
    EXPECT_FALSE(isLowAt(inked().left()));
    image.fill(Qt::black);
    context->drawText("\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4\u05d4"
                      "\u05d4\u05d4\u05d4\u05d4",
        CGRectMake(0, 0, 100, 40), style);
    EXPECT_TRUE(isLowAt(inked().left()));
    EXPECT_FALSE(isLowAt(inked().right() - 9));
}

TEST_F(Painting, WrappedTextBeginsAtTheTopAndEndsAtTheBottom)
{
    const CGTextStyle style{.font = {.size = 14}, .color = CGColor::gray(1), .wraps = true};
    context->drawText("one two three four five six seven eight nine ten", CGRectMake(0, 10, 60, 40), style);
    EXPECT_LT(inked().top(), 40);
    EXPECT_GT(inked().bottom(), 60);
    EXPECT_LT(inked().bottom(), 100);
    EXPECT_LE(inked().right(), 120);
}

TEST(Measuring, FollowsTextFontAndDirection)
{
    QtHost host{{}};
    const auto measure = [&host](const char* text, const CGFont& font) {
        return host.screen().measure(text, font);
    };
    const CGTextMetrics empty = measure("", {.size = 20});
    EXPECT_EQ(empty.size.width, 0);
    EXPECT_GE(empty.size.height, 20);
    EXPECT_EQ(measure("word", {.size = 20}).size.height, empty.size.height);
    EXPECT_GT(measure("word word", {.size = 20}).size.width, measure("word", {.size = 20}).size.width * 1.9);
    EXPECT_NEAR(measure("word", {.size = 40}).size.width, measure("word", {.size = 20}).size.width * 2, 3);
    EXPECT_EQ(measure("word", {.family = "No Such Family"}).size, measure("word", {}).size);
    EXPECT_FALSE(measure("123 abc \u05e9", {}).readsFromTheRight);
    EXPECT_TRUE(measure("123 \u05e9 abc", {}).readsFromTheRight);
}

} // namespace

} // namespace velmorath
